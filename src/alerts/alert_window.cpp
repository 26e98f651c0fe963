#include "alerts/alert_window.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "platform/profile_text.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

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

// The comment is in upper case. 0 without the marker.
float NumberAfter(std::string_view comment, std::string_view marker) {
  const auto at = comment.find(marker);
  if (at == std::string_view::npos) return 0;
  const auto digits = DigitsAndPoints(comment.substr(at + marker.size()));
  return IsTooLarge(digits) ? std::numeric_limits<float>::max() : ToSingle(ToDouble(digits));
}

std::int32_t MinutesOfHours(float hours) {
  constexpr auto Most = std::numeric_limits<std::int32_t>::max();
  const double minutes = std::nearbyint(hours * 60.0F);
  return minutes >= Most ? Most : static_cast<std::int32_t>(minutes);
}

}  // namespace

DurationOverrides DurationOverrides::Load(const Host& host) {
  DurationOverrides overrides;
  const auto text = host.Disk.Read(InProgramFolder(host, "SOTAAlertDurationOverrides.ini")).value_or("");
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
  if (const auto hours = NumberAfter(upper, "S-"); hours > 0) {
    window.Window.MinutesBefore = MinutesOfHours(hours);
    window.IsCustom = true;
  }
  if (const auto hours = NumberAfter(upper, "S+"); hours > 0) {
    window.Window.MinutesAfter = MinutesOfHours(hours);
    window.IsCustom = true;
  }
  return window;
}

}  // namespace brelwin
