#include "radio/callsign.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"
#include "base/text.h"

namespace brelwin {
namespace {

// A whole callsign has 4 characters or more; shorter pieces beside a "/" are prefixes or suffixes.
constexpr std::size_t ShortestCallsign = 4;

constexpr std::string_view Portable = "/P";

struct Stations {
  std::string_view First;
  std::string_view Second = {};  // empty when one station is named
  char Divider = ' ';            // what stood between them
};

std::string WithoutJoiningWords(std::string_view text) {
  auto words = UpperCase(text);
  std::replace(words.begin(), words.end(), '&', ' ');
  if (Contains(words, " AND ")) words = Replace(words, " AND ", " ");
  return std::string(Trim(words));
}

Stations SplitAt(std::string_view text, std::size_t at) {
  if (at == std::string_view::npos) return {text};
  const auto before = text.substr(0, at);
  const auto after = text.substr(at + 1);
  if (CharacterCount(before) < ShortestCallsign || CharacterCount(after) < ShortestCallsign) return {text};
  return {Trim(before), after, text[at]};
}

Stations SplitStations(std::string_view text) {
  const auto slash = text.find('/');
  const bool slashMayDivide =
      slash != std::string_view::npos && CharacterCount(text.substr(0, slash)) >= ShortestCallsign;
  return SplitAt(text, slashMayDivide ? slash : text.find(' '));
}

// Keeps the longer side of the first "/": what stands before it when it is in the second half of the text.
void RemovePrefixOrSuffix(std::string& callsign) {
  const auto slash = callsign.find('/');
  if (slash == std::string::npos || slash == 0) return;
  const auto position = CharacterCount(std::string_view(callsign).substr(0, slash)) + 1;
  if (position * 2 <= CharacterCount(callsign)) {
    callsign.erase(0, slash + 1);
  } else {
    callsign.erase(slash);
  }
}

std::string BaseOfOneStation(std::string_view station) {
  auto callsign = Without(Without(Without(std::string(station), Portable), "["), "]");
  callsign = Trim(callsign);
  RemovePrefixOrSuffix(callsign);
  RemovePrefixOrSuffix(callsign);
  return callsign;
}

std::string BaseOfSecondStation(const Stations& stations) {
  auto callsign = GetBaseCallsign(stations.Second);
  const auto blank = callsign.find(' ');
  if (stations.Divider == '/' && blank != std::string::npos)
    callsign = GetBaseCallsign(std::string_view(callsign).substr(blank + 1));
  return CountDigits(callsign) == 0 ? std::string() : callsign;
}

bool IsLetter(char c) {
  return c >= 'A' && c <= 'Z';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetterOrDigit(char c) {
  return IsLetter(c) || IsDigit(c);
}

bool LooksLikeCallsign(std::string_view piece) {
  if (piece.empty() || !IsLetter(piece.back())) return false;
  const auto lastDigit = piece.find_last_of("0123456789");
  return lastDigit != std::string_view::npos &&
         std::any_of(piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(lastDigit), IsLetter);
}

void AddOnce(std::vector<std::string>& forms, std::string_view form) {
  if (std::ranges::find(forms, form) == forms.end()) forms.emplace_back(form);
}

}  // namespace

std::int32_t CountDigits(std::string_view text) {
  return static_cast<std::int32_t>(std::count_if(text.begin(), text.end(), IsDigit));
}

std::optional<std::string_view> PlainBaseCallsign(std::string_view text) {
  if (text.ends_with(Portable)) text.remove_suffix(Portable.size());
  if (!std::all_of(text.begin(), text.end(), IsLetterOrDigit)) return {};
  return text;
}

std::string GetBaseCallsign(std::string_view text, std::string& secondCallsign) {
  secondCallsign.clear();
  if (const auto plain = PlainBaseCallsign(text)) return std::string(*plain);
  const auto names = WithoutJoiningWords(text);
  const auto stations = SplitStations(names);
  if (!stations.Second.empty()) secondCallsign = BaseOfSecondStation(stations);
  return BaseOfOneStation(stations.First);
}

std::string GetBaseCallsign(std::string_view text) {
  if (const auto plain = PlainBaseCallsign(text)) return std::string(*plain);
  const auto names = WithoutJoiningWords(text);
  return BaseOfOneStation(SplitStations(names).First);
}

std::vector<std::string> CallsignForms(std::string_view text) {
  std::vector<std::string> forms{UpperCase(GetBaseCallsign(text))};
  auto pieces = UpperCase(text);
  std::ranges::replace_if(
      pieces, [](char c) { return !IsLetterOrDigit(c); }, ' ');
  for (const auto piece : Split(pieces, " ")) {
    if (LooksLikeCallsign(piece)) AddOnce(forms, piece);
  }
  return forms;
}

bool MayBeSameStation(std::string_view one, std::string_view other) {
  const auto forms = CallsignForms(other);
  return std::ranges::any_of(CallsignForms(one), [&](const auto& form) {
    return !form.empty() && std::ranges::find(forms, form) != forms.end();
  });
}

}  // namespace brelwin
