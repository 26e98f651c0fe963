#include "ui/list_reading.h"

#include <algorithm>

#include "base/text.h"
#include "radio/callsign.h"
#include "radio/numbers.h"

namespace brelwin {

std::vector<std::size_t> LinesWith(std::string_view text, std::size_t count,
                                   const std::function<std::string(std::size_t)>& lineAt) {
  std::vector<std::size_t> found;
  if (text.empty()) return found;
  const auto sought = UpperCase(text);
  for (std::size_t line = 0; line < count; ++line)
    if (Contains(UpperCase(lineAt(line)), sought)) found.push_back(line);
  return found;
}

std::optional<std::size_t> StepTo(const std::vector<std::size_t>& found, std::size_t line, SearchStep step) {
  if (found.empty()) return {};
  const auto below = step == SearchStep::Next ? std::upper_bound(found.begin(), found.end(), line)
                                              : std::lower_bound(found.begin(), found.end(), line);
  const auto place = static_cast<std::size_t>(below - found.begin());
  if (step == SearchStep::Previous) return (place + found.size() - 1) % found.size();
  return place % found.size();
}

std::string SearchWords(const std::vector<std::size_t>& found, std::optional<std::size_t> line) {
  if (found.empty()) return "not found";
  const auto all = std::to_string(found.size());
  const auto place = line ? std::find(found.begin(), found.end(), *line) : found.end();
  if (place == found.end()) return all + " found";
  return std::to_string(place - found.begin() + 1) + " of " + all;
}

std::optional<Narrowing> NarrowingTo(NarrowBy by, const Spot& spot) {
  Narrowing narrowing{by, std::string(Trim(spot.Station)), std::string(Trim(spot.SummitDesignator)),
                      spot.BandInMhz};
  switch (by) {
    case NarrowBy::Station:
      if (narrowing.Station.empty()) return {};
      break;
    case NarrowBy::Summit:
      if (narrowing.Summit.empty()) return {};
      break;
    case NarrowBy::Band:
      if (narrowing.BandInMhz <= 0) return {};
      break;
  }
  return narrowing;
}

bool IsWithin(const Narrowing& narrowing, const Spot& spot) {
  switch (narrowing.By) {
    case NarrowBy::Station:
      return EqualsIgnoringCase(narrowing.Station, Trim(spot.Station)) ||
             MayBeSameStation(narrowing.Station, spot.Station);
    case NarrowBy::Summit: return EqualsIgnoringCase(narrowing.Summit, Trim(spot.SummitDesignator));
    case NarrowBy::Band: return narrowing.BandInMhz == spot.BandInMhz;
  }
  return true;
}

std::string NarrowingWords(const Narrowing& narrowing) {
  switch (narrowing.By) {
    case NarrowBy::Station: return "station " + narrowing.Station;
    case NarrowBy::Summit: return "summit " + narrowing.Summit;
    case NarrowBy::Band: return "band " + SingleText(narrowing.BandInMhz) + " MHz";
  }
  return {};
}

}  // namespace brelwin
