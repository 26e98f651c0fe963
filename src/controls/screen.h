// Everything that is on the screen, grouped as the tabs group it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "base/observable.h"
#include "controls/control.h"
#include "controls/spot_list_box.h"

namespace brelwin {

enum class WindowState : std::uint8_t { Normal = 0, Minimised = 1, Maximised = 2 };

struct Form {
  Observable<std::string> Caption;
  Observable<WindowState> State{WindowState::Normal};
  Observable<int> CurrentTab{0};  // of SSTab1; 0 is the Spots tab, below 0 what a skin has before it
  Observable<bool> Hourglass{false};
  KeptText Place{"Place"};  // in the form of ui/window_place.h; empty: wherever the skin sees fit
  KeptText BoardColumns{"BoardColumns"};  // in the form of board/column_layout.h
  KeptText BoardHides{"BoardHides"};      // "others" and "worked": what the board does not show
  Signal Show;
  Signal SetFocus;
};

// The one timer that drives everything, tmrCheckSpots. It fires again and again, an Interval apart, while it
// is Enabled; setting either starts the interval anew.
struct CheckTimer {
  Observable<bool> Enabled{false};
  Observable<int> Interval{5000};  // milliseconds
};

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

struct FiltersTab {
  ControlList Controls;

  CheckBox chkFilterSpotDisplay{Controls, "chkFilterSpotDisplay"};
  CheckBox chkFilterAlertSounds{Controls, "chkFilterAlertSounds"};
  TextBox txtFilterStation{Controls, "txtFilterStation"};
  TextBox txtFilterSummitReference{Controls, "txtFilterSummitReference"};
  TextBox txtFilterPoints{Controls, "txtFilterPoints"};
  TextBox txtFilterBand{Controls, "txtFilterBand"};
  TextBox txtFilterMode{Controls, "txtFilterMode"};
  TextBox txtFilterSpotter{Controls, "txtFilterSpotter"};

  OptionGroup optPlaySoundWhen{Controls, "optPlaySoundWhen", 7};
  TextBox txtAlertSound{Controls, "txtAlertSound"};
  Button cmdPlayAlertSound{Controls, "cmdPlayAlertSound"};
  CheckBox chkAlertSoundsOnStartup{Controls, "chkAlertSoundsOnStartup"};
  CheckBox chkAlertSpotSourceSotawatch{Controls, "chkAlertSpotSourceSotawatch"};
  CheckBox chkAlertSpotSourceRBNMatched{Controls, "chkAlertSpotSourceRBNMatched"};
  CheckBox chkAlertSpotSourceRBNUnmatched{Controls, "chkAlertSpotSourceRBNUnmatched"};
  CheckBox chkShowWindowOnAlert{Controls, "chkShowWindowOnAlert"};
};

struct LogsTab {
  ControlList Controls;

  CheckBox chkEnableLogging1{Controls, "chkEnableLogging1"};
  TextBox txtLogFile1{Controls, "txtLogFile1"};
  Button cmdLogFile1{Controls, "cmdLogFile1"};  // the skin asks for a file name and sets the box
  OptionGroup optLogFormat1{Controls, "optLogFormat1", 4};
  CheckBox chkFilterLog1{Controls, "chkFilterLog1"};
  Button cmdViewLogFile1{Controls, "cmdViewLogFile1"};

  CheckBox chkEnableLogging2{Controls, "chkEnableLogging2"};
  TextBox txtLogFile2{Controls, "txtLogFile2"};
  Button cmdLogFile2{Controls, "cmdLogFile2"};
  OptionGroup optLogFormat2{Controls, "optLogFormat2", 4};
  CheckBox chkFilterLog2{Controls, "chkFilterLog2"};
  Button cmdViewLogFile2{Controls, "cmdViewLogFile2"};
};

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

struct GatewayTab {
  ControlList Controls;

  Frame fraSendSpotsToSotawatch{Controls, "fraSendSpotsToSotawatch"};
  TextBox txtSotawatchLogin{Controls, "txtSotawatchLogin"};
  TextBox txtSotawatchPassword{Controls, "txtSotawatchPassword"};
  Button cmdTestSotawatchLogin{Controls, "cmdTestSotawatchLogin"};
  CheckBox chkRBNSendAllSpotsToSotawatch{Controls, "chkRBNSendAllSpotsToSotawatch"};
  CheckBox chkRBNSendMySpotsToSotawatch{Controls, "chkRBNSendMySpotsToSotawatch"};
  CheckBox chkGatewayDryRun{Controls, "chkGatewayDryRun"};  // everything but the post
  TextBox txtSotawatchDupeSpotMaxAgeInMinutes{Controls, "txtSotawatchDupeSpotMaxAgeInMinutes"};
  TextBox txtGatewayDelayBeforeFinalDupeCheckAndSend{Controls, "txtGatewayDelayBeforeFinalDupeCheckAndSend"};
  TextBox txtGatewayMinimumSecondsBetweenSpotsOfSameStation{
      Controls, "txtGatewayMinimumSecondsBetweenSpotsOfSameStation"};
  TextBox txtSpotCommentTemplate{Controls, "txtSpotCommentTemplate"};
  TextBox txtGatewaySound{Controls, "txtGatewaySound"};
  Button cmdPlayGatewaySound{Controls, "cmdPlayGatewaySound"};
  CheckBox chkGatewayPlaySoundSpotSentSuccessfully{Controls, "chkGatewayPlaySoundSpotSentSuccessfully"};
  CheckBox chkGatewayPlaySoundSpotIsDupe{Controls, "chkGatewayPlaySoundSpotIsDupe"};

