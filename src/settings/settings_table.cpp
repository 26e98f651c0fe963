#include "settings/settings_table.h"

#include "core/version.h"
#include "platform/system_information.h"
#include "settings/configuration.h"

namespace brelwin {
namespace {

template <auto Member>
auto& OnSpots(Screen& screen) {
  return screen.Spots.*Member;
}
template <auto Member>
auto& OnFilters(Screen& screen) {
  return screen.Filters.*Member;
}
template <auto Member>
auto& OnLogs(Screen& screen) {
  return screen.Logs.*Member;
}
template <auto Member>
auto& OnRBN(Screen& screen) {
  return screen.RBN.*Member;
}
template <auto Member>
auto& OnGateway(Screen& screen) {
  return screen.Gateway.*Member;
}
template <auto Member>
auto& OnPlaces(Screen& screen) {
  return screen.Places.*Member;
}
KeptText& WindowPlace(Screen& screen) {
  return screen.Window.Place;
}
KeptText& BoardColumnsOfWindow(Screen& screen) {
  return screen.Window.BoardColumns;
}
KeptText& BoardHides(Screen& screen) {
  return screen.Window.BoardHides;
}
KeptText& ListZoom(Screen& screen) {
  return screen.Spots.txtSPOTList.Zoom;
}
template <auto Member>
auto& Field(Configuration& configuration) {
  return configuration.*Member;
}
template <auto Member>
auto& Address(Configuration& configuration) {
  return configuration.Addresses.*Member;
}
template <auto Member>
auto& TestField(Configuration& configuration) {
  return configuration.Test.*Member;
}

std::string ProgramFolder(const Host& host) {
  return host.ProgramFolder;
}
std::string Version(const Host& /*host*/) {
  return std::string(ProgramVersion());
}
std::string SystemType(const Host& /*host*/) {
  return ReadSystemInformation().Type;
}
std::string SystemVersion(const Host& /*host*/) {
  return ReadSystemInformation().Version;
}

constexpr std::string_view General = "General";
constexpr std::string_view RBN = "ReverseBeaconNetwork";
constexpr std::string_view Gateway = "Gateway";
constexpr std::string_view Places = "Places";
constexpr std::string_view Window = "Window";
constexpr std::string_view Templates = "URLTemplates";
constexpr std::string_view Troubleshooting = "TroubleshootingInfo";

constexpr std::string_view DefaultSound = "chimes.wav";
constexpr std::string_view DefaultComment = "CQ CQ at XXX wpm. S/N=YYY dB at ZZZ {Via Tarnlink}";

using enum SettingUse;
using enum FallbackWhen;

// clang-format off
constexpr SettingRow Rows[] = {
    {General, "FilterAlertSounds", OnFilters<&FiltersTab::chkFilterAlertSounds>, "0"},
    {General, "FilterSpotDisplay", OnFilters<&FiltersTab::chkFilterSpotDisplay>, "0"},
    {General, "FilterStation", OnFilters<&FiltersTab::txtFilterStation>},
    {General, "FilterSummitReference", OnFilters<&FiltersTab::txtFilterSummitReference>},
    {General, "FilterPoints", OnFilters<&FiltersTab::txtFilterPoints>},
    {General, "FilterBand", OnFilters<&FiltersTab::txtFilterBand>},
    {General, "FilterMode", OnFilters<&FiltersTab::txtFilterMode>},
    {General, "FilterSpotter", OnFilters<&FiltersTab::txtFilterSpotter>},
    {General, "AlertSound", OnFilters<&FiltersTab::txtAlertSound>, DefaultSound},
    {General, "PlaySoundWhen", OnFilters<&FiltersTab::optPlaySoundWhen>, "2"},
    {General, "AlertSoundsOnStartup", OnFilters<&FiltersTab::chkAlertSoundsOnStartup>, "0"},
    {General, "AlertSpotSourceSotawatch", OnFilters<&FiltersTab::chkAlertSpotSourceSotawatch>, "1"},
    {General, "AlertSpotSourceRBNMatched", OnFilters<&FiltersTab::chkAlertSpotSourceRBNMatched>, "1"},
    {General, "AlertSpotSourceRBNUnmatched", OnFilters<&FiltersTab::chkAlertSpotSourceRBNUnmatched>, "0"},
    {General, "SecondsBetweenChecks", OnSpots<&SpotsTab::txtSecondsBetweenChecks>, "30"},
    {General, "MaximumSpotsInList", OnSpots<&SpotsTab::txtMaximumSpotsInList>, "200"},
    {General, "ShowWindowOnAlert", OnFilters<&FiltersTab::chkShowWindowOnAlert>, "0"},
    {RBN, "RBNSpotsEnabled", OnRBN<&RBNTab::chkReverseBeaconSpotsEnabled>, "0"},
    {General, "SotawatchSpotsViaRSS", OnSpots<&SpotsTab::chkSOTAWatchSpotsViaRSS>, "1"},
    {RBN, "RBNCallsign", OnRBN<&RBNTab::txtRBNCallsign>},
    {RBN, "FilterKnownActivators", OnRBN<&RBNTab::chkRBNFilterKnownActivators>, "0"},
    {RBN, "FilterSotawatchMatchingAlert", OnRBN<&RBNTab::chkRBNFilterSotawatchMatchingAlert>, "0"},
    {RBN, "MaxMinutesBeforeAlertTime", OnRBN<&RBNTab::txtRBNMaxMinutesBeforeAlertTime>, "60"},
    {RBN, "MaxMinutesAfterAlertTime", OnRBN<&RBNTab::txtRBNMaxMinutesAfterAlertTime>, "60"},
    {RBN, "FilterDuplicateSpots", OnRBN<&RBNTab::chkRBNFilterDuplicateSpots>, "1"},
    {RBN, "DuplicateSpotFilteringPeriod", OnRBN<&RBNTab::txtDuplicateSpotFilteringPeriod>, "10"},
    {RBN, "SOTAAlertsRefreshInterval", OnRBN<&RBNTab::txtSOTAAlertsRefreshInterval>, "5"},
    {RBN, "RBNMaxMinutesSinceLastRawSpotReceived", OnRBN<&RBNTab::txtRBNMaxMinutesSinceLastRawSpotReceived>, "5"},
    {RBN, "FilterStation", OnRBN<&RBNTab::txtRBNFilterStation>},
    {RBN, "FilterBand", OnRBN<&RBNTab::txtRBNFilterBand>},
    {RBN, "FilterMode", OnRBN<&RBNTab::txtRBNFilterMode>},
    {RBN, "FilterSpotter", OnRBN<&RBNTab::txtRBNFilterSpotter>},
    {RBN, "FilterSpotterExclude", OnRBN<&RBNTab::txtRBNFilterSpotterExclude>},
    {Gateway, "SotawatchLogin", OnGateway<&GatewayTab::txtSotawatchLogin>},
    {Gateway, "SotawatchPassword", OnGateway<&GatewayTab::txtSotawatchPassword>, "", Scrambled},
    {Gateway, "RBNSendAllSpotsToSotawatch", OnGateway<&GatewayTab::chkRBNSendAllSpotsToSotawatch>, "0"},
    {Gateway, "SpotliteSpotSubmitURL", Address<&URLTemplates::SpotliteSpotSubmitURL>, "", LoadedOnly, Empty, SpotliteFormAddress},
    {Gateway, "SotawatchDupeSpotMaxAgeInMinutes", OnGateway<&GatewayTab::txtSotawatchDupeSpotMaxAgeInMinutes>, "30"},
    {Gateway, "GatewayDelayBeforeFinalDupeCheckAndSendInSeconds", OnGateway<&GatewayTab::txtGatewayDelayBeforeFinalDupeCheckAndSend>, "10"},
    {Gateway, "GatewaySound", OnGateway<&GatewayTab::txtGatewaySound>, "", LoadedAndSaved, Empty, DefaultSound},
    {Gateway, "GatewayPlaySoundSpotSentSuccessfully", OnGateway<&GatewayTab::chkGatewayPlaySoundSpotSentSuccessfully>, "0"},
    {Gateway, "GatewayPlaySoundSpotIsDupe", OnGateway<&GatewayTab::chkGatewayPlaySoundSpotIsDupe>, "0"},
    {Gateway, "GatewayMinimumSecondsBetweenSpotsOfSameStation", OnGateway<&GatewayTab::txtGatewayMinimumSecondsBetweenSpotsOfSameStation>, "600"},
    {Gateway, "SpotCommentTemplate", OnGateway<&GatewayTab::txtSpotCommentTemplate>, "", LoadedAndSaved, Empty, DefaultComment},
    {Gateway, "DryRun", OnGateway<&GatewayTab::chkGatewayDryRun>, "0"},
    {Gateway, "SOTAWatchAlertArchivingIntervalInHours", OnRBN<&RBNTab::txtSOTAWatchAlertArchivingIntervalInHours>, "0"},
    {General, "EnableLogging1", OnLogs<&LogsTab::chkEnableLogging1>, "0"},
    {General, "LogFile1", OnLogs<&LogsTab::txtLogFile1>},
    {General, "LogFormat1", OnLogs<&LogsTab::optLogFormat1>, "0"},
    {General, "FilterLog1", OnLogs<&LogsTab::chkFilterLog1>, "0"},
    {General, "EnableLogging2", OnLogs<&LogsTab::chkEnableLogging2>, "0"},
    {General, "LogFile2", OnLogs<&LogsTab::txtLogFile2>},
    {General, "LogFormat2", OnLogs<&LogsTab::optLogFormat2>, "0"},
    {General, "FilterLog2", OnLogs<&LogsTab::chkFilterLog2>, "0"},
    {General, "SotawatchSpotsSource", OnSpots<&SpotsTab::chkSotawatchJSONService>, "0"},
    {General, "SotawatchAPITermsConfirmed", Address<&URLTemplates::SotawatchAPITermsConfirmed>},
    {RBN, "RBNHost", Field<&Configuration::RBNHost>, "", LoadedOnly, Empty, RBNServer},
    {RBN, "RBNPort", Field<&Configuration::RBNPort>, "", LoadedOnly, BelowOne, "7000"},
    {RBN, "RBNPort2", Field<&Configuration::RBNPort2>, "0", LoadedOnly},
    {RBN, "RBNShowAllSpottedTypes", Field<&Configuration::RBNShowAllSpottedTypes>, "", LoadedOnly},
    {RBN, "RBNDontFilter100HzFrequencyErrors", Field<&Configuration::RBNDontFilter100HzFrequencyErrors>, "", LoadedOnly},
    {RBN, "RBNConnectionTimeout", Field<&Configuration::RBNConnectionTimeout>, "", LoadedOnly, Zero, "5"},
    {General, "MaxAlertAgeInHours", Field<&Configuration::MaxAlertAgeInHours>, "", LoadedOnly, NotANumber, "72"},
    {General, "MaxWinsockControlInstances", Field<&Configuration::MaxWinsockControlInstances>, "", LoadedOnly, Zero, "1000000"},
    {Templates, "Twitter", Address<&URLTemplates::Twitter>, "", LoadedOnly, Empty, TwitterSearchAddress},
    {Templates, "Callsign", Address<&URLTemplates::Callsign>, "", LoadedOnly, Empty, OperatorLookupAddress},
    {Templates, "Summit", Address<&URLTemplates::Summit>, "", LoadedOnly, Empty, SummitPageAddress},
    {Templates, "SotawatchAlerts", Address<&URLTemplates::SotawatchAlerts>, "", LoadedOnly, Empty, AlertsPageAddress},
    {Templates, "SotawatchRSS", Address<&URLTemplates::SotawatchRSS>, "", LoadedOnly, Empty, RSSFeedAddress},
    {Templates, "SotawatchAPI", Address<&URLTemplates::SotawatchAPI>, "", LoadedOnly},
    {General, "TestMode1", TestField<&TestSettings::TestMode1>, "", LoadedOnly},
    {General, "TestMode1String", TestField<&TestSettings::TestMode1String>, "", LoadedOnly},
    {General, "TestMode2", TestField<&TestSettings::TestMode2>, "", LoadedOnly},
    {General, "TestMode2String", TestField<&TestSettings::TestMode2String>, "", LoadedOnly},
    {General, "TestButton", Field<&Configuration::TestButton>, "", LoadedOnly},
    {General, "LogRawSpots", Field<&Configuration::LogRawSpots>, "", LoadedOnly},
    {General, "LogAlertsAfterSelfSpots", Field<&Configuration::LogAlertsAfterSelfSpots>, "", LoadedOnly},
    {Gateway, "RBNSendMySpotsToSotawatch", OnGateway<&GatewayTab::chkRBNSendMySpotsToSotawatch>, "0", SavedOnly},
    {Places, "MyPlace", OnPlaces<&PlacesTab::txtMyPlace>},
    {Places, "CountryFile", OnPlaces<&PlacesTab::txtCountryFile>},
    {Places, "LogFilesToWatch", OnPlaces<&PlacesTab::txtLogFilesToWatch>},
    {Places, "AlarmOnlyNeeded", OnPlaces<&PlacesTab::chkAlarmOnlyNeeded>, "0"},
    {Window, "Place", WindowPlace},
    {Window, "BoardColumns", BoardColumnsOfWindow},
    {Window, "BoardHides", BoardHides},
    {Window, "ListZoom", ListZoom, "100", LoadedAndSaved, BelowOne, "100"},
    {Troubleshooting, "Path", ProgramFolder, "", SavedOnly},
    {Troubleshooting, "Version", Version, "", SavedOnly},
    {Troubleshooting, "GetOSType_OSType", SystemType, "", SavedOnly},
    {Troubleshooting, "GetOSType_WinVersion", SystemVersion, "", SavedOnly},
};
// clang-format on

}  // namespace

std::span<const SettingRow> SettingsTable() {
  return Rows;
}

}  // namespace brelwin
