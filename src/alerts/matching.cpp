#include "alerts/matching.h"

#include <algorithm>

#include "base/text.h"
#include "core/trap.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::int64_t Farthest = 1000000000;  // minutes; no alert is nearest from so far away

void TakeMatch(AlertMatches& matches, std::int64_t& nearest, const AlertPointer& alert,
               std::int64_t distance) {
  matches.Alerts.push_back(alert);
  if (distance >= nearest) return;
  nearest = distance;
  matches.NearestID = alert->ID;
  matches.MinutesToNearest = static_cast<std::int32_t>(distance);
}

AlertPointer AlertWithID(const AlertMatches& matches) {
  const auto found = std::find_if(matches.Alerts.begin(), matches.Alerts.end(),
                                  [&](const auto& alert) { return alert->ID == matches.NearestID; });
  return found == matches.Alerts.end() ? nullptr : *found;
}

}  // namespace

AlertWindow EffectiveWindow(const SOTAAlert& alert, const SpotFilter& filter) {
  const auto own = [](std::int32_t minutes, std::int32_t otherwise) {
    return minutes < 1 ? otherwise : minutes;
  };
  return {own(alert.MaxMinutesBeforeAlertTime, filter.MaxMinutesBeforeAlertTime),
          own(alert.MaxMinutesAfterAlertTime, filter.MaxMinutesAfterAlertTime)};
}

std::optional<std::int64_t> MinutesAfterAlert(const SOTAAlert& alert, DateTime utc) {
  if (!alert.UTCAlertDateAndTime) return {};
  return MinutesBetween(*alert.UTCAlertDateAndTime, utc);
}

std::int64_t MinutesOutside(const AlertWindow& window, std::int64_t minutesAfterAlert) {
  const auto limit = minutesAfterAlert >= 0 ? window.MinutesAfter : window.MinutesBefore;
  return std::max<std::int64_t>(0, std::abs(minutesAfterAlert) - limit);
}

AlertMatches MatchAlerts(std::string_view baseCallsign, DateTime utc, bool defaultWindowOnly,
                         const AlertCollection& alerts, const SpotFilter& filter) {
  const AlertWindow usersWindow{filter.MaxMinutesBeforeAlertTime, filter.MaxMinutesAfterAlertTime};
  AlertMatches matches;
  std::int64_t nearest = Farthest;
  for (const auto& [place, alert] : alerts.OfStation(UpperCase(baseCallsign))) {
    const auto window = EffectiveWindow(*alert, filter);
    if (defaultWindowOnly && window != usersWindow) continue;
    const auto minutes = MinutesAfterAlert(*alert, utc);
    if (!minutes || MinutesOutside(window, *minutes) > 0) {
      ++matches.NumberOfAlertsOutsideWindow;
    } else {
      TakeMatch(matches, nearest, alert, std::abs(*minutes));
    }
  }
  if (matches.NearestID.empty()) matches.Alerts.clear();
  return matches;
}

std::string ReferenceThatMatches(const SOTAAlert& alert, DateTime utc, std::int32_t otherwiseBefore,
                                 const SpotFilter& filter) {
  if (alert.IsSelfSpotAlert) return {};  // its window is not read from its comment
  const auto minutes = MinutesAfterAlert(alert, utc);
  if (!minutes || MinutesOutside(EffectiveWindow(alert, filter), *minutes) > 0) return {};
  auto otherwise = alert;
  otherwise.MaxMinutesBeforeAlertTime = otherwiseBefore;
  const bool matchesAnyway = MinutesOutside(EffectiveWindow(otherwise, filter), *minutes) == 0;
  return matchesAnyway ? std::string() : ReferenceReadAsMarker(alert.Comment);
}

AlertMatches GetMatchedAlerts(Host& host, std::string_view baseCallsign, std::optional<DateTime> spotTime,
                              bool defaultWindowOnly, const AlertCollection& alerts,
                              const SpotFilter& filter) {
  return LogErrors(host, "GetMatchedAlerts", AlertMatches(), [&] {
    const auto utc = spotTime ? *spotTime : UTCNow(host.Time);
    return MatchAlerts(baseCallsign, utc, defaultWindowOnly, alerts, filter);
  });
}

AlertPointer GetBestMatchedAlert(Host& host, std::string_view baseCallsign, std::optional<DateTime> spotTime,
                                 const AlertCollection& alerts, const SpotFilter& filter,
                                 std::int32_t& numberOfAlertsOutsideWindow) {
  numberOfAlertsOutsideWindow = 0;
  return LogErrors(host, "GetBestMatchedAlert", AlertPointer(), [&] {
    const auto matches = GetMatchedAlerts(host, baseCallsign, spotTime, false, alerts, filter);
    numberOfAlertsOutsideWindow = matches.NumberOfAlertsOutsideWindow;
    return AlertWithID(matches);
  });
}

}  // namespace brelwin
