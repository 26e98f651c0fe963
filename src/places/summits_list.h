// The list of all summits as its users download it from the awards programme's database: a title line, a
// header that names the columns, and a line for each summit.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"
#include "base/record_faults.h"
#include "places/geo_point.h"

namespace brelwin {

// One row. The texts are valid while it is handed over.
struct SummitRow {
  std::string_view Code;  // "G/LD-003"
  std::string_view Association;
  std::string_view Region;
  std::string_view Name;
  std::string_view GridReference1;
  std::string_view GridReference2;
  std::optional<int> AltitudeInMeters;
  std::optional<int> AltitudeInFeet;
  std::optional<GeoPoint> Place;
  int Points = 0;
  int BonusPoints = 0;
  std::optional<DateTime> ValidFrom;  // midnight of the first day
  std::optional<DateTime> ValidTo;    // midnight of the last day
  int ActivationCount = 0;
  std::optional<DateTime> LastActivated;
  std::string_view LastActivator;
};

struct SummitsListResult {
  std::size_t RowCount = 0;  // rows handed over
  RecordFaults Faults;       // rows left out: cut, without summit code, or not on earth
  std::string ErrorText;     // why the file is no such list; empty for one that was read
};

// Hands over the rows in their order. Columns are found by name, in any order; of the 17, those for the code
// and the name must be there. Values that are missing or unreadable stay empty. Lines that are not UTF-8 are
// Windows-1252.
SummitsListResult ReadSummitsList(std::string_view bytes, const std::function<void(const SummitRow&)>& take);

}  // namespace brelwin
