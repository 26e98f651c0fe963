#include "site.h"

#include <charconv>

#include "escape.h"
#include "pages.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

string_view PathOf(string_view target) {
  return target.substr(0, target.find('?'));
}

// The value of a parameter of the query, as it stands there.
string_view Parameter(string_view target, string_view name) {
  target.remove_prefix(std::min(PathOf(target).size() + 1, target.size()));
  while (!target.empty()) {
    const auto field = target.substr(0, target.find('&'));
    target.remove_prefix(std::min(field.size() + 1, target.size()));
    if (field.size() > name.size() && field.starts_with(name) && field[name.size()] == '=')
      return field.substr(name.size() + 1);
  }
  return {};
}

std::int64_t NumberOr0(string_view text) {
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool IsForm(const Asked& asked) {
  return asked.Method == "POST" && PathOf(asked.Target) == SpotlitePath;
}

}  // namespace

Site::Site(SharedFeed& feed, Ledger& ledger, SiteOptions options)
    : feed_(feed),
      ledger_(ledger),
      options_(std::move(options)),
      spotlite_(options_.Play.Seed, options_.Form),
      service_(options_.Play, options_.Json),
      announcements_(options_.Play),
      random_(options_.Play.Seed, 502) {}

Exchange Site::Answer(const Asked& asked, std::int64_t now) {
  const std::scoped_lock lock(mutex_);
  Exchange exchange{++requests_, asked.Method, asked.Target, {}, false, {}};
  Record record("asked");
  record.Number("request", exchange.Number).Text("method", asked.Method).Text("target", asked.Target);
  record.Text("agent", asked.Agent);
  if (!asked.KnownTag.empty()) record.Text("known_tag", asked.KnownTag);
  if (asked.Method != "GET") record.Text("body", asked.Body);
  if (IsForm(asked)) record.Texts("fields", ReadForm(asked.Body));
  ledger_.Write(record);
  if (IsForm(asked))
    TakeForm(asked, now, exchange);
  else
    exchange.Page = PageFor(asked, now);
  return exchange;
}

void Site::Sent(const Exchange& exchange, bool whole) {
  const std::scoped_lock lock(mutex_);
  Record record("served");
  record.Number("request", exchange.Number).Text("method", exchange.Method).Text("target", exchange.Target);
  record.Number("status", exchange.Page.Status).Flag("whole", whole && !exchange.Page.CutAt);
  if (!exchange.Answer.empty()) record.Text("answer", exchange.Answer).Flag("taken", exchange.IsTaken);
  if (!exchange.Page.Location.empty()) record.Text("location", exchange.Page.Location);
  if (!exchange.Page.Tag.empty()) record.Text("tag", exchange.Page.Tag);
  if (!exchange.Page.RetryAfter.empty()) record.Text("retry_after", exchange.Page.RetryAfter);
  auto& [request, body] = lastBodies_[exchange.Target];
  if (!body.empty() && body == exchange.Page.SentBody()) {
    record.Number("body_of", request);
  } else {
    record.Text("body", exchange.Page.SentBody());
    request = exchange.Number;
    body = exchange.Page.SentBody();
  }
  ledger_.Write(record);
}

std::vector<PublishedSpot> Site::SpotsOfFeed(std::int64_t now) {
  auto spots = feed_.Newest(now, options_.ItemsOfAPage);
  for (auto& spot : spots) {
    const bool isOwn = spot.What.Station.find(spot.What.Spotter) != string::npos;
    spot.IsDated = !isOwn || spot.Time % 100 >= options_.UndatedInAHundred;
  }
  return spots;
}

bool Site::AlertsAreAway(std::int64_t now) const {
  return (now - options_.Play.Origin) % options_.AlertsAreAwayEvery < options_.SecondsWithoutAlerts;
}

// The feed is built anew only when there is something new, or somebody reaches it by another address.
string Site::Rss(const string& baseAddress, std::int64_t now) {
  const auto spots = SpotsOfFeed(now);
  const auto newest = spots.empty() ? 0 : spots.front().Identity();
  const auto link = "<link>" + baseAddress + "/</link>";
  if (newest != newestInFeed_ || feedText_.find(link) == string::npos)
    feedText_ = RssPage(spots, spots.empty() ? now : spots.front().Time, baseAddress);
  newestInFeed_ = newest;
  return feedText_;
}

Reply Site::PageFor(const Asked& asked, std::int64_t now) {
  const auto path = PathOf(asked.Target);
  Reply page;
  if (asked.Method != "GET") return {.Status = 404};
  if ((path == "/alerts.php" || path.starts_with("/api/alerts/")) && AlertsAreAway(now)) return {.Status = 0};
  if (path == "/RssFeed") {
    page.Type = "application/rss+xml; charset=utf-8";
    page.Body = Rss(asked.BaseAddress, now);
  } else if (path == "/search.json") {
    page.Type = "application/json; charset=utf-8";
    page.Body =
        SearchPage(feed_.Newest(now, options_.ItemsOfAPage), NumberOr0(Parameter(asked.Target, "since_id")));
  } else if (path == "/alerts.php") {
    page.Body = AlertsPage(announcements_.Announcements(now));
  } else if (IsOfService(path)) {
    page = ServicePage(asked, path.substr(ServiceRoot.size()), now);
  } else if (path == "/summitslist.csv") {
    return {.Type = "text/csv; charset=utf-8", .Body = SummitsListFile()};
  } else if (path == "/summits.php") {
    return {.Body = SummitPage(PercentDecoded(Parameter(asked.Target, "summit")))};
  } else if (path.starts_with("/db/") && path.size() > 4) {
    return {.Body = OperatorPage(PercentDecoded(path.substr(4)))};
  } else {
    return path == PostedPath ? spotlite_.Posted(asked.Target) : Reply{.Status = 404};
  }
  Trouble(page);
  return page;
}

bool Site::IsOfService(string_view path) const {
  return service_.IsOpen() && path.starts_with(ServiceRoot);
}

Reply Site::ServicePage(const Asked& asked, string_view path, std::int64_t now) {
  return service_.Answer(path, asked.KnownTag, feed_.Newest(now, SIZE_MAX), announcements_, now);
}

void Site::TakeForm(const Asked& asked, std::int64_t now, Exchange& exchange) {
  auto taken = spotlite_.Take(ReadForm(asked.Body));
  exchange.Answer = NameOf(taken.Answer);
  exchange.IsTaken = taken.Spot.has_value();
  exchange.Page = std::move(taken.Page);
  const auto lag = static_cast<std::int64_t>(spotlite_.Options().SecondsOfLag);
  if (taken.Spot) feed_.Publish(std::move(*taken.Spot), now + lag);
}

void Site::Trouble(Reply& page) {
  if (page.Body.empty() || random_.Between(1, 1000) > options_.TroublesInAThousand) return;
  switch (random_.Between(1, 5)) {
    case 1: page = {.Status = 0}; break;
    case 2: page = {.Status = 500, .Body = "<html><body>Internal Server Error</body></html>\n"}; break;
    case 3: page.Body.clear(); break;
    case 4:
      page.CutAt =
          static_cast<std::size_t>(random_.Between(0, static_cast<std::int64_t>(page.Body.size()) - 1));
      break;
    default: page.Wait = random_.Between(1000, 20'000); break;
  }
}

}  // namespace practice
