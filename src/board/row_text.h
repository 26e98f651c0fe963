// Rows and events of the board as text that outlives the program: JSON, one line each. What is at its default
// is left out.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "board/activation_row.h"

namespace brelwin {

std::string RowText(const ActivationRow& row);

// The row of such a text, whoever wrote it: members that are not known are passed over, those that are
// missing are at their default. Empty when it is no JSON object, or when a member is of another kind or out
// of range, such as a time outside the years 1970 to 9999.
std::optional<ActivationRow> ReadRowText(std::string_view text);

// Announcements by the key of the alert.
using AnnouncedByKey = std::map<std::string, AnnouncedStation>;

// Events of a run, in their order, as texts. Announcements are many and change little: only the first of a
// UTC day are written whole, the others as their difference from those before.
class EventWriter {
 public:
  // Empty for announcements that say nothing new.
  std::string Write(const TimedEvent& event);

  // The next announcements are written whole.
  void Forget() { day_ = -1; }

 private:
  std::string WriteAnnouncements(const AnnouncementsRead& read, DateTime when);

  AnnouncedByKey before_;
  std::int64_t day_ = -1;  // of `before_`, since 1970
};

class EventReader {
 public:
  // The event of a text, given those before it. Empty as for rows; a difference whose beginning was not read
  // is taken as all there are.
  std::optional<TimedEvent> Read(std::string_view text);

 private:
  AnnouncedByKey before_;
};

}  // namespace brelwin
