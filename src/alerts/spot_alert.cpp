#include "alerts/spot_alert.h"

#include <string>

#include "alerts/alert_key.h"
#include "alerts/page_markup.h"
#include "base/text.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

std::string OneLine(const std::string& text) {
  const auto line = WithBlanks(text);
  return std::string(Trim(line));
}

}  // namespace

SOTAAlert AlertOfSpot(const Spot& spot, const Clock& clock) {
  SOTAAlert alert;
  SetAlertDateAndTime(alert, spot.UTCDateTime.value_or(UTCNow(clock)));
  alert.UTCAlertTimeStr = ClockText(*alert.UTCAlertDateAndTime);
  alert.IsSelfSpotAlert = true;
  alert.Comment = OneLine(spot.Comment);
  alert.FrequencyModes = OneLine(spot.FrequencyString + " " + spot.ModeString);
  alert.OperatorName = OneLine(spot.OperatorName);
  alert.Spotter = OneLine(spot.Spotter);
  alert.Station = OneLine(spot.Station);
  alert.stationBaseCallsign = OneLine(spot.stationBaseCallsign);
  alert.SummitDesignator = OneLine(spot.SummitDesignator);
  alert.SummitName = OneLine(spot.SummitName);
  alert.SummitElevationInMeters = spot.SummitElevationInMeters;
  alert.SummitElevationInFeet = spot.SummitElevationInFeet;
  alert.SummitPoints = spot.SummitPoints;
  alert.SummitDescription = OneLine(spot.SummitDescription);
  alert.AlertKey = alert.ID = SpotAlertKey(alert);
  return alert;
}

}  // namespace brelwin
