#include "intake/service_listing.h"

#include <tuple>
#include <utility>

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
  for (auto& listed : rows.Spots) {
    const auto id = listed.First->ID;
    const auto* held = before.Find(id);
    if (held_.Contains(id)) continue;
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

}  // namespace brelwin
