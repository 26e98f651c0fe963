#include "spots/spot_title.h"

#include <algorithm>

#include "base/text.h"

namespace brelwin {
namespace {

// Where the first token "on" begins, the last token left aside.
std::size_t FindOn(std::string_view title) {
  std::size_t begin = 0;
  for (auto blank = title.find(' '); blank != std::string_view::npos; blank = title.find(' ', begin)) {
    if (EqualsIgnoringCase(title.substr(begin, blank - begin), "ON")) return begin;
    begin = blank + 1;
  }
  return std::string_view::npos;
}

std::string_view TakeToken(std::string_view& rest) {
  const auto blank = std::min(rest.find(' '), rest.size());
  const auto token = rest.substr(0, blank);
  rest.remove_prefix(std::min(blank + 1, rest.size()));
  return token;
}

bool HasTwoTokens(std::string_view text) {
  return std::count(text.begin(), text.end(), ' ') == 1;
}

}  // namespace

SpotTitle SpotTitleOf(std::string_view callsigns, std::string_view summit, std::string_view frequency,
                      std::string_view mode) {
  const auto station = HasTwoTokens(callsigns) ? callsigns : callsigns.substr(0, callsigns.find(' '));
  return {station, callsigns, summit, frequency, mode, {}};
}

SpotTitle ReadSpotTitle(std::string_view text) {
  const auto title = Trim(text);
  const auto firstBlank = title.find(' ');
  if (firstBlank == std::string_view::npos) return {};
  const auto found = FindOn(title);
  const auto on = found == std::string_view::npos ? firstBlank + 1 : found;

  SpotTitle result;
  result.Callsigns = title.substr(0, on == 0 ? 0 : on - 1);
  result.Station = HasTwoTokens(result.Callsigns) ? result.Callsigns : title.substr(0, firstBlank);
  result.Rest = title.substr(on);
  TakeToken(result.Rest);
  result.Summit = TakeToken(result.Rest);
  TakeToken(result.Rest);
  result.Frequency = TakeToken(result.Rest);
  result.Mode = TakeToken(result.Rest);
  return result;
}

SpotDescription ReadSpotDescription(std::string_view description) {
  constexpr std::string_view PostedBy = "Posted by";
  const auto at = description.rfind(PostedBy);
  if (at == std::string_view::npos) return {Trim(description), {}};
  auto comment = description.substr(0, at);
  auto spotter = Trim(description.substr(at + PostedBy.size()));
  if (comment.ends_with('(') && spotter.ends_with(')')) {
    comment.remove_suffix(1);
    spotter.remove_suffix(1);
  }
  return {Trim(comment), Trim(spotter)};
}

}  // namespace brelwin
