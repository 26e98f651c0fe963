#include "gateway/gateway_run.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "core/status_codes.h"
#include "core/wave_file.h"
#include "gateway/fresh_feed.h"
#include "gateway/gateway_reports.h"
#include "gateway/spotlite_form.h"
#include "gateway/spotlite_submission.h"
#include "platform/wait.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

bool IsRefusedByADuplicate(GatewayReason reason) {
  return reason == GatewayReason::DuplicateInCurrentSpots || reason == GatewayReason::DuplicateInFeed ||
         reason == GatewayReason::NearFrequencyInFeed;
}

}  // namespace

std::int32_t GatewayRun::ForAll(const std::vector<SpotPointer>& spots) {
  std::int32_t result = StatusDone;
  for (const auto& spot : spots) {
    if (const auto end = ForOne(spot)) {
      result = *end;
      break;
    }
  }
  ShowJournal();
  return result;
}

GatewayRun::End GatewayRun::ForOne(const SpotPointer& spot) {
  if (!IsGatewaySpot(*spot)) return {};
  if (const auto end = EndedByQuitting(*spot)) return end;
  ReportBegin(gateway_.World, *spot);
  return Decide(spot);
}

// Every look may take its time, so the facts of the moment are taken anew before each step.
GatewayRun::End GatewayRun::Decide(const SpotPointer& spot) {
  DupeSearch search;
  GatewayFacts facts;
  while (true) {
    facts = FactsAbout(*spot, facts);
    const auto verdict = DecideGatewaySpot(facts);
    switch (verdict.Decision) {
      case GatewayDecision::PassOver: return {};
      case GatewayDecision::LookAtCurrentSpots:
        search = LookAtCurrentSpots(*spot);
        facts.InCurrentSpots = search.Finding;
        break;
      case GatewayDecision::LookAtFeed:
        if (const auto found = LookAtFeed(*spot)) {
          search = *found;
          facts.InFeed = search.Finding;
        }
        if (const auto end = EndedByQuitting(*spot)) return end;
        break;
      case GatewayDecision::Send:
        if (gateway_.World.Going.LetStart(Work::Send)) return Send(spot);
        if (const auto end = WaitForSendInProgress(*spot)) return end;
        break;
      case GatewayDecision::Refuse:
      case GatewayDecision::Abort: return Refuse(*spot, verdict, facts, search);
    }
  }
}

GatewayRun::End GatewayRun::Refuse(const Spot& spot, const GatewayVerdict& verdict, const GatewayFacts& facts,
                                   const DupeSearch& search) {
  ReportRefusal(gateway_.World, spot, verdict.Reason, search, values_);
  Note(spot, RefusalInWords(verdict.Reason, facts, search));
  if (verdict.Reason == GatewayReason::StoodStill) gateway_.TooOld.push_back(spot.SpotKey);
  if (verdict.Decision == GatewayDecision::Abort) return StatusDone;
  const bool isByInterval = verdict.Reason == GatewayReason::SentTooRecently;
  if (isByInterval || (IsRefusedByADuplicate(verdict.Reason) && IsSentTooRecently(facts)))
    ReportInterval(gateway_.World, facts);
  return {};
}

GatewayRun::End GatewayRun::Send(const SpotPointer& spot) {
  const auto sender = SenderFromScreen(gateway_.Tab, gateway_.RBN);
  LogGatewayEvent(gateway_.World, "About to call SendRBNSpotToSotawatch& to send the spot.");
  if (gateway_.Tab.chkGatewayDryRun.Value) {
    PretendToPost(*spot, sender);
  } else {
    Post(spot, sender);
  }
  return IsEnding() ? End(StatusDone) : End();
}

GatewayRun::End GatewayRun::WaitForSendInProgress(const Spot& spot) {
  auto& host = gateway_.World;
  LogGatewayEvent(host, "There is already a gateway send in progresss. Waiting...");
  const auto deadline = host.Time.Now() + std::chrono::seconds(InternetTimeoutSeconds(gateway_.Settings));
  const auto result = WaitUntil(
      host, [&] { return host.Going.LetStart(Work::Send); }, deadline);
  if (const auto end = EndedByQuitting(spot)) return end;
  if (result == WaitResult::TimedOut) {
    LogGatewayEvent(host, "Timed out waiting for gateway send in progress to complete");
    Note(spot, "not sent: another submission did not end");
    return StatusTimedOut;
  }
  LogGatewayEvent(host, "The gateway send that was in progress has now completed.");
  return {};
}

GatewayRun::End GatewayRun::EndedByQuitting(const Spot& spot) {
  if (!IsEnding()) return {};
  Note(spot, "not sent: the program is ending");
  return StatusDone;
}

bool GatewayRun::IsEnding() {
  if (!gateway_.World.ShuttingDown) return false;
  LogGatewayEvent(gateway_.World, "The program is ending, nothing more is sent.");
  return true;
}

GatewayFacts GatewayRun::FactsAbout(const Spot& spot, const GatewayFacts& found) const {
  auto facts = FactsOfNow(gateway_, spot, beginning_);
  facts.InCurrentSpots = found.InCurrentSpots;
  facts.InFeed = found.InFeed;
  facts.SecondsSinceLastSent = SecondsSinceLastSent(spot);
  facts.MinimumSecondsBetweenSpots = values_.MinSecondsBetweenSpotsOfSameStation;
  return facts;
}

