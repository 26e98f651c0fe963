// The Spots tab: the list, what the program is doing, and how often it looks.
#pragma once

#include "controls/control.h"
#include "controls/spot_list_box.h"

namespace brelwin {

struct SpotsTab {
  ControlList Controls;

  Label lblSpotListHeader{Controls, "lblSpotListHeader"};
  SpotListBox txtSPOTList{Controls, "txtSPOTList"};
  Button cmdGetSPOTS{Controls, "cmdGetSPOTS"};
  Button cmdReloadSpotList{Controls, "cmdReloadSpotList"};
  CheckBox chkSOTAWatchSpotsViaRSS{Controls, "chkSOTAWatchSpotsViaRSS"};
  CheckBox chkSotawatchJSONService{Controls, "chkSotawatchJSONService"};
  TextBox txtSecondsBetweenChecks{Controls, "txtSecondsBetweenChecks"};
  TextBox txtMaximumSpotsInList{Controls, "txtMaximumSpotsInList"};
  Button cmdTest{Controls, "cmdTest"};
  Label picDownload{Controls, "picDownload"};
  Label lblCheckingForSpots{Controls, "lblCheckingForSpots", "Checking for spots..."};
  Label lblNoConnectionToTwitter{Controls, "lblNoConnectionToTwitter", "No connection to Twitter"};
  Label lblNoSotawatchConnection{Controls, "lblNoSotawatchConnection", "No connection to Sotawatch"};
  Label lblNoConnectionToRBN{Controls, "lblNoConnectionToRBN", "No connection to Reverse Beacon Network"};
  Label lblNoConnectionToRBN2{Controls, "lblNoConnectionToRBN2",
                              "No connection to the second stream of Reverse Beacon Network"};
  Label lblUTCTime{Controls, "lblUTCTime"};
  Label lblSpotsHidden{Controls, "lblSpotsHidden"};        // how many the filter hides for want of points
  Label lblSettingsNotice{Controls, "lblSettingsNotice"};  // what the settings file leaves open or loses
  Label lblStatus{Controls, "lblStatus"};                  // what the feed in use last answered, in words
  Label lblSources{Controls, "lblSources"};                // what each source is doing and has brought
  Label lblSpotDetails{Controls, "lblSpotDetails"};        // more about the selected spot
};

}  // namespace brelwin
