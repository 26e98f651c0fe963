#include "gateway/gateway_reports.h"

#include <algorithm>
#include <array>

#include "core/event_log.h"
#include "core/wave_file.h"
#include "gateway/gateway_journal.h"
#include "radio/numbers.h"
#include "spots/spot_text.h"

namespace brelwin {
namespace {

struct RefusalReport {
  GatewayReason Reason;
  std::string_view LogLinePreceeding;
  std::string_view Event;
};

// The refusals that are reported alike: the spot alone in the gateway's log, and a line in the event log.
constexpr std::array<RefusalReport, 11> RefusalReports{{
    {GatewayReason::StoodStill,
     " - - - The following spot not submitted because the program stood still after it was heard - - -",
     "Spot not submitted because the program stood still after it may have been heard."},
    {GatewayReason::SwitchedOff,
     " - - - The following spot not submitted because the gateway or the stream was switched off meanwhile - "
     "- -",
     "Spot not submitted because the gateway or the stream was switched off meanwhile."},
    {GatewayReason::NoLogin,
     " - - - The following spot not submitted because the login or the password was emptied meanwhile - - -",
     "Spot not submitted because the login or the password was emptied meanwhile."},
    {GatewayReason::NarrowedToOwn,
     " - - - The following spot not submitted because only your own spots are sent since it was heard - - -",
     "Spot not submitted because only spots of your own callsign are sent since it was heard."},
    {GatewayReason::WindowOfReference,
     " - - - The following spot not submitted because it matches by a summit reference in a comment only - - "
     "-",
     "Spot not submitted because only a summit reference in the alert's comment opens the window that it "
     "matches: "},
    {GatewayReason::OptedOut,
     " - - - The following spot not submitted because the activator opted out with NOTARNLINK/RBNN - - -",
     "Spot not submitted because the activator opted out with NOTARNLINK/RBNN."},
    {GatewayReason::ExcludedActivator,
     " - - - The following spot not submitted because activator is excluded from spotting - - -",
     "Activator is an excluded activator:"},
    {GatewayReason::FeedNotAsked,
     " - - - The following spot not submitted because Sotawatch may not be asked for duplicates now - - -",
     "Sotawatch may not be asked for duplicates now. Gateway processing aborted."},
    {GatewayReason::NoSpotsAnywhere,
     " - - - The following spot not submitted because NO Sotawatch spots are available for dupe checking - - "
     "-",
     "NO spots received from Sotawatch via RSS OR Twitter. This is a big problem. Gateway processing "
     "aborted."},
    {GatewayReason::DuplicateInFeed,
     " - - - - The following spot not submitted because of a duplicate RSS spot  - - - -",
     "Duplicate RSS spot found."},
    {GatewayReason::NearFrequencyInFeed,
     " - - - - The following spot not submitted because the activator changed frequency by less than 1 kHz "
     "as per "
     "RSS spots  - - - -",
     "Spot not submitted because the activator changed frequency by less than 1 kHz as per RSS spots."},
}};

void PlayDupeSound(Host& host, const GatewayValues& values) {
  std::string errorText;
  if (values.PlaySoundOnDupe) PlayWaveFile(host, values.SoundFile, false, errorText);
}

void ReportDuplicateInCurrentSpots(Host& host, const Spot& spot, const Spot& duplicate,
                                   const GatewayValues& values) {
  const auto separator = DashLine(ShortSeparatorDashes);
  WriteGatewayLogEntry(host,
                       {{spot, separator, "Spot not submitted because of a duplicate already in Sotawatch."},
                        {duplicate, "This is the duplicate spot:", separator}});
  PlayDupeSound(host, values);
  LogGatewayEvent(host, "Spot not submitted because of a duplicate already in Sotawatch:");
  LogEvent(host, DelimitedLine(duplicate, "|"));
}

std::string DetailOf(const Spot& spot, GatewayReason reason) {
  if (reason == GatewayReason::ExcludedActivator) return spot.stationBaseCallsign;
  return reason == GatewayReason::WindowOfReference ? spot.WindowReference : std::string();
}

void ReportAlike(Host& host, const Spot& spot, const RefusalReport& report, const GatewayValues& values) {
  WriteGatewayLogEntry(host, {{spot, report.LogLinePreceeding, DashLine(LongSeparatorDashes)}});
  const bool isDupe =
      report.Reason == GatewayReason::DuplicateInFeed || report.Reason == GatewayReason::NearFrequencyInFeed;
  if (isDupe) PlayDupeSound(host, values);
  LogGatewayEvent(host, std::string(report.Event) + DetailOf(spot, report.Reason));
}

std::string BandChange(const Spot& from, const Spot& to) {
  return "Spotted station has changed bands from " + SingleText(from.BandInMhz) + " at " + from.UTCTime +
         "z to " + SingleText(to.BandInMhz) + " at " + to.UTCTime + "z, this isn't a dupe.";
}

std::string OtherInWords(const DupeSearch& search) {
  if (!search.Other) return {};
  return " (" + search.Other->FormattedFrequencyString + " MHz at " + search.Other->UTCTime + "z by " +
         search.Other->Spotter + ")";
}

}  // namespace

void LogGatewayEvent(Host& host, std::string_view message) {
  LogEvent(host, "PerformGatewayProcessing - " + std::string(message));
}

void ReportBegin(Host& host, const Spot& spot) {
  LogGatewayEvent(host, "Begin processing alert matched spot for " + spot.Station +
                            " (BaseCallsign=" + spot.stationBaseCallsign + "):");
  LogEvent(host, DelimitedLine(spot, "|"));
}

void ReportSearchOfCurrentSpots(Host& host, const Spot& spot, const DupeSearch& search) {
  if (search.Finding == DupeFinding::NoSpots) LogGatewayEvent(host, "No current Sotawatch spots");
  if (search.Finding == DupeFinding::TooOld)
    LogGatewayEvent(
        host, "Exit dupe check loop, no dupe found and remainder of existing spots are too old to be dupes.");
  if (search.Finding == DupeFinding::OtherBand) LogGatewayEvent(host, BandChange(*search.Other, spot));
}

void ReportSearchOfFeed(Host& host, const DupeSearch& search) {
  if (search.Finding == DupeFinding::NoSpots)
    LogGatewayEvent(host, "No spots received from Sotawatch via RSS, so can't do final dupe check.");
}

void ReportRefusal(Host& host, const Spot& spot, GatewayReason reason, const DupeSearch& search,
                   const GatewayValues& values) {
  if (reason == GatewayReason::NoCurrentSpots)
    return LogGatewayEvent(host, "prvColCurrentSotawatchSpots is nothing");
  if (reason == GatewayReason::DuplicateInCurrentSpots)
    return ReportDuplicateInCurrentSpots(host, spot, *search.Other, values);
  const auto* report = std::ranges::find(RefusalReports, reason, &RefusalReport::Reason);
  if (report != RefusalReports.end()) ReportAlike(host, spot, *report, values);
}

void ReportInterval(Host& host, const GatewayFacts& facts) {
  LogGatewayEvent(host, "Spot not sent because the gateway sent a spot for the same station " +
                            std::to_string(*facts.SecondsSinceLastSent) +
                            " seconds ago (min sec for respot=" +
                            std::to_string(facts.MinimumSecondsBetweenSpots) + ").");
}

std::string RefusalInWords(GatewayReason reason, const GatewayFacts& facts, const DupeSearch& search) {
  switch (reason) {
    case GatewayReason::None:
    case GatewayReason::NoGatewaySpot: return {};
    case GatewayReason::StoodStill:
      return "not sent: the program stood still for some minutes after the spot may have been heard";
    case GatewayReason::SwitchedOff: return "not sent: the gateway or the stream was switched off meanwhile";
    case GatewayReason::NoLogin: return "not sent: the login or the password was emptied meanwhile";
    case GatewayReason::ExcludedActivator:
      return "not sent: the activator is excluded by " + facts.ExcludedBy;
    case GatewayReason::NarrowedToOwn: return "not sent: only spots of your own callsign are sent meanwhile";
    case GatewayReason::WindowOfReference:
      return "not sent: it matches only by the \"S-\" in \"" + facts.WindowReference +
             "\" of the alert's comment";
    case GatewayReason::OptedOut:
      return "not sent: the activator opted out with NOTARNLINK/RBNN" + OtherInWords(search);
    case GatewayReason::OtherStation: return "not sent: only spots of your own callsign are sent";
    case GatewayReason::FeedNotAsked:
      return "not sent: Sotawatch may not be asked for duplicates now, this check sent nothing more";
    case GatewayReason::NoCurrentSpots:
    case GatewayReason::NoSpotsAnywhere:
      return "not sent: there are no Sotawatch spots to compare with, this check sent nothing more";
    case GatewayReason::DuplicateInCurrentSpots:
      return "not sent: already spotted on Sotawatch" + OtherInWords(search);
    case GatewayReason::DuplicateInFeed:
      return "not sent: spotted on Sotawatch in the meantime" + OtherInWords(search);
    case GatewayReason::NearFrequencyInFeed:
      return "not sent: spotted on Sotawatch less than 1 kHz away" + OtherInWords(search);
    case GatewayReason::SentTooRecently:
      return "not sent: a spot of the station was sent " + std::to_string(*facts.SecondsSinceLastSent) +
             " seconds ago, the least is " + std::to_string(facts.MinimumSecondsBetweenSpots);
  }
  return {};
}

std::string SubmissionInWords(const SubmissionResult& result, const Spot& spot) {
  if (result.Status == StatusAccepted) return "sent: " + spot.Comment;
  if (!result.Reason.empty()) return "not sent: " + result.Reason;
  const auto text = GatewayStatusText(result);
  return text.empty() ? result.LogLine : text;
}

}  // namespace brelwin