std::optional<std::int64_t> GatewayRun::SecondsSinceLastSent(const Spot& spot) const {
  const auto* sent = gateway_.SentSpotsByStation.Find(spot.stationBaseCallsign);
  if (sent == nullptr) return {};
  return std::abs(SecondsBetween(*sent, gateway_.World.Time.Now()));
}

DupeSearch GatewayRun::LookAtCurrentSpots(const Spot& spot) {
  auto& host = gateway_.World;
  const DupeAge age{host.Time.Now(), values_.MaxDupeAgeMinutes};
  auto search = SearchCurrentSpots(gateway_.RecentSotawatchSpots, spot, age);
  ReportSearchOfCurrentSpots(host, spot, search);
  return search;
}

std::optional<DupeSearch> GatewayRun::LookAtFeed(const Spot& spot) {
  auto& host = gateway_.World;
  ShowJournal();
  Delay(spot);
  if (host.ShuttingDown || !MayGo(gateway_, spot, beginning_)) return {};
  const auto feed =
      ReadFreshFeed(gateway_, std::max(values_.MaxDupeAgeMinutes, values_.DelaySeconds / 60 + 1));
  if (host.ShuttingDown) return {};
  auto search = SearchFeed(feed, spot, {host.Time.Now(), values_.MaxDupeAgeMinutes});
  ReportSearchOfFeed(host, search);
  return search;
}

// A spot that may not go any more is not waited for.
void GatewayRun::Delay(const Spot& spot) {
  if (values_.DelaySeconds <= 0) return;
  auto& host = gateway_.World;
  LogGatewayEvent(host, "Begin delay of " + std::to_string(values_.DelaySeconds) +
                            " seconds before final dupe check using RSS");
  const auto end = host.Time.Now() + std::chrono::seconds(values_.DelaySeconds);
  if (WaitUntil(
          host, [&] { return !MayGo(gateway_, spot, beginning_); }, end) == WaitResult::TimedOut)
    LogGatewayEvent(host, "End delay before final dupe check using RSS");
}

// The form may leave after its time-out, when this pass is over.
std::function<bool()> GatewayRun::LastLook(const Spot& spot, std::string comment) const {
  return [&gateway = gateway_, spot, comment = std::move(comment), beginning = beginning_] {
    if (!MayGo(gateway, spot, beginning) || gateway.Tab.chkGatewayDryRun.Value) return false;
    gateway.Posted.Remember(spot, comment);
    return true;
  };
}

void GatewayRun::Post(const SpotPointer& spot, const GatewaySender& sender) {
  message_.clear();
  const auto result = SendRBNSpotToSotawatch(
      gateway_.World, gateway_.Transfer, gateway_.Settings, sender.Login, sender.Password,
      sender.CommentTemplate, spot.get(), LastLook(*spot, GatewaySpotComment(sender.CommentTemplate, *spot)));
  LogGatewayEvent(gateway_.World, "SendRBNSpotToSotawatch& returned status " + std::to_string(result.Status));
  if (result.Status == StatusAccepted) {
    NoteSent(*spot);
  } else {
    NoteFailure(*spot, result);
  }
  Note(*spot, SubmissionInWords(result, *spot), result.Status == StatusAccepted);
}

void GatewayRun::PretendToPost(const Spot& spot, const GatewaySender& sender) {
  auto copy = spot;
  copy.Comment = GatewaySpotComment(sender.CommentTemplate, spot);
  auto check = CheckSpotliteForm(sender.Login, sender.Password, copy);
  check.Form.Password = "(hidden)";
  const auto words = check.Refusal == FormRefusal::None
                         ? "would have been sent: " + SpotliteFormBody(check.Form)
                         : "would not have been sent: " + std::string(FormRefusalText(check.Refusal));
  LogGatewayEvent(gateway_.World, "Dry run, the spot " + words);
  Note(spot, "dry run, " + words);
}

void GatewayRun::NoteSent(const Spot& spot) {
  auto& host = gateway_.World;
  auto& sent = gateway_.SentSpotsByStation;
  sent.Remove(spot.stationBaseCallsign);
  sent.Add(host.Time.Now(), spot.stationBaseCallsign);
  LogGatewayEvent(host, "The spot was sent successfully!");
  std::string errorText;
  if (values_.PlaySoundOnSuccess) PlayWaveFile(host, values_.SoundFile, false, errorText);
}

void GatewayRun::NoteFailure(const Spot& spot, const SubmissionResult& result) {
  message_ = GatewayStatusText(result);
  gateway_.Tab.lblGatewayLastFailure.Caption = "Last submission without success: " + spot.Station + " at " +
                                               ClockText(gateway_.World.Time.LocalNow()) + ": " +
                                               SubmissionInWords(result, spot);
}

void GatewayRun::Note(const Spot& spot, std::string words, bool wasSent) {
  auto& host = gateway_.World;
  if (gateway_.Decided) gateway_.Decided(spot, wasSent, words);
  gateway_.Journal.Add(
      {host.Time.Now(), host.Time.LocalNow(), spot.Station, spot.FormattedFrequencyString, std::move(words)});
}

void GatewayRun::ShowJournal() {
  gateway_.Tab.lstGatewayJournal.Items = gateway_.Journal.Lines();
}

}  // namespace brelwin
