// Why a spot belongs to an announced activation, or why not, in words for the user.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "alerts/alert_collection.h"
#include "alerts/alert_window.h"
#include "spots/spot_filter.h"

namespace brelwin {

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
