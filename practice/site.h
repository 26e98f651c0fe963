// What the practice network answers on the web, whoever carries its requests and answers: a real server, or a
// rehearsal in one process.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "announcements.h"
#include "day_script.h"
#include "feed.h"
#include "ledger.h"
#include "random.h"
#include "reply.h"
#include "service.h"
#include "spotlite.h"

namespace practice {

struct Asked {
  std::string Method;  // "GET" or "POST"
  std::string Target;  // path and query
  std::string Body;
  std::string Agent;
  std::string BaseAddress;    // "http://127.0.0.1:8080", without a closing slash
  std::string KnownTag = {};  // of the answer that the asker still has; empty: of none
};

struct SiteOptions {
  Playing Play;
  SpotliteOptions Form;
  ServiceOptions Json = {};
  int TroublesInAThousand = 0;  // of pages that come late, cut, empty, with status 500 or not at all
  std::size_t ItemsOfAPage = 100;
  int UndatedInAHundred = 0;                       // of the feed's spots that activators made of themselves
  std::int64_t SecondsWithoutAlerts = 0;           // for so long the alerts page is away, from the start on
  std::int64_t AlertsAreAwayEvery = SecondsOfDay;  // and again after each of so many seconds
};

// One request and its answer, on the way.
struct Exchange {
  std::int64_t Number = 0;  // of the request, as in the ledger
  std::string Method;
  std::string Target;
  std::string Answer;  // of a form; empty for pages
  bool IsTaken = false;
  Reply Page;
};

class Site {
 public:
  // Feed and ledger must outlive the site.
  Site(SharedFeed& feed, Ledger& ledger, SiteOptions options);

  // Writes the request into the ledger and works out the answer. `now` is in seconds since 1970. May be
  // called from any thread, as the other one.
  Exchange Answer(const Asked& asked, std::int64_t now);

  // To be called when the last byte leaves, or when the answer is given up before that. A body that is the
  // same as the one before of its address is named by the request that had it.
  void Sent(const Exchange& exchange, bool whole = true);

 private:
  Reply PageFor(const Asked& asked, std::int64_t now);
  bool IsOfService(std::string_view path) const;
  Reply ServicePage(const Asked& asked, std::string_view path, std::int64_t now);
  bool AlertsAreAway(std::int64_t now) const;
  std::vector<PublishedSpot> SpotsOfFeed(std::int64_t now);
  std::string Rss(const std::string& baseAddress, std::int64_t now);
  void TakeForm(const Asked& asked, std::int64_t now, Exchange& exchange);
  void Trouble(Reply& page);

  SharedFeed& feed_;
  Ledger& ledger_;
  SiteOptions options_;
  Spotlite spotlite_;
  Service service_;
  AnnouncementBook announcements_;
  std::mutex mutex_;
  Random random_;
  std::int64_t requests_ = 0;
  std::int64_t newestInFeed_ = 0;  // identity of the first spot of the feed as it was built last
  std::string feedText_;
  std::map<std::string, std::pair<std::int64_t, std::string>>
      lastBodies_;  // by target: the request that had it
};

}  // namespace practice