  Frame fraGatewayLogging{Controls, "fraGatewayLogging"};
  Button cmdViewGatewaySpotLog{Controls, "cmdViewGatewaySpotLog"};
  Button cmdViewGatewayServerResponseLog{Controls, "cmdViewGatewayServerResponseLog"};
  Button cmdViewExcludedActivators{Controls, "cmdViewExcludedActivators"};

  // Words to the user; an empty caption means that there is nothing to say.
  Label lblGatewayState{Controls, "lblGatewayState"};                // off, on and for whom, dry run
  Label lblGatewayLoginWarning{Controls, "lblGatewayLoginWarning"};  // what the form cannot carry
  Label lblGatewayAddressWarning{Controls, "lblGatewayAddressWarning"};
  Label lblGatewayTemplateWarning{Controls, "lblGatewayTemplateWarning"};
  Label lblGatewayLastFailure{Controls, "lblGatewayLastFailure"};  // the last status that was no success
  ListBox lstGatewayJournal{Controls, "lstGatewayJournal"};        // what was sent and refused, newest first
};

struct PlacesTab {
  ControlList Controls;

  TextBox txtMyPlace{Controls, "txtMyPlace"};
  Label lblMyPlace{Controls, "lblMyPlace"};               // how the box was read
  Button cmdImportSummits{Controls, "cmdImportSummits"};  // the skin asks for the file
  Label lblSummits{Controls, "lblSummits"};               // how many there are, or how an import goes
  TextBox txtCountryFile{Controls, "txtCountryFile"};
  Button cmdCountryFile{Controls, "cmdCountryFile"};  // the skin asks for a file name and sets the box
  Label lblCountries{Controls, "lblCountries"};
  TextBox txtLogFilesToWatch{Controls, "txtLogFilesToWatch"};
  Button cmdLogFilesToWatch{Controls, "cmdLogFilesToWatch"};  // the skin asks for a file and adds its name
  Label lblLogFilesToWatch{Controls, "lblLogFilesToWatch"};   // what was read, and what is wrong with it
  CheckBox chkAlarmOnlyNeeded{Controls, "chkAlarmOnlyNeeded"};
};

struct FilesTab {
  ControlList Controls;

  ListBox lstWebsites{Controls, "lstWebsites"};
  Button cmdOpenWebsite{Controls,
                        "cmdOpenWebsite"};  // the skin turns it into a double click on the chosen line
  Button cmdViewEventLog{Controls, "cmdViewEventLog"};
  Button cmdViewRawSpots{Controls, "cmdViewRawSpots"};
  Button cmdViewSpotsRSS{Controls, "cmdViewSpotsRSS"};
  Button cmdViewTrustedSpotters{Controls, "cmdViewTrustedSpotters"};
  Button cmdSaveSettings{Controls, "cmdSaveSettings"};
};

struct AboutTab {
  ControlList Controls;

  Label lblProgramTitle{Controls, "lblProgramTitle"};
  Button cmdViewUserGuide{Controls, "cmdViewUserGuide"};
};

// What the details of an activation lead to.
struct BoardTab {
  std::function<void(const std::string& summit)> OpenSummit;
  std::function<void(const std::string& baseCallsign)> OpenStation;
};

struct Screen {
  Form Window;
  CheckTimer tmrCheckSpots;
  BoardTab Board;
  SpotsTab Spots;
  FiltersTab Filters;
  LogsTab Logs;
  RBNTab RBN;
  GatewayTab Gateway;
  PlacesTab Places;
  FilesTab Files;
  AboutTab About;

  // The groups in the order of the tabs, for whoever binds or checks every control.
  std::array<ControlList*, 8> Groups() {
    return {&Spots.Controls,   &Filters.Controls, &Logs.Controls,  &RBN.Controls,
            &Gateway.Controls, &Places.Controls,  &Files.Controls, &About.Controls};
  }
};

}  // namespace brelwin
