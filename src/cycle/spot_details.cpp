#include "cycle/spot_details.h"

#include "alerts/match_explanation.h"
#include "radio/dates.h"
#include "ui/filter_from_screen.h"

namespace brelwin {
namespace {

DateTime TimeHeard(const MainWindow& window, const Spot& spot) {
  const auto local = spot.LocalDateAndTime.value_or(window.World.Time.LocalNow());
  return AddMinutes(local, TimeZoneOffsetInMinutes(window.World.Time));
}

std::string Explain(const MainWindow& window, const Spot& spot, const SpotFilter& filter) {
  return ExplainMatch(spot, TimeHeard(window, spot), window.Alerts, filter).Text;
}

}  // namespace

std::string SpotDetails(const MainWindow& window, const Spot& spot) {
  if (!spot.IsRBNSpot) {
    return spot.Station + " on " + spot.SummitDesignator + ", " + spot.FormattedFrequencyString + " MHz " +
           spot.ModeString + ": " + spot.Comment + " [" + spot.Spotter + "]";
  }
  SpotFilter filter;
  FillFilterFromScreen(window.Controls, window.Config, window.World.Numbers, filter);
  return Explain(window, spot, filter);
}

void ShowUnmatchedSpots(MainWindow& window, const SpotCollection& heard, const SpotFilter& filter) {
  for (const auto& [key, spot] : heard) {
    if (spot->IsMatchedToAlert || window.Alerts.OfStation(spot->stationBaseCallsign).empty()) continue;
    window.Controls.RBN.lblUnmatchedSpot.Caption = Explain(window, *spot, filter);
  }
}

}  // namespace brelwin
