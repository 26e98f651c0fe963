#include "rehearsal_folder.h"

#include <array>

#include "random.h"
#include "world.h"

namespace rehearsal {
namespace {

using practice::Random;
using std::string;

template <std::size_t Count>
string Line(Random& random, const string& key, const std::array<int, Count>& values) {
  return key + "=" + std::to_string(random.Pick(values)) + "\r\n";
}

// The delay before the final check is never the pause between checks, so that the two can be told apart; nor
// does it go on at once from a question of the check to the service.
string Gateway(Random& random, bool isByService) {
  return "[Gateway]\r\nSotawatchLogin=Q0ZZ\r\nRBNSendAllSpotsToSotawatch=1\r\nSpotliteSpotSubmitURL=" +
         string(SiteAddress) + "/Spotlite/postSpot\r\n" +
         Line<4>(random, "SotawatchDupeSpotMaxAgeInMinutes", {0, 10, 30, 60}) +
         Line<5>(random, "GatewayDelayBeforeFinalDupeCheckAndSendInSeconds",
                 {isByService ? 2 : 0, 3, 7, 12, 18}) +
         Line<4>(random, "GatewayMinimumSecondsBetweenSpotsOfSameStation", {5, 120, 300, 600}) +
         (random.OneIn(2) ? "SpotCommentTemplate=XXX wpm YYY dB de ZZZ, and some words more to make it long "
                            "{Via Tarnlink}\r\n"
                          : "");
}

string Stream(Random& random) {
  return "[ReverseBeaconNetwork]\r\nRBNSpotsEnabled=1\r\nRBNCallsign=Q0ZZ\r\nRBNHost=stream.test\r\n"
         "FilterDuplicateSpots=1\r\nRBNMaxMinutesSinceLastRawSpotReceived=5\r\n" +
         Line<3>(random, "DuplicateSpotFilteringPeriod", {3, 5, 10}) +
         Line<2>(random, "FilterSotawatchMatchingAlert", {0, 1}) +
         Line<2>(random, "FilterKnownActivators", {0, 1}) +
         Line<3>(random, "RBNShowAllSpottedTypes", {0, 0, 1}) +
         Line<3>(random, "MaxMinutesBeforeAlertTime", {30, 60, 90}) +
         Line<3>(random, "MaxMinutesAfterAlertTime", {45, 60, 120}) +
         Line<3>(random, "SOTAAlertsRefreshInterval", {15, 20, 40}) +
         (random.OneIn(3) ? "FilterSpotterExclude=W3OA, LZ*\r\n" : "");
}

string Source(bool isByService) {
  return isByService ? "SotawatchSpotsSource=1\r\nSotawatchAPITermsConfirmed=practice.test\r\n" : "";
}

string Settings(Random& random, bool isByService) {
  return "[General]\r\nSotawatchSpotsViaRSS=1\r\nMaximumSpotsInList=100\r\nPlaySoundWhen=0\r\n"
         "MaxAlertAgeInHours=24\r\n" +
         Source(isByService) + Line<3>(random, "SecondsBetweenChecks", {10, 15, 30}) + Stream(random) +
         Gateway(random, isByService) + "[URLTemplates]\r\nSotawatchRSS=" + SiteAddress +
         "/RssFeed\r\nSotawatchAlerts=" + SiteAddress + "/alerts.php\r\nSotawatchAPI=" + SiteAddress +
         "/api/\r\n";
}

// Abroad the base of "DL/PA3XYZ/P" is DLA3XYZ: those who begin with P are needed more often.
string SomeActivators(Random& random, std::size_t crowd) {
  string lines;
  for (const auto& callsign : practice::CrowdCallsigns(crowd))
    if (random.OneIn(callsign.starts_with('P') ? 4 : 20))
      lines += callsign + (random.OneIn(2) ? "/P\r\n" : "\r\n");
  return lines;
}

string Overrides(Random& random, std::size_t crowd) {
  string sections;
  for (const auto& callsign : practice::CrowdCallsigns(crowd)) {
    if (!random.OneIn(15)) continue;
    sections += "[" + callsign +
                "]\r\nMaxMinutesBeforeAlertTime=" + std::to_string(random.Between(0, 3) * 30) +
                "\r\nMaxMinutesAfterAlertTime=" + std::to_string(random.Between(0, 3) * 45) + "\r\n";
  }
  return sections;
}

// The gateway's own login is trusted, so that what it has posted may look like a command.
string SomeChasers(Random& random) {
  string lines = "Q0ZZ\r\n";
  for (const auto callsign : practice::Chasers())
    if (random.OneIn(6)) lines += string(callsign) + "\r\n";
  return lines;
}

}  // namespace

std::map<string, string> FolderOf(std::uint64_t seed, std::size_t crowd, bool isByService) {
  Random random(seed, 603);
  return {{"Brelwin.INI", Settings(random, isByService)},
          {"SOTAExcludedActivators.txt", SomeActivators(random, crowd)},
          {"SOTATrustedSpotters.txt", SomeChasers(random)},
          {"SOTAAlertDurationOverrides.ini", Overrides(random, crowd)}};
}

}  // namespace rehearsal
