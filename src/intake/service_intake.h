// The JSON service as a feed: asks it when it may be asked, and tells which spots are new, which were
// edited and which have been deleted against what it listed before.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "spots/feed_result.h"
#include "spots/service_client.h"
#include "spots/spot_maker.h"

namespace brelwin {

// A spot that says something else than before, under the same ID.
struct SpotEdit {
  SpotPointer Before;
  SpotPointer After;

  // Whether the frequency, the mode or the summit is another one.
  bool IsNews() const;
};

struct ListingChanges {
  std::vector<MadeSpots> Added;  // newest first
  std::vector<SpotEdit> Edited;
  std::vector<SpotPointer> Deleted;
};

// What of the service's answer the listing is told.
struct ListedRows {
  std::vector<MadeSpots> Spots;  // newest first, with the service's IDs
  bool IsWhole = false;          // all that the service has, so that what is missing has been deleted
  std::size_t Unread = 0;        // rows that could not be read
};

class ServiceListing {
 public:
  // Notes what is listed and tells what has changed. A spot that is as it was stays the same object. Those
  // that are nearly a day old leave the list by themselves and do not count as deleted. What is missing when
  // there are more unread rows than before may be one of them: it counts as deleted when it is still missing
  // in the next whole list.
  ListingChanges Take(ListedRows&& rows, DateTime utcNow);

  // Every spot that is listed, newest first.
  std::vector<MadeSpots> All() const;

  void Clear() { *this = {}; }

 private:
  using Held = KeyedCollection<MadeSpots>;  // by the service's ID

  void TakeMissing(const Held& before, const ListedRows& rows, DateTime utcNow, ListingChanges& changes);

  Held held_;
  Held missing_;            // held, but not in the last whole list
  std::size_t unread_ = 0;  // of that list
};

// What has changed in spots that were delivered before.
struct SpotChanges {
  std::vector<SpotEdit> Edited;
  std::vector<SpotPointer> Deleted;
};

class ServiceIntake {
 public:
  ServiceIntake(Host& host, ServiceClient& client) : host_(host), client_(client) {}

  // Asks the service below the address, when it may be asked, and adds the spots that it did not list before,
  // newest first and under their IDs; with `wantsAll` all that it lists. While it may not be asked the result
  // is the last one's.
  FeedReadResult Read(std::string_view root, CallsignCollection& knownActivators, bool wantsAll,
                      SpotCollection& spots);

  // The changes since they were last taken.
  const SpotChanges& Changes() const { return changes_; }
  SpotChanges TakeChanges() { return std::exchange(changes_, {}); }

  // Forgets what is listed; the next reading asks for the whole list.
  void Forget();

 private:
  FeedReadResult Ask(std::string_view root, CallsignCollection& knownActivators,
                     std::vector<MadeSpots>& added);
  void TakeList(const std::string& body, bool isWhole, CallsignCollection& knownActivators,
                std::vector<MadeSpots>& added, FeedReadResult& result);

  Host& host_;
  ServiceClient& client_;
  ServiceListing listing_;
  SpotChanges changes_;
  FeedReadResult last_;
};

}  // namespace brelwin
