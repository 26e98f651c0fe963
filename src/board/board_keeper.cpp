#include "board/board_keeper.h"

#include <algorithm>
#include <utility>

#include "board/board_sources.h"
#include "core/event_log.h"
#include "core/trap.h"
#include "radio/callsign.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr auto TimeBetweenSaves = std::chrono::seconds(5);
constexpr auto TimeBetweenForgetting = std::chrono::hours(1);
constexpr std::int64_t SecondsKept = BoardLimits().SecondsKept;
constexpr std::size_t MostEventsWaiting = 20'000;  // for a store that cannot be written

KeptRow Kept(const ActivationRow& row) {
  return {row.Number, row.LastEvent, row.Who.BaseCallsign, row.Who.Summit, RowText(row)};
}

}  // namespace

void BoardKeeper::Restore() {
  LogErrors(world_, "RestoreBoard", false, [&] {
    std::vector<KeptRow> rows;
    const auto result = world_.Store.Load(rows);
    NoteFailure(result.Words);
    // Rows that could not be read may still be there; by its seconds no number of theirs is used again.
    if (result.Outcome == StoreOutcome::NotDone) board_.NumberAbove(UTCNow(world_.Time).Seconds);
    Put(rows);
    saved_ = board_.Revision();
    ForgetOld();
    Changed.Raise();
    return true;
  });
}

void BoardKeeper::Put(const std::vector<KeptRow>& rows) {
  std::size_t broken = 0;
  for (const auto& kept : rows) {
    auto row = ReadRowText(kept.Text);
    if (!row || row->Number != kept.Number || !board_.Restore(std::move(*row))) ++broken;
  }
  if (broken > 0)
    LogEvent(world_, "RestoreBoard - " + std::to_string(broken) + " of " + std::to_string(rows.size()) +
                         " kept rows of the board cannot be read and are left out.");
}

void BoardKeeper::Take(BoardEvent event) {
  LogErrors(world_, "TakeBoardEvent", false, [&] {
    TakeAt(UTCNow(world_.Time), std::move(event));
    return true;
  });
}

void BoardKeeper::TakeAnnouncements(const AlertCollection& alerts, const SpotFilter& filter) {
  if (!alerts.WereRead()) return;
  LogErrors(world_, "TakeAnnouncements", false, [&] {
    auto read = AnnouncementsOf(alerts, filter);
    if (read == announced_) return true;
    announced_ = read;
    TakeAt(UTCNow(world_.Time), std::move(read));
    return true;
  });
}

void BoardKeeper::TakeSpots(const SpotCollection& spots) {
  auto oldestFirst = spots;
  oldestFirst.Reverse();
  for (const auto& [key, spot] : oldestFirst) TakeSpot(*spot);
}

void BoardKeeper::TakeSpot(const Spot& spot) {
  if (auto read = SotawatchSpotOf(spot, UTCNow(world_.Time))) Take(std::move(*read));
}

void BoardKeeper::TakeDecision(const Spot& spot, bool wasSent, std::string_view words) {
  Take(DecisionOf(spot, UTCNow(world_.Time), wasSent, words));
}

void BoardKeeper::TakeAt(DateTime utcNow, BoardEvent event) {
  const TimedEvent timed{utcNow, std::move(event)};
  board_.Take(timed);
  if (auto text = writer_.Write(timed); !text.empty()) events_.push_back({timed.When, std::move(text)});
  SaveLater();
  Changed.Raise();
}

void BoardKeeper::Hear(std::string_view lines) {
  LogErrors(world_, "HearForBoard", false, [&] {
    while (!lines.empty()) {
      const auto line = lines.substr(0, lines.find('\n'));
      HearLine(line);
      lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    }
    return true;
  });
}

void BoardKeeper::HearLine(std::string_view line) {
  const auto station = StationInLine(line);
  const auto plain = PlainBaseCallsign(station);
  const bool isFollowed = plain ? board_.Follows(*plain) : board_.Follows(GetBaseCallsign(station));
  if (!isFollowed) return;
  const auto now = UTCNow(world_.Time);
  if (auto heard = SkimmerHeardIn(line, now)) TakeAt(now, std::move(*heard));
}

void BoardKeeper::SaveLater() {
  if (std::exchange(isSavingLater_, true)) return;
  saving_ = world_.Events.CallAfter(TimeBetweenSaves, [this] { Save(); });
}

void BoardKeeper::Save() {
  isSavingLater_ = false;
  LogErrors(world_, "SaveBoard", false, [&] {
    SavePending();
    return true;
  });
}

// A new store gets everything there is.
void BoardKeeper::SavePending() {
  ForgetOld();
  const auto revision = board_.Revision();
  auto result = world_.Store.Save(Pending());
  NoteFailure(result.Words);
  if (result.Outcome == StoreOutcome::MadeAnew) {
    saved_ = 0;
    writer_.Forget();
    result = world_.Store.Save(Pending());
  }
  if (result.Outcome == StoreOutcome::Done) {
    saved_ = revision;
    events_.clear();
    gone_.clear();
  } else if (!world_.ShuttingDown) {
    SaveLater();
  }
}

void BoardKeeper::ForgetOld() {
  const auto now = world_.Time.Now();
  if (forgotAt_ && now - *forgotAt_ < TimeBetweenForgetting) return;
  forgotAt_ = now;
  const auto forgotten = board_.Forget(UTCNow(world_.Time));
  gone_.insert(gone_.end(), forgotten.begin(), forgotten.end());
}

StoreChange BoardKeeper::Pending() {
  if (events_.size() > MostEventsWaiting)
    events_.erase(events_.begin(), events_.end() - static_cast<std::ptrdiff_t>(MostEventsWaiting));
  StoreChange change;
  change.Since = AddSeconds(UTCNow(world_.Time), -SecondsKept);
  change.IsLast = world_.ShuttingDown;
  change.GoneRows = gone_;
  change.Events = events_;
  for (const auto number : board_.ChangedSince(saved_)) change.Rows.push_back(Kept(*board_.Find(number)));
  return change;
}

void BoardKeeper::NoteFailure(const std::string& words) {
  if (!words.empty() && words != lastFailure_) LogEvent(world_, "KeepBoard - " + words);
  lastFailure_ = words;
}

}  // namespace brelwin
