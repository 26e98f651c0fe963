#include "cycle/spot_details.h"

#include "alerts/matching.h"
#include "radio/dates.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

DateTime TimeHeard(const MainWindow& window, const Spot& spot) {
  const auto local = spot.LocalDateAndTime.value_or(window.World.Time.LocalNow());
  return AddMinutes(local, TimeZoneOffsetInMinutes(window.World.Time));
}

}  // namespace

std::string SpotDetails(const MainWindow& window, const Spot& spot) {
  if (!spot.IsRBNSpot) {
    return spot.Station + " on " + spot.SummitDesignator + ", " + spot.FormattedFrequencyString + " MHz " +
           spot.ModeString + ": " + spot.Comment + " [" + spot.Spotter + "]";
  }
  SpotFilter filter;
  FillFilterFromScreen(window.Controls, window.Config, filter);
  return ExplainMatch(spot.stationBaseCallsign, TimeHeard(window, spot), window.Alerts, filter).Text;
}

void ShowUnmatchedStations(MainWindow& window, const std::vector<std::string>& stations,
                           const SpotFilter& filter) {
  const auto now = UTCNow(window.World.Time);
  for (const auto& station : stations)
    window.Controls.RBN.lblUnmatchedSpot.Caption = ExplainMatch(station, now, window.Alerts, filter).Text;
}

}  // namespace brelwin
