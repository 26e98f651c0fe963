#include "needs/worked_log.h"

#include <algorithm>
#include <array>
#include <utility>

#include "radio/callsign.h"

namespace brelwin {
namespace {

std::string_view AssociationOf(std::string_view summit) {
  return summit.substr(0, summit.find('/'));
}

std::string StationKey(std::string_view callsign, std::string_view summit) {
  return GetBaseCallsign(callsign) + " " + std::string(summit);
}

void KeepLatest(std::unordered_map<std::string, DateTime>& contacts, const std::string& key, DateTime time) {
  auto& latest = contacts.try_emplace(key, time).first->second;
  latest = std::max(latest, time);
}

bool IsSameDay(DateTime one, DateTime other) {
  const auto left = CalendarFromDateTime(one);
  const auto right = CalendarFromDateTime(other);
  return left.Year == right.Year && left.Month == right.Month && left.Day == right.Day;
}

}  // namespace

std::string MarksText(const NeedMarks& marks) {
  const std::array<std::pair<bool, std::string_view>, 5> words{
      {{marks.IsNewAssociation, "new association"},
       {marks.CompletesSummit, "complete"},
       {marks.IsNewSummit, "new summit"},
       {marks.IsNewThisYear && !marks.IsNewSummit, "new this year"},
       {marks.IsWorkedToday, "worked today"}}};
  std::string text;
  for (const auto& [isSet, word] : words)
    if (isSet) text.append(text.empty() ? "" : ", ").append(word);
  return text;
}

void WorkedLog::Add(const Contact& contact) {
  if (!contact.MySummit.empty()) activated_.insert(contact.MySummit);
  KeepLatest(stations_, StationKey(contact.Callsign, {}), contact.Time);
  if (contact.Summit.empty()) return;
  KeepLatest(stations_, StationKey(contact.Callsign, contact.Summit), contact.Time);
  KeepLatest(summits_, contact.Summit, contact.Time);
  associations_.emplace(AssociationOf(contact.Summit));
}

NeedMarks WorkedLog::MarksOf(std::string_view callsign, std::string_view summit, DateTime now) const {
  const auto code = SummitCodeOf(summit);
  NeedMarks marks;
  const auto station = stations_.find(StationKey(callsign, code));
  marks.IsWorkedToday = station != stations_.end() && IsSameDay(station->second, now);
  if (code.empty()) return marks;
  const auto worked = summits_.find(code);
  marks.IsNewSummit = worked == summits_.end();
  marks.CompletesSummit = marks.IsNewSummit && activated_.contains(code);
  marks.IsNewThisYear =
      marks.IsNewSummit || CalendarFromDateTime(worked->second).Year < CalendarFromDateTime(now).Year;
  marks.IsNewAssociation = !associations_.contains(std::string(AssociationOf(code)));
  return marks;
}

}  // namespace brelwin
