#include <string>

#include "board/activation_state.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

std::string Ago(DateTime time, DateTime now) {
  const auto minutes = MinutesBetween(time, now);
  return minutes < 1 ? "just now" : std::to_string(minutes) + " min ago";
}

std::string HeardBy(const ActivationFacts& facts, DateTime now) {
  const auto count = SkimmersOf(facts, now).size();
  if (count == 0) return "heard by skimmers";  // all of them more than 10 minutes ago
  return "heard by " + std::to_string(count) + (count == 1 ? " skimmer" : " skimmers");
}

std::string SpottedBy(const ActivationFacts& facts) {
  const auto& report = facts.Reports.back();
  return report.IsSelfSpot ? "spotted by himself" : "spotted by " + report.Spotter;
}

std::string WindowWords(const ActivationFacts& facts, DateTime now) {
  const auto* announcement = CurrentAnnouncement(facts, now);
  if (announcement == nullptr) return {};
  return ClockText(announcement->Begin) + " to " + ClockText(announcement->End);
}

std::string QRTWords(const ActivationFacts& facts, DateTime since) {
  const auto& comment = facts.Reports.back().Comment;
  return "QRT at " + ClockText(since) + (comment.empty() ? "" : ": " + comment);
}

std::string SilentWords(DateTime since, DateTime now) {
  return "nothing heard for " + std::to_string(MinutesBetween(since, now)) + " min";
}

std::string MovedWords(const ActivationFacts& facts, DateTime since) {
  return "moved to " + facts.MovedTo + " at " + ClockText(since);
}

}  // namespace

std::string ReasonInWords(const StateVerdict& verdict, const ActivationFacts& facts, DateTime now) {
  const auto since = verdict.Since;
  switch (verdict.Reason) {
    case StateReason::WindowToCome: return "announced for " + DateTimeText(since).substr(0, 16);
    case StateReason::InWindow: return "in its window " + WindowWords(facts, now) + ", not heard";
    case StateReason::HeardLately: return HeardBy(facts, now) + ", last " + Ago(since, now);
    case StateReason::SpottedLately: return SpottedBy(facts) + ", " + Ago(since, now);
    case StateReason::HeardAndSpottedLately: return HeardBy(facts, now) + ", " + SpottedBy(facts);
    case StateReason::SilentForMinutes: return SilentWords(since, now);
    case StateReason::SilentAfterWindow: return SilentWords(since, now) + ", no window open";
    case StateReason::SaidQRT: return QRTWords(facts, since);
    case StateReason::MovedOn: return MovedWords(facts, since);
    case StateReason::CancelledByActivator: return "cancelled by the activator";
    case StateReason::RemovedByEntry: return "removed by an entry of the modifications file";
    case StateReason::TakenOffThePage: return "taken off the list of announcements";
    case StateReason::SpotsTakenBack: return "its spots were taken back";
    case StateReason::WindowOver: return "never heard, its window ended at " + ClockText(since);
    case StateReason::AskedForNoSpots: return "asks not to be spotted automatically";
  }
  return {};
}

std::string_view StateWord(ActivationState state) {
  switch (state) {
    case ActivationState::Announced: return "Announced";
    case ActivationState::Due: return "Due";
    case ActivationState::Heard: return "Heard";
    case ActivationState::Spotted: return "Spotted";
    case ActivationState::HeardAndSpotted: return "Heard and spotted";
    case ActivationState::Quiet: return "Quiet";
    case ActivationState::Off: return "Off";
    case ActivationState::Cancelled: return "Cancelled";
    case ActivationState::NoShow: return "No-show";
    case ActivationState::OptedOut: return "Opted out";
  }
  return {};
}

std::string_view StateGlyph(ActivationState state) {
  switch (state) {
    case ActivationState::Announced: return "○";
    case ActivationState::Due: return "◔";
    case ActivationState::Heard: return "◉";
    case ActivationState::Spotted: return "◆";
    case ActivationState::HeardAndSpotted: return "★";
    case ActivationState::Quiet: return "◌";
    case ActivationState::Off: return "■";
    case ActivationState::Cancelled: return "✕";
    case ActivationState::NoShow: return "–";
    case ActivationState::OptedOut: return "⊘";
  }
  return {};
}

}  // namespace brelwin
