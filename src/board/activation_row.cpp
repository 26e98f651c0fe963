#include "board/activation_row.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "radio/dates.h"
#include "radio/frequency.h"

namespace brelwin {
namespace {

constexpr std::size_t MostEvents = 200;
constexpr std::size_t MostSignals = 720;
constexpr std::size_t MostHearings = 300;
constexpr std::size_t MostReports = 100;
constexpr std::int64_t SecondsToSettle = 60;  // after a QSY
constexpr std::int64_t SilenceBeforeNews = std::int64_t{15} * 60;

template <class List>
void KeepNewest(List& list, std::size_t most) {
  if (list.size() > most) list.erase(list.begin(), list.end() - static_cast<std::ptrdiff_t>(most));
}

void Tell(ActivationRow& row, DateTime when, StoryKind kind, std::string words) {
  const auto place = std::ranges::upper_bound(row.Story, when, {}, &StoryEvent::When);
  row.Story.insert(place, {when, kind, std::move(words)});
  KeepNewest(row.Story, MostEvents);
  row.LastEvent = std::max(row.LastEvent, when);
}

// A first tuning is no change of it.
void Tune(ActivationRow& row, std::optional<Tuning> next, DateTime when) {
  if (row.Tuned && next && IsQSY(*row.Tuned, *next))
    Tell(row, when, StoryKind::QSY, "QSY from " + TuningText(*row.Tuned) + " to " + TuningText(*next));
  row.Tuned = std::move(next);
}

// Skimmers that still hear the old place, or an echo, must not move the station to and fro.
bool MovedJustNow(const ActivationRow& row, DateTime when) {
  return std::ranges::any_of(row.Story, [&](const StoryEvent& event) {
    return event.Kind == StoryKind::QSY && when.Seconds - event.When.Seconds < SecondsToSettle;
  });
}

void TuneByHearing(ActivationRow& row, DateTime when) {
  auto next = TuningAfterHearing(row.Tuned, row.Facts);
  const bool moves = row.Tuned && next && IsQSY(*row.Tuned, *next);
  if (!moves || !MovedJustNow(row, when)) Tune(row, std::move(next), when);
}

std::string WindowWords(const Announcement& announcement) {
  return DateTimeText(announcement.Planned).substr(0, 16) + ", " + ClockText(announcement.Begin) + " to " +
         ClockText(announcement.End);
}

std::string_view WithdrawalWords(Withdrawal reason) {
  switch (reason) {
    case Withdrawal::None: return "announced again";
    case Withdrawal::Cancelled: return "cancelled by the activator";
    case Withdrawal::OptedOut: return "asks not to be spotted automatically";
    case Withdrawal::RemovedByEntry: return "removed by an entry of the modifications file";
  }
  return {};
}

void TellDifference(ActivationRow& row, const Announcement& before, const Announcement& after, DateTime now) {
  if (before.Withdrawn != after.Withdrawn)
    Tell(row, now, after.Stands() ? StoryKind::Announced : StoryKind::Withdrawn,
         std::string(WithdrawalWords(after.Withdrawn)));
  if (before.Planned != after.Planned || before.Comment != after.Comment)
    Tell(row, now, StoryKind::Amended, "amended: " + WindowWords(after));
}

// The one that this announcement replaces: under its key, else one that was taken off before its time.
std::vector<Announcement>::iterator Replaced(ActivationRow& row, const Announcement& announcement) {
  auto& all = row.Facts.Announcements;
  const auto same = std::ranges::find(all, announcement.Key, &Announcement::Key);
  return same != all.end() ? same : std::ranges::find(all, true, &Announcement::IsGone);
}

void Summarize(ActivationRow& row, const Hearing& hearing) {
  auto& heard = row.Facts.Heard;
  if (!heard) heard = HeardSummary{hearing.When, hearing.When, 0, hearing.Signal, hearing.Speed};
  heard->Last = std::max(heard->Last, hearing.When);
  ++heard->Lines;
  heard->BestSignal = std::max(heard->BestSignal, hearing.Signal);
  heard->LastSpeed = hearing.Speed;
}

void NoteSignal(ActivationRow& row, const Hearing& hearing) {
  const DateTime minute{hearing.When.Seconds - hearing.When.Seconds % 60};
  const auto band = static_cast<float>(BandFromFrequency(hearing.FrequencyInMhz));
  const auto known = std::find_if(row.Signals.rbegin(), row.Signals.rend(), [&](const SignalPoint& point) {
    return point.Minute != minute || point.BandInMhz == band;
  });
  if (known != row.Signals.rend() && known->Minute == minute) {
    known->Signal = std::max(known->Signal, hearing.Signal);
    return;
  }
  row.Signals.push_back({minute, band, hearing.Signal});
  KeepNewest(row.Signals, MostSignals);
}

void KeepHearing(ActivationRow& row, const Hearing& hearing) {
  auto& hearings = row.Facts.Hearings;
  hearings.push_back(hearing);
  while (hearings.size() > MostHearings ||
         hearing.When.Seconds - hearings.front().When.Seconds > SecondsOfHearings)
    hearings.pop_front();
}

std::string ReportWords(const Report& report) {
  auto words = report.IsSelfSpot ? "spotted by himself" : "spotted by " + report.Spotter;
  words += " on " + TuningText({report.FrequencyInMhz, report.Mode, {}, false});
  return report.Comment.empty() ? words : words + ": " + report.Comment;
}

}  // namespace

void TakeAnnouncement(ActivationRow& row, const Announcement& announcement, DateTime now) {
  auto& all = row.Facts.Announcements;
  if (const auto before = Replaced(row, announcement); before != all.end()) {
    TellDifference(row, *before, announcement, now);
    *before = announcement;
  } else {
    all.push_back(announcement);
    const auto kind = announcement.Stands() ? StoryKind::Announced : StoryKind::Withdrawn;
    const auto more =
        announcement.Stands() ? "" : ", " + std::string(WithdrawalWords(announcement.Withdrawn));
    Tell(row, now, kind, "announced for " + WindowWords(announcement) + more);
  }
  std::ranges::stable_sort(all, {}, &Announcement::Planned);
}

void TakeAnnouncementGone(ActivationRow& row, std::string_view key, DateTime now) {
  auto& all = row.Facts.Announcements;
  const auto gone = std::ranges::find(all, key, &Announcement::Key);
  if (gone == all.end() || gone->IsGone) return;
  gone->IsGone = true;
  Tell(row, now, StoryKind::Withdrawn, "taken off the list of announcements");
}

void TakeHearing(ActivationRow& row, const Hearing& hearing) {
  const auto& heard = row.Facts.Heard;
  if (!heard || hearing.When.Seconds - heard->Last.Seconds >= SilenceBeforeNews)
    Tell(row, hearing.When, StoryKind::Heard,
         "heard by " + hearing.Skimmer + " on " +
             TuningText({hearing.FrequencyInMhz, hearing.Mode, {}, false}));
  Summarize(row, hearing);
  NoteSignal(row, hearing);
  KeepHearing(row, hearing);
  row.LastEvent = std::max(row.LastEvent, hearing.When);
  TuneByHearing(row, hearing.When);
}

void TakeReport(ActivationRow& row, const Report& report) {
  TakeReportBack(row, report.ID);
  auto& reports = row.Facts.Reports;
  const auto place = std::ranges::upper_bound(reports, report.When, {}, &Report::When);
  const bool isNewest = place == reports.end();
  reports.insert(place, report);
  KeepNewest(reports, MostReports);
  Tell(row, report.When, report.SaysGone ? StoryKind::QRT : StoryKind::Spotted, ReportWords(report));
  if (isNewest) Tune(row, TuningAfterReport(row.Tuned, row.Facts), report.When);
}

bool TakeReportBack(ActivationRow& row, std::string_view id) {
  return std::erase_if(row.Facts.Reports, [&](const Report& report) { return report.ID == id; }) > 0;
}

void TakeGatewayWord(ActivationRow& row, const GatewayWord& word) {
  const auto& last = row.Facts.Gateway;
  const bool isNews = !last || last->WasSent != word.WasSent || last->Words != word.Words || word.WasSent;
  if (isNews) Tell(row, word.When, word.WasSent ? StoryKind::Posted : StoryKind::HeldBack, word.Words);
  row.Facts.Gateway = word;
}

void TakeMove(ActivationRow& row, std::string_view summit, DateTime now) {
  row.Facts.MovedTo = summit;
  row.Facts.MovedAt = now;
  Tell(row, now, StoryKind::Moved, "moved to " + row.Facts.MovedTo);
}

void LearnPlace(ActivationRow& row, const StationOnSummit& who) {
  if (row.Who.Summit.empty()) row.Who.Summit = who.Summit;
  if (row.Who.SummitName.empty()) row.Who.SummitName = who.SummitName;
  if (row.Who.Points == 0) row.Who.Points = who.Points;
  if (row.Who.Station.size() < who.Station.size()) row.Who.Station = who.Station;
}

}  // namespace brelwin
