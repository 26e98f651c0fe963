#include "intake/service_intake.h"

#include <iterator>
#include <string>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "core/trap.h"
#include "platform/wait.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/web_address.h"
#include "spots/known_activators.h"
#include "spots/service_feed.h"
#include "spots/spot_collections.h"

namespace brelwin {

namespace {

constexpr std::int64_t NearlyADay = std::int64_t{24} * 60 - 30;  // minutes

// Only what a row of either shape says.
bool SaysTheSame(const Spot& one, const Spot& other) {
  const auto what = [](const Spot& spot) {
    return std::tie(spot.Station, spot.SummitDesignator, spot.FrequencyInMhz, spot.ModeString, spot.Comment,
                    spot.Spotter, spot.Kind, spot.UTCDateTime);
  };
  return what(one) == what(other);
}

bool IsNearlyADayOld(const MadeSpots& made, DateTime utcNow) {
  const auto& time = made.First->UTCDateTime;
  return time && MinutesBetween(*time, utcNow) >= NearlyADay;
}

bool IsTest(const MadeSpots& made) {
  return made.First->Kind == SpotKind::Test;
}

using IDs = std::unordered_set<std::string>;

IDs IDsOfSecondStations(const KeyedCollection<MadeSpots>& held) {
  IDs ids;
  for (const auto& [id, made] : held) {
    if (made.Second != nullptr) ids.insert(made.Second->ID);
  }
  return ids;
}

// The ID that a second station has by its time and spotter may be that of another row's, of a test above all.
void SetApart(const MadeSpots& listed, IDs& taken) {
  if (listed.Second != nullptr && !taken.insert(listed.Second->ID).second)
    listed.Second->ID = listed.First->ID + listed.Second->Station;
}

void NoteDeleted(const MadeSpots& held, ListingChanges& changes) {
  changes.Deleted.push_back(held.First);
  if (held.Second != nullptr) changes.Deleted.push_back(held.Second);
}

void NoteEdit(const SpotPointer& before, const SpotPointer& after, ListingChanges& changes) {
  if (after == nullptr) {
    if (before != nullptr) changes.Deleted.push_back(before);
    return;
  }
  after->IsEdited = true;
  if (before == nullptr) return changes.Added.push_back({after, nullptr});
  after->ID = before->ID;
  changes.Edited.push_back({before, after});
}

// What is held of a row from now on.
MadeSpots Compare(const MadeSpots& held, MadeSpots&& listed, ListingChanges& changes) {
  if (SaysTheSame(*held.First, *listed.First)) return held;
  if (IsTest(held) != IsTest(listed)) {
    NoteDeleted(held, changes);
    changes.Added.push_back(listed);
    return std::move(listed);
  }
  NoteEdit(held.First, listed.First, changes);
  if (listed.Second != nullptr) listed.Second->SpotKey = listed.First->ID;
  NoteEdit(held.Second, listed.Second, changes);
  return std::move(listed);
}

}  // namespace

bool SpotEdit::IsNews() const {
  return Before->FrequencyInMhz != After->FrequencyInMhz || Before->ModeString != After->ModeString ||
         Before->SummitDesignator != After->SummitDesignator;
}

ListingChanges ServiceListing::Take(ListedRows&& rows, DateTime utcNow) {
  ListingChanges changes;
  auto before = std::exchange(held_, {});
  auto taken = IDsOfSecondStations(before);
  for (auto& listed : rows.Spots) {
    const auto id = listed.First->ID;
    const auto* held = before.Find(id);
    if (held_.Contains(id)) continue;
    if (held == nullptr || held->Second == nullptr) SetApart(listed, taken);
    if (held == nullptr) changes.Added.push_back(listed);
    held_.Add(held == nullptr ? std::move(listed) : Compare(*held, std::move(listed), changes), id);
  }
  if (rows.IsWhole) {
    TakeMissing(before, rows, utcNow, changes);
  } else {
    for (const auto& [id, held] : before) held_.Add(held, id);
  }
  return changes;
}

void ServiceListing::TakeMissing(const Held& before, const ListedRows& rows, DateTime utcNow,
                                 ListingChanges& changes) {
  const bool mayBeUnread = rows.Unread > std::exchange(unread_, rows.Unread);
  const auto wasMissing = std::exchange(missing_, {});
  for (const auto& [id, held] : before) {
    if (held_.Contains(id) || IsNearlyADayOld(held, utcNow)) continue;
    if (mayBeUnread && !wasMissing.Contains(id)) {
      missing_.Add(held, id);
    } else {
      NoteDeleted(held, changes);
    }
  }
  for (const auto& [id, held] : missing_) held_.Add(held, id);
}

std::vector<MadeSpots> ServiceListing::All() const {
  std::vector<MadeSpots> all;
  for (const auto& entry : held_) all.push_back(entry.Item);
  return all;
}

namespace {

constexpr std::int64_t MaximumAgeInMinutes = std::int64_t{24} * 60;
constexpr std::string_view EpochPath = "spots/epoch";
constexpr std::string_view WholeListPath = "spots/-24/all/all";  // of the last 24 hours
constexpr std::string_view NewestPath = "spots/100/all/all";     // the last hundred

FeedEnd EndOf(const ServiceAnswer& answer) {
  if (answer.Outcome == ServiceOutcome::Gone) return FeedEnd::Gone;
  if (answer.Outcome == ServiceOutcome::Unchanged) return FeedEnd::EndOfFeed;
  return answer.WasReached ? FeedEnd::NoFeed : FeedEnd::NotOpened;
}

std::string WhatIsWrong(const FeedReadResult& result, const std::string& reason) {
  if (!reason.empty()) return reason;
  if (result.End == FeedEnd::Cut) return "its list broke off";
  return result.End == FeedEnd::Gone ? "it lists no spots any more" : "it answered, but not with a list";
}

void Describe(std::string_view root, const std::string& reason, FeedReadResult& result) {
  const auto service = "the JSON service at " + HostOfAddress(root);
  const auto gone = result.End == FeedEnd::Gone ? "Sotawatch feed gone, " : "No spots from ";
  result.StatusText =
      IsFailure(result.End) ? gone + service + ": " + WhatIsWrong(result, reason) : "Connected to " + service;
  if (IsFailure(result.End)) result.ErrorText = result.StatusText;
}

void AddAll(const std::vector<MadeSpots>& made, SpotCollection& spots) {
  for (const auto& [first, second] : made) {
    AddSpotByID(first, spots);
    AddSpotByID(second, spots);
  }
}

}  // namespace

FeedReadResult ServiceIntake::Read(std::string_view root, CallsignCollection& knownActivators, bool wantsAll,
                                   SpotCollection& spots) {
  std::vector<MadeSpots> added;
  auto result = last_;
  LogErrors(host_, "ReadServiceSpots", false, [&] {
    result = Ask(root, knownActivators, added);
    return true;
  });
  last_ = {};
  last_.End = result.End;
  last_.ErrorText = result.ErrorText;
  last_.StatusText = result.StatusText;
  AddAll(wantsAll ? listing_.All() : added, spots);
  SaveLearnedActivators(host_, result.LearnedActivators, MissingList::IsCreated);
  return result;
}

void ServiceIntake::Forget() {
  listing_.Clear();
  client_.Forget();
  changes_ = {};
  last_ = {};
  last_.StatusText = last_.ErrorText = "The JSON service has not been asked yet";
}

FeedReadResult ServiceIntake::Ask(std::string_view root, CallsignCollection& knownActivators,
                                  std::vector<MadeSpots>& added) {
  auto& schedule = client_.Schedule();
  const bool isWhole = schedule.IsWholeListDue(host_.Time.Now());
  const auto list = ServiceAddress(root, isWhole ? WholeListPath : NewestPath);
  auto answer = client_.Ask(ServiceAddress(root, EpochPath), list, isWhole);
  if (answer.Outcome == ServiceOutcome::NotDue) return last_;
  FeedReadResult result;
  result.End = EndOf(answer);
  if (answer.Outcome == ServiceOutcome::Listed)
    TakeList(answer.Body, isWhole, knownActivators, added, result);
  if (isWhole && !IsFailure(result.End)) schedule.NoteWholeList(host_.Time.Now());
  Describe(root, answer.ErrorText, result);
  return result;
}

// What came before the list broke off is used; but only a list that could be read to its end tells what has
// been deleted.
void ServiceIntake::TakeList(const std::string& body, bool isWhole, CallsignCollection& knownActivators,
                             std::vector<MadeSpots>& added, FeedReadResult& result) {
  ListedRows rows;
  {
    const ActivityMark mark(host_.Going, Activity::FetchInProgress);
    LongWork work(host_);
    ReadServiceSpots(body, MaximumAgeInMinutes, ReadingMomentOf(host_), knownActivators, rows.Spots, result,
                     [&work] { return work.GoesOn(); });
  }
  const bool isRead = !IsFailure(result.End);
  rows.IsWhole = isWhole && isRead && !result.HasMore;
  rows.Unread = result.SkippedItems.size() + result.MoreSkippedItems;
  const auto listed = rows.Spots.size();
  auto changes = listing_.Take(std::move(rows), UTCNow(host_.Time));
  if (!isWhole && listed > 0 && changes.Added.size() >= listed) client_.Schedule().WantWholeList();
  added = std::move(changes.Added);
  for (auto& [before, after] : changes.Edited) {
    if (after->SpotKey.empty())
      after->SpotKey = DuplicateKey(after->stationBaseCallsign, after->FrequencyInMhz);
    changes_.Edited.push_back({std::move(before), std::move(after)});
  }
  std::ranges::move(changes.Deleted, std::back_inserter(changes_.Deleted));
  isRead ? client_.Accept() : client_.Reject();
}

}  // namespace brelwin
