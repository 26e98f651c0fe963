// The Reverse Beacon Network tab: the connection, which skimmer spots are of interest, and the alerts.
#pragma once

#include "controls/control.h"

namespace brelwin {

struct RBNTab {
  ControlList Controls;

  Frame fraReverseBeaconNetwork{Controls, "fraReverseBeaconNetwork"};
  CheckBox chkReverseBeaconSpotsEnabled{Controls, "chkReverseBeaconSpotsEnabled"};
  TextBox txtRBNCallsign{Controls, "txtRBNCallsign"};
  Label lblRBNStatus{Controls, "lblRBNStatus"};    // what the stream has begun to do
  Label lblRBNStatus2{Controls, "lblRBNStatus2"};  // of the second stream; nothing without one
  Label lblUnmatchedSpot{Controls,
                         "lblUnmatchedSpot"};  // why the last spot of an announced station did not match
  TextBox txtRBNMaxMinutesSinceLastRawSpotReceived{Controls, "txtRBNMaxMinutesSinceLastRawSpotReceived"};

  CheckBox chkRBNFilterKnownActivators{Controls, "chkRBNFilterKnownActivators"};
  CheckBox chkRBNFilterSotawatchMatchingAlert{Controls, "chkRBNFilterSotawatchMatchingAlert"};
  TextBox txtRBNMaxMinutesBeforeAlertTime{Controls, "txtRBNMaxMinutesBeforeAlertTime"};
  TextBox txtRBNMaxMinutesAfterAlertTime{Controls, "txtRBNMaxMinutesAfterAlertTime"};
  CheckBox chkRBNFilterDuplicateSpots{Controls, "chkRBNFilterDuplicateSpots"};
  TextBox txtDuplicateSpotFilteringPeriod{Controls, "txtDuplicateSpotFilteringPeriod"};
  TextBox txtRBNFilterStation{Controls, "txtRBNFilterStation"};
  TextBox txtRBNFilterBand{Controls, "txtRBNFilterBand"};
  TextBox txtRBNFilterMode{Controls, "txtRBNFilterMode"};
  TextBox txtRBNFilterSpotter{Controls, "txtRBNFilterSpotter"};
  TextBox txtRBNFilterSpotterExclude{Controls, "txtRBNFilterSpotterExclude"};

  TextBox txtSOTAAlertsRefreshInterval{Controls, "txtSOTAAlertsRefreshInterval"};
  TextBox txtSOTAWatchAlertArchivingIntervalInHours{Controls, "txtSOTAWatchAlertArchivingIntervalInHours"};
  Label lblAnnouncements{Controls, "lblAnnouncements"};  // whose the alerts are, and how old
  Button cmdViewKnownActivators{Controls, "cmdViewKnownActivators"};
  Button cmdViewAlerts{Controls, "cmdViewAlerts"};
};

}  // namespace brelwin
