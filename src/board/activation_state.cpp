#include "board/activation_state.h"

#include <algorithm>

namespace brelwin {
namespace {

constexpr std::int64_t QuietAfter = std::int64_t{15} * 60;
constexpr std::int64_t OffAfter = std::int64_t{60} * 60;
constexpr std::int64_t LastCallsAfterQRT = std::int64_t{5} * 60;  // skimmers hear these as well

bool IsFresh(std::optional<DateTime> time, DateTime now) {
  return time && now.Seconds - time->Seconds < QuietAfter;
}

std::optional<DateTime> LastHeard(const ActivationFacts& facts) {
  if (!facts.Heard) return {};
  return facts.Heard->Last;
}

// When the station left the air by its own or a spotter's word, if it has not come back.
std::optional<DateTime> LeftAt(const ActivationFacts& facts) {
  if (facts.Reports.empty() || !facts.Reports.back().SaysGone) return {};
  const auto left = facts.Reports.back().When;
  const auto heard = LastHeard(facts);
  if (heard && heard->Seconds > left.Seconds + LastCallsAfterQRT) return {};
  return left;
}

StateVerdict LiveState(bool heard, bool spotted, DateTime last) {
  if (heard && spotted) return {ActivationState::HeardAndSpotted, StateReason::HeardAndSpottedLately, last};
  if (heard) return {ActivationState::Heard, StateReason::HeardLately, last};
  return {ActivationState::Spotted, StateReason::SpottedLately, last};
}

StateVerdict WithdrawnState(const ActivationFacts& facts, DateTime now) {
  if (facts.Announcements.empty()) return {ActivationState::Cancelled, StateReason::SpotsTakenBack, now};
  const auto& last = facts.Announcements.back();
  if (last.Withdrawn == Withdrawal::RemovedByEntry)
    return {ActivationState::Cancelled, StateReason::RemovedByEntry, last.Planned};
  const auto reason = last.IsGone ? StateReason::TakenOffThePage : StateReason::CancelledByActivator;
  return {ActivationState::Cancelled, reason, last.Planned};
}

StateVerdict UnheardState(const ActivationFacts& facts, DateTime now) {
  const auto* announcement = CurrentAnnouncement(facts, now);
  if (announcement == nullptr) return WithdrawnState(facts, now);
  if (announcement->End < now) return {ActivationState::NoShow, StateReason::WindowOver, announcement->End};
  if (announcement->Begin <= now) return {ActivationState::Due, StateReason::InWindow, announcement->Begin};
  return {ActivationState::Announced, StateReason::WindowToCome, announcement->Planned};
}

// Who was heard before a window, and not for long, is expected again.
StateVerdict SilentState(const ActivationFacts& facts, DateTime now, DateTime last) {
  const auto* announcement = CurrentAnnouncement(facts, now);
  const bool windowIsOver = announcement == nullptr || announcement->End < now;
  const bool wasInWindow = !windowIsOver && announcement->Begin <= last;
  if (wasInWindow || now.Seconds - last.Seconds < OffAfter)
    return {ActivationState::Quiet, StateReason::SilentForMinutes, last};
  if (windowIsOver) return {ActivationState::Off, StateReason::SilentAfterWindow, last};
  return UnheardState(facts, now);
}

}  // namespace

StateVerdict StateOf(const ActivationFacts& facts, DateTime now) {
  if (facts.MovedAt) return {ActivationState::Off, StateReason::MovedOn, *facts.MovedAt};
  if (const auto left = LeftAt(facts)) return {ActivationState::Off, StateReason::SaidQRT, *left};
  const auto last = LastActivity(facts);
  const bool optedOut = HasOptedOut(facts);
  const bool heard = !optedOut && IsFresh(LastHeard(facts), now);
  const bool spotted = IsFresh(LastReported(facts), now);
  if (heard || spotted) return LiveState(heard, spotted, *last);
  if (optedOut) {
    const auto span = SpanOf(facts);
    return {ActivationState::OptedOut, StateReason::AskedForNoSpots, span ? span->Begin : now};
  }
  return last ? SilentState(facts, now, *last) : UnheardState(facts, now);
}

std::vector<std::string_view> SkimmersOf(const ActivationFacts& facts, DateTime now) {
  std::vector<std::string_view> skimmers;
  for (const auto& hearing : facts.Hearings) {
    if (now.Seconds - hearing.When.Seconds < SecondsOfHearings) skimmers.push_back(hearing.Skimmer);
  }
  std::ranges::sort(skimmers);
  const auto rest = std::ranges::unique(skimmers);
  skimmers.erase(rest.begin(), rest.end());
  return skimmers;
}

}  // namespace brelwin
