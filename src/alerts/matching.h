// Whether a spot belongs to an announced activation: the base callsigns are equal and the spot's time lies
// in the alert's window. In words for the user, why or why not.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/alert_collection.h"
#include "alerts/alert_window.h"
#include "platform/host.h"
#include "spots/spot_filter.h"

namespace brelwin {

struct AlertMatches {
  std::vector<AlertPointer> Alerts;              // the matching alerts in collection order
  std::string NearestID;                         // of the one nearest in time; the earlier of two as near
  std::int32_t MinutesToNearest = 0;             // never negative
  std::int32_t NumberOfAlertsOutsideWindow = 0;  // of the station's alerts
};

// The alert's own window; where it has none, the user's.
AlertWindow EffectiveWindow(const SOTAAlert& alert, const SpotFilter& filter);

// Elapsed whole minutes from the alert time to `utc`, truncated toward zero; negative before it. Empty for an
// alert without a time.
std::optional<std::int64_t> MinutesAfterAlert(const SOTAAlert& alert, DateTime utc);

// By how many minutes this distance lies outside the window; 0 inside.
std::int64_t MinutesOutside(const AlertWindow& window, std::int64_t minutesAfterAlert);

// The station's alerts whose window holds the spot time; without one the present UTC time counts. With
// `defaultWindowOnly` an alert whose window is not the user's is left out. Alerts without a time count as
// outside.
AlertMatches GetMatchedAlerts(Host& host, std::string_view baseCallsign, std::optional<DateTime> spotTime,
                              bool defaultWindowOnly, const AlertCollection& alerts,
                              const SpotFilter& filter);

// The matching alert that is nearest in time, or null. The number of the station's alerts outside their
// windows is handed back in any case.
AlertPointer GetBestMatchedAlert(Host& host, std::string_view baseCallsign, std::optional<DateTime> spotTime,
                                 const AlertCollection& alerts, const SpotFilter& filter,
                                 std::int32_t& numberOfAlertsOutsideWindow);

// The same for a given time and without a world around it.
AlertMatches MatchAlerts(std::string_view baseCallsign, DateTime utc, bool defaultWindowOnly,
                         const AlertCollection& alerts, const SpotFilter& filter);

// The summit reference in the alert's comment whose "S-" alone makes a spot at `utc` match: without it the
// window would begin `otherwiseBefore` minutes before the alert time or, where that is below 1, as the user's
// does. Empty for a match that holds anyway, and for no match.
std::string ReferenceThatMatches(const SOTAAlert& alert, DateTime utc, std::int32_t otherwiseBefore,
                                 const SpotFilter& filter);

enum class MatchVerdict : std::uint8_t {
  Matched,        // the spot lies in the alert's window
  OutsideWindow,  // the station has alerts, all at another time
  Withdrawn,      // the alert it would match was cancelled, opted out or removed
  OtherStation    // no alert is the station's
};

struct MatchExplanation {
  MatchVerdict Verdict = MatchVerdict::OtherStation;
  AlertPointer Alert;               // the alert that decided; null for OtherStation
  AlertWindow Window;               // its window, in minutes
  std::int64_t MinutesOutside = 0;  // of that window; 0 for a match and for an alert without a time
  std::string Text;                 // one sentence
};

// Explains a spot of the station that was heard at `utc`. It decides exactly as the matching does.
MatchExplanation ExplainMatch(std::string_view baseCallsign, DateTime utc, const AlertCollection& alerts,
                              const SpotFilter& filter);

}  // namespace brelwin
