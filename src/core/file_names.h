// The names of the files in the program's folder, each with one owner: here.
#pragma once

#include <string_view>

namespace brelwin {

inline constexpr std::string_view SettingsIniFile = "Brelwin.INI";
inline constexpr std::string_view WebsitesFile = "SOTAWebsites.INI";
inline constexpr std::string_view UserGuideFile = "Brelwin_InstallationAndUserGuide.pdf";
inline constexpr std::string_view EventLogFile = "BrelwinEventLog.txt";

// The rows of the board and the events of its days.
inline constexpr std::string_view BoardDatabaseFile = "brelwin.db";

// The callsign lists.
inline constexpr std::string_view KnownActivatorsFile = "SOTAActivators.txt";
inline constexpr std::string_view ExcludedActivatorsFile = "SOTAExcludedActivators.txt";
inline constexpr std::string_view TrustedSpottersFile = "SOTATrustedSpotters.txt";

// The alerts. The names of copies go on with a local date and time and end in ".txt".
inline constexpr std::string_view AlertsFile = "SOTAAlerts.txt";
inline constexpr std::string_view AlertsArchiveStem = "SOTAAlerts_";
inline constexpr std::string_view AlertsAfterSelfSpotsStem = "SOTAAlertsAfterSelfSpots_";
inline constexpr std::string_view AlertModificationsFile = "SOTAAlertModifications.txt";
inline constexpr std::string_view AlertDurationOverridesFile = "SOTAAlertDurationOverrides.ini";
inline constexpr std::string_view WaitingCommandsFile = "SOTAAlertCommandsWaiting.txt";
inline constexpr std::string_view UndatedCommandsFile = "SOTAAlertCommandsUndated.txt";

// Spots as they came and as they were sent.
inline constexpr std::string_view FeedCopyFile = "SotawatchSpotsRSS.txt";
inline constexpr std::string_view RawSpotsFile = "RawSpots.txt";
inline constexpr std::string_view GatewaySpotLogFile = "GatewaySpotLog.txt";
inline constexpr std::string_view GatewayPostedSpotsFile = "GatewayPostedSpots.txt";
inline constexpr std::string_view GatewayServerResponseLogFile = "GatewayServerResponseLog.txt";

}  // namespace brelwin
