// What the settings file holds beside the controls: values that are edited by hand in the file and only
// loaded, and the addresses that are used where it names none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brelwin {

inline constexpr std::string_view TwitterSearchAddress =
    "https://search.twitter.com/search.json?q=from:SOTAwatch&include_entities=true&result_type=recent"
    "&since_id=ZZZZ";
inline constexpr std::string_view OperatorLookupAddress = "https://www.qrz.com/db/ZZZZ";
inline constexpr std::string_view SummitPageAddress = "https://www.sotawatch.org/summits.php?summit=ZZZZ";
inline constexpr std::string_view AlertsPageAddress = "https://www.sotawatch.org/alerts.php";
inline constexpr std::string_view RSSFeedAddress = "https://old.sota.org.uk/RssFeed";
inline constexpr std::string_view SpotliteFormAddress = "https://old.sota.org.uk/Spotlite/postSpot";
inline constexpr std::string_view RBNServer = "telnet.reversebeacon.net";

// The switches of the developer test button.
struct TestSettings {
  bool TestMode1 = false;
  std::string TestMode1String;
  bool TestMode2 = false;
  std::string TestMode2String;
};

// Addresses; where a template holds "ZZZZ", the thing asked for is put in its place.
struct URLTemplates {
  std::string Twitter;
  std::string Callsign;
  std::string Summit;
  std::string SotawatchAlerts;
  std::string SotawatchRSS;
  std::string SpotliteSpotSubmitURL;
  std::string SotawatchAPI;                // of the JSON service; empty: it is not asked
  std::string SotawatchAPITermsConfirmed;  // the host whose terms the user has confirmed
};

struct Configuration {
  URLTemplates Addresses;  // after the load none but the service's is empty: others have a built-in address
  TestSettings Test;
  std::string RBNHost;
  std::int32_t RBNPort = 7000;
  std::int32_t RBNPort2 = 0;              // of a second stream of the same server; below 1: none
  std::int32_t RBNConnectionTimeout = 5;  // seconds
  bool RBNShowAllSpottedTypes = false;
  bool RBNDontFilter100HzFrequencyErrors = false;
  std::int32_t MaxAlertAgeInHours = 72;
  std::int32_t MaxWinsockControlInstances = 1000000;
  bool TestButton = false;
  bool LogRawSpots = false;
  bool LogAlertsAfterSelfSpots = false;
};

}  // namespace brelwin
