#include "intake/service_intake.h"

#include <iterator>
#include <utility>

#include "core/fetch_mark.h"
#include "core/trap.h"
#include "platform/wait.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/web_address.h"
#include "spots/known_activators.h"
#include "spots/service_feed_text.h"
#include "spots/spot_collections.h"

namespace brelwin {
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
    const FetchMark mark(host_);
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
