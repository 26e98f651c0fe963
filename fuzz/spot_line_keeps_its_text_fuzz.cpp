// Whatever a block holds, it is read to its end: the count is that of its pieces, every spot is valid text of
// one line, and what the duplicate rule lets through once it drops the next time.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/encoding.h"
#include "rbn/spot_parser.h"
#include "test_host.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

bool IsOneLine(std::string_view text) {
  return brelwin::IsUtf8(text) && text.find_first_of("\r\n\a") == std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = "DX de" + brelwin::TextFromBytes({reinterpret_cast<const char*>(data), size});
  brelwin::test::TestHost host;
  brelwin::SpotFilter filter;
  filter.IncludeAllSpotTypes = true;
  brelwin::CallsignCollection known;
  brelwin::AlertCollection alerts;
  brelwin::RecentRBNSpots recent;
  brelwin::SpotCollection spots;
  std::int32_t count = 0;
  std::string errorText;
  const auto parse = [&] {
    return brelwin::ParseReverseBeaconSpots(host.World, text, filter, known, alerts, recent, spots, count,
                                            errorText);
  };
  filter.DuplicateSpotFilteringPeriod = 10;
  Require(parse() == -1);
  Require(spots.Count() <= static_cast<std::size_t>(count));
  for (const auto& entry : spots) {
    const auto& spot = *entry.Item;
    Require(IsOneLine(spot.Spot) && IsOneLine(spot.ID) && IsOneLine(spot.Comment));
    Require(recent.Contains(spot.SpotKey));
  }
  spots.Clear();
  filter.FilterDuplicateSpots = true;
  Require(parse() == -1 && spots.Empty());
  return 0;
}
