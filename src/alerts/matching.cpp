#include "alerts/matching.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

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

namespace {

// An alert and how far a spot is from it.
struct Nearness {
  AlertPointer Alert;
  AlertWindow Window;
  std::int64_t Outside = std::numeric_limits<std::int64_t>::max();  // stays so for an alert without a time
  Withdrawal Reason = Withdrawal::None;
};

class NearestAlert {
 public:
  NearestAlert(DateTime utc, const SpotFilter& filter) : utc_(utc), filter_(filter) {}

  void Look(const AlertPointer& alert, Withdrawal reason = Withdrawal::None) {
    Nearness nearness{alert, EffectiveWindow(*alert, filter_), Nearness().Outside, reason};
    if (const auto minutes = MinutesAfterAlert(*alert, utc_))
      nearness.Outside = MinutesOutside(nearness.Window, *minutes);
    if (!nearest_.Alert || nearness.Outside < nearest_.Outside) nearest_ = nearness;
  }

  const Nearness& Get() const { return nearest_; }

 private:
  DateTime utc_;
  const SpotFilter& filter_;
  Nearness nearest_;
};

std::string Minutes(std::int64_t minutes) {
  return std::to_string(minutes) + (minutes == 1 ? " minute" : " minutes");
}

std::string NameOf(const SOTAAlert& alert) {
  const auto& time = alert.UTCAlertDateAndTime;
  const auto when = time ? DateTimeText(*time).substr(0, 16) + " UTC" : "an unreadable time";
  return alert.Station + " for " + when + " on " + alert.SummitDesignator;
}

std::string WindowText(const Nearness& nearness) {
  const auto& alert = *nearness.Alert;
  const bool isOwn = alert.MaxMinutesBeforeAlertTime > 0 || alert.MaxMinutesAfterAlertTime > 0;
  const auto markers = isOwn && !alert.IsSelfSpotAlert ? MarkersInWords(alert.Comment) : std::string();
  return "window " + Minutes(nearness.Window.MinutesBefore) + " before to " +
         Minutes(nearness.Window.MinutesAfter) + " after" + (isOwn ? ", its own" : "") +
         (markers.empty() ? "" : " by " + markers);
}

std::string MatchedText(const Nearness& nearness, DateTime utc) {
  const auto minutes = MinutesAfterAlert(*nearness.Alert, utc).value_or(0);
  const auto distance = Minutes(std::abs(minutes)) + (minutes < 0 ? " before" : " after");
  return "Matches the alert of " + NameOf(*nearness.Alert) + ": " + distance + " the alert time (" +
         WindowText(nearness) + ").";
}

std::string OutsideText(const Nearness& nearness, std::size_t alertCount) {
  if (!nearness.Alert->UTCAlertDateAndTime)
    return "No match: the alert of " + NameOf(*nearness.Alert) + " cannot be placed in time.";
  const auto others =
      alertCount == 1 ? "the only alert, " : "the nearest of " + std::to_string(alertCount) + " alerts, ";
  return "No match: " + Minutes(nearness.Outside) + " outside " + others + NameOf(*nearness.Alert) + " (" +
         WindowText(nearness) + ").";
}

std::string_view ReasonText(Withdrawal reason) {
  switch (reason) {
    case Withdrawal::Cancelled: return "was cancelled by its activator.";
    case Withdrawal::OptedOut: return "opted out with NOTARNLINK/RBNN.";
    case Withdrawal::RemovedByEntry: return "was removed by a spot's command or a modification.";
    case Withdrawal::None: break;
  }
  return "does not count.";
}

MatchExplanation Explanation(MatchVerdict verdict, const Nearness& nearness, std::string text) {
  const bool hasTime = nearness.Alert->UTCAlertDateAndTime.has_value();
  return {verdict, nearness.Alert, nearness.Window, hasTime ? nearness.Outside : 0, std::move(text)};
}

std::string WithdrawnText(const Nearness& nearness) {
  return "No match: the alert of " + NameOf(*nearness.Alert) + " " + std::string(ReasonText(nearness.Reason));
}

Nearness NearestWithdrawn(const std::string& station, NearestAlert nearest, const AlertCollection& alerts) {
  for (const auto& [alert, reason] : alerts.WithdrawnOf(station)) nearest.Look(alert, reason);
  return nearest.Get();
}

Nearness NearestOfStation(const std::string& station, NearestAlert nearest, const AlertCollection& alerts) {
  for (const auto& [place, alert] : alerts.OfStation(station)) nearest.Look(alert);
  return nearest.Get();
}

}  // namespace

MatchExplanation ExplainMatch(std::string_view baseCallsign, DateTime utc, const AlertCollection& alerts,
                              const SpotFilter& filter) {
  const auto station = UpperCase(baseCallsign);
  NearestAlert nearest(utc, filter);
  const auto matches = MatchAlerts(station, utc, false, alerts, filter);
  if (!matches.NearestID.empty()) {
    nearest.Look(alerts.Find(matches.NearestID));
    return Explanation(MatchVerdict::Matched, nearest.Get(), MatchedText(nearest.Get(), utc));
  }
  const auto withdrawn = NearestWithdrawn(station, nearest, alerts);
  const auto outside = NearestOfStation(station, nearest, alerts);
  if (withdrawn.Alert && (withdrawn.Outside == 0 || !outside.Alert))
    return Explanation(MatchVerdict::Withdrawn, withdrawn, WithdrawnText(withdrawn));
  if (!outside.Alert)
    return {MatchVerdict::OtherStation, {}, {}, 0, "No match: no alert is for " + station + "."};
  return Explanation(MatchVerdict::OutsideWindow, outside,
                     OutsideText(outside, alerts.OfStation(station).size()));
}

}  // namespace brelwin
