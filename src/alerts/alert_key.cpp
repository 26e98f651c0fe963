#include "alerts/alert_key.h"

#include <string>

#include "base/encoding.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::size_t CommentLength = 10;

std::string PageKey(const SOTAAlert& alert, std::string_view lastPart) {
  const auto& time = alert.UTCAlertDateAndTime;
  std::string key = time ? DateTimeText(*time) : std::string();
  key.append("_").append(alert.stationBaseCallsign).append("_").append(alert.SummitDesignator);
  key.append("_").append(lastPart);
  return DelimitedField(key);
}

}  // namespace

std::string CustomWindowKey(const SOTAAlert& alert) {
  return PageKey(alert, "!CUSTOM_WINDOW!");
}

std::string CommentKey(const SOTAAlert& alert) {
  auto letters = alert.Comment;
  std::erase(letters, ' ');
  return PageKey(alert, FirstCharacters(letters, CommentLength));
}

std::string SpotAlertKey(const SOTAAlert& alert) {
  const auto& time = alert.UTCAlertDateAndTime;
  std::string key = "!SPOT_ALERT!_";
  key.append(time ? CompactMinutesText(*time) : std::string());
  key.append("_").append(alert.stationBaseCallsign).append("_").append(alert.SummitDesignator);
  return DelimitedField(key);
}

}  // namespace brelwin
