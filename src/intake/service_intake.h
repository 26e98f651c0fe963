// The JSON service as a feed: asks it when it may be asked, and keeps what it lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "intake/service_listing.h"
#include "platform/host.h"
#include "spots/feed_result.h"
#include "spots/service_client.h"

namespace brelwin {

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
