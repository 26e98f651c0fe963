#include "alerts/alert_window.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "platform/profile.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::string_view Before = "S-";
constexpr std::string_view After = "S+";
constexpr std::size_t LengthOfRegion = 2;  // "SS-064": two letters or digits, then three digits
constexpr std::size_t LengthOfNumber = 3;
constexpr std::size_t LongestProfileValue = 127;
constexpr std::size_t MostDigits = 38;  // of a whole number that still fits a single

std::int32_t ReadMinutes(const ProfileSection& section, std::string_view key) {
  const auto value = ReadProfileValue(section.Text, section.Name, key).value_or("");
  return WholeNumber(FirstCharacters(value, LongestProfileValue));
}

std::string DigitsAndPoints(std::string_view text) {
  std::string digits;
  for (const char c : text) {
    if ((c >= '0' && c <= '9') || c == '.') {
      digits.push_back(c);
    } else if (c != ' ') {
      break;
    }
  }
  return digits;
}

bool IsTooLarge(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return std::min(digits.find('.'), digits.size()) > MostDigits;
}

// What follows the marker; empty without it. The comment is in upper case.
std::string DigitsAfter(std::string_view comment, std::string_view marker) {
  const auto at = comment.find(marker);
  return at == std::string_view::npos ? std::string() : DigitsAndPoints(comment.substr(at + marker.size()));
}

float NumberAfter(std::string_view comment, std::string_view marker) {
  const auto digits = DigitsAfter(comment, marker);
  return IsTooLarge(digits) ? std::numeric_limits<float>::max() : ToSingle(ToDouble(digits));
}

bool IsLetterOrDigit(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// How many letters and digits end the text, or begin it.
std::size_t CountAtEnd(std::string_view text) {
  const auto other = std::find_if_not(text.rbegin(), text.rend(), IsLetterOrDigit);
  return static_cast<std::size_t>(other - text.rbegin());
}

std::size_t CountAtBegin(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsLetterOrDigit) - text.begin());
}

std::int32_t MinutesOfHours(float hours) {
  constexpr auto Most = std::numeric_limits<std::int32_t>::max();
  const double minutes = std::nearbyint(hours * 60.0F);
  return minutes >= Most ? Most : static_cast<std::int32_t>(minutes);
}

}  // namespace

DurationOverrides DurationOverrides::Load(const Host& host) {
  DurationOverrides overrides;
  const auto text = host.Disk.Read(InProgramFolder(host, AlertDurationOverridesFile)).value_or("");
  for (const auto& section : SplitProfile(text)) {
    const AlertWindow window{ReadMinutes(section, "MaxMinutesBeforeAlertTime"),
                             ReadMinutes(section, "MaxMinutesAfterAlertTime")};
    overrides.windows_.try_emplace(UpperCase(section.Name), window);
  }
  return overrides;
}

AlertWindow DurationOverrides::Of(std::string_view baseCallsign) const {
  if (windows_.empty()) return {};
  const auto found = windows_.find(UpperCase(baseCallsign));
  return found == windows_.end() ? AlertWindow() : found->second;
}

AnnouncedWindow WindowOfAlert(const AlertWindow& override, std::string_view comment) {
  AnnouncedWindow window{override, override != AlertWindow()};
  const auto upper = UpperCase(comment);
  if (const auto hours = NumberAfter(upper, Before); hours > 0) {
    window.Window.MinutesBefore = MinutesOfHours(hours);
    window.IsCustom = true;
  }
  if (const auto hours = NumberAfter(upper, After); hours > 0) {
    window.Window.MinutesAfter = MinutesOfHours(hours);
    window.IsCustom = true;
  }
  return window;
}

std::string MarkersInWords(std::string_view comment) {
  const auto upper = UpperCase(comment);
  std::string words;
  for (const std::string_view marker : {Before, After}) {
    if (!(NumberAfter(upper, marker) > 0)) continue;
    words.append(words.empty() ? "\"" : " and \"")
        .append(marker)
        .append(DigitsAfter(upper, marker))
        .append("\"");
    const auto reference = marker == Before ? ReferenceReadAsMarker(comment) : std::string();
    if (!reference.empty()) words.append(" in \"").append(reference).append("\"");
  }
  return words;
}

std::string ReferenceReadAsMarker(std::string_view comment) {
  const auto upper = UpperCase(comment);
  const auto at = upper.find(Before);
  if (at == std::string::npos) return {};
  const auto hyphen = at + 1;
  const auto number = CountAtBegin(std::string_view(upper).substr(hyphen + 1));
  const auto region = CountAtEnd(std::string_view(upper).substr(0, hyphen));
  if (region != LengthOfRegion || number != LengthOfNumber) return {};
  auto begin = hyphen - region;
  if (begin > 0 && upper[begin - 1] == '/')
    begin -= 1 + CountAtEnd(std::string_view(upper).substr(0, begin - 1));
  return upper.substr(begin, hyphen + 1 + number - begin);
}

}  // namespace brelwin
