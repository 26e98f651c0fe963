#include "board/board.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <variant>

namespace brelwin {
namespace {

bool HasEnded(const Announcement& announcement, DateTime time) {
  return announcement.End < time;
}

}  // namespace

void Board::Take(const TimedEvent& event) {
  std::visit([&](const auto& what) { Apply(what, event.When); }, event.Event);
}

void Board::Apply(const AnnouncementsRead& read, DateTime now) {
  MarkGone(read, now);
  for (const auto& announced : read.All) {
    if (!announced.Who.BaseCallsign.empty()) TakeAnnounced(announced, now);
  }
}

// The page drops alerts whose time has passed; what goes before its time was taken back.
void Board::MarkGone(const AnnouncementsRead& read, DateTime now) {
  std::unordered_set<std::string_view> keys;
  for (const auto& announced : read.All) keys.insert(announced.What.Key);
  for (const auto& [key, number] : ofAlert_) {
    if (keys.contains(key)) continue;
    auto& row = rows_.at(number);
    const auto before = std::ranges::find(row.Facts.Announcements, key, &Announcement::Key);
    if (before == row.Facts.Announcements.end() || before->IsGone || before->Planned <= now) continue;
    TakeAnnouncementGone(row, key, now);
    Changed(row);
  }
}

void Board::TakeAnnounced(const AnnouncedStation& announced, DateTime now) {
  const auto& what = announced.What;
  const auto known = ofAlert_.find(what.Key);
  auto* row = known != ofAlert_.end()
                  ? &rows_.at(known->second)
                  : RowOfAnnouncement(RowsOf(announced.Who.BaseCallsign), announced.Who.Summit, what);
  if (row == nullptr && HasEnded(what, now)) return;  // nobody was there to see it
  if (row == nullptr) row = &NewRow(announced.Who);
  if (std::ranges::find(row->Facts.Announcements, what) != row->Facts.Announcements.end()) return;
  LearnPlace(*row, announced.Who);
  TakeAnnouncement(*row, what, now);
  ofAlert_[what.Key] = row->Number;
  Changed(*row);
}

void Board::Apply(const SkimmerHeard& heard, DateTime /*now*/) {
  if (heard.BaseCallsign.empty()) return;
  const auto rows = RowsOf(heard.BaseCallsign);
  auto* row = RowOnTheAir(rows, heard.What.When);
  if (row == nullptr && !IsExpected(rows, heard.What.When)) return;
  if (row == nullptr) row = &RowBegun({heard.Station, heard.BaseCallsign, {}, {}, 0}, heard.What.When);
  TakeHearing(*row, heard.What);
  LeaveOthers(*row, heard.What.When);
  Changed(*row);
}

void Board::Apply(const SotawatchSpotRead& spot, DateTime /*now*/) {
  const auto& who = spot.Who;
  if (who.BaseCallsign.empty()) return;
  if (auto* before = RowOfReport(who.BaseCallsign, spot.What.ID)) {
    const auto& reports = before->Facts.Reports;
    if (std::ranges::find(reports, spot.What) != reports.end()) return;
    TakeReportBack(*before, spot.What.ID);
    Changed(*before);
  }
  const auto time = spot.What.When;
  const auto rows = RowsOf(who.BaseCallsign);
  auto* row = who.Summit.empty() ? RowOnTheAir(rows, time) : RowOnSummit(rows, who.Summit, time);
  if (row == nullptr) row = &RowBegun(who, time);
  LearnPlace(*row, who);
  TakeReport(*row, spot.What);
  LeaveOthers(*row, time);
  Changed(*row);
}

void Board::Apply(const SotawatchSpotTakenBack& spot, DateTime /*now*/) {
  auto* row = RowOfReport(spot.BaseCallsign, spot.ID);
  if (row == nullptr) return;
  TakeReportBack(*row, spot.ID);
  Changed(*row);
}

void Board::Apply(const GatewayDecided& decided, DateTime /*now*/) {
  auto* row = RowOnTheAir(RowsOf(decided.BaseCallsign), decided.What.When);
  if (row == nullptr) return;
  TakeGatewayWord(*row, decided.What);
  Changed(*row);
}

bool Board::Restore(ActivationRow row) {
  const auto number = row.Number;
  if (number < 1 || rows_.contains(number)) return false;
  lastNumber_ = std::max(lastNumber_, number);
  auto& restored = rows_.emplace(number, std::move(row)).first->second;
  Index(restored);
  for (const auto& announcement : restored.Facts.Announcements) ofAlert_[announcement.Key] = number;
  Changed(restored);
  return true;
}

std::vector<RowNumber> Board::Forget(DateTime now) {
  const auto farthest = AddSeconds(now, limits_.SecondsKept);
  std::vector<std::pair<DateTime, RowNumber>> byAge;
  for (const auto& [number, row] : rows_) {
    const auto span = SpanOf(row.Facts);
    byAge.emplace_back(std::max(row.LastEvent, std::min(span ? span->End : row.LastEvent, farthest)), number);
  }
  std::ranges::sort(byAge);
  const auto tooMany = rows_.size() > limits_.MostRows ? rows_.size() - limits_.MostRows : 0;
  std::vector<RowNumber> forgotten;
  for (const auto& [last, number] : byAge) {
    if (forgotten.size() >= tooMany && now.Seconds - last.Seconds <= limits_.SecondsKept) break;
    forgotten.push_back(number);
  }
  for (const auto number : forgotten) Remove(number);
  return forgotten;
}

const ActivationRow* Board::Find(RowNumber number) const {
  const auto found = rows_.find(number);
  return found == rows_.end() ? nullptr : &found->second;
}

std::vector<RowNumber> Board::ChangedSince(BoardRevision revision) const {
  std::vector<RowNumber> changed;
  for (auto entry = byRevision_.upper_bound(revision); entry != byRevision_.end(); ++entry)
    changed.push_back(entry->second);
  return changed;
}

// A row that begins after a silence in an open window goes on with that window.
ActivationRow& Board::RowBegun(const StationOnSummit& who, DateTime time) {
  auto* before = RowToTakeOver(RowsOf(who.BaseCallsign), who.Summit, time);
  auto& row = NewRow(who);
  if (before != nullptr) TakeOver(*before, row, time);
  return row;
}

ActivationRow& Board::NewRow(const StationOnSummit& who) {
  auto& row = rows_[++lastNumber_];
  row.Number = lastNumber_;
  row.Who = who;
  Index(row);
  return row;
}

void Board::TakeOver(ActivationRow& from, ActivationRow& to, DateTime time) {
  LearnPlace(to, from.Who);
  auto& all = from.Facts.Announcements;
  const auto rest = std::ranges::stable_partition(
      all, [&](const Announcement& announcement) { return HasEnded(announcement, time); });
  for (const auto& announcement : rest) {
    to.Facts.Announcements.push_back(announcement);
    ofAlert_[announcement.Key] = to.Number;
  }
  all.erase(rest.begin(), rest.end());
  Changed(from);
}

void Board::LeaveOthers(const ActivationRow& current, DateTime time) {
  for (auto* left : RowsLeft(RowsOf(current.Who.BaseCallsign), current, time)) {
    TakeMove(*left, current.Who.Summit, time);
    Changed(*left);
  }
}

RowsOfStation Board::RowsOf(const std::string& baseCallsign) {
  RowsOfStation rows;
  const auto found = ofStation_.find(baseCallsign);
  if (found == ofStation_.end()) return rows;
  for (const auto number : found->second) rows.push_back(&rows_.at(number));
  return rows;
}

ActivationRow* Board::RowOfReport(const std::string& baseCallsign, std::string_view id) {
  for (auto* row : RowsOf(baseCallsign)) {
    if (std::ranges::find(row->Facts.Reports, id, &Report::ID) != row->Facts.Reports.end()) return row;
  }
  return nullptr;
}

void Board::Index(const ActivationRow& row) {
  marks_.Add(row.Who.BaseCallsign);
  ofStation_[row.Who.BaseCallsign].push_back(row.Number);
}

void Board::Remove(RowNumber number) {
  const auto& row = rows_.at(number);
  const auto station = ofStation_.find(row.Who.BaseCallsign);
  std::erase(station->second, number);
  if (station->second.empty()) ofStation_.erase(station);
  std::erase_if(ofAlert_, [&](const auto& entry) { return entry.second == number; });
  byRevision_.erase(revisionOf_.at(number));
  revisionOf_.erase(number);
  rows_.erase(number);
}

void Board::Changed(const ActivationRow& row) {
  auto& revision = revisionOf_[row.Number];
  byRevision_.erase(revision);
  revision = ++revision_;
  byRevision_.emplace(revision, row.Number);
}

}  // namespace brelwin
