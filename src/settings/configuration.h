// What the settings file holds beside the controls: values that are edited by hand in the file and only
// loaded.
#pragma once

#include <cstdint>
#include <string>

namespace brelwin {

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
};

struct Configuration {
  URLTemplates Addresses;  // never empty after the load: an empty key leaves the built-in address
  TestSettings Test;
  std::string RBNHost;
  std::int32_t RBNPort = 7000;
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
