#include "service.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "random.h"
#include "service_json.h"
#include "times.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::int64_t Hour = 3600;
constexpr std::int64_t HalfHour = Hour / 2;
constexpr std::int64_t MostSpots = 200;
constexpr std::uint64_t OutagesStream = 803;
constexpr std::uint64_t OddRowsStream = 804;
constexpr std::int64_t OddRowEvery = 25;
constexpr std::int64_t MostHours = 10'000;
constexpr string_view OfSpots = "spots/";
constexpr string_view OfAlerts = "alerts/";
constexpr string_view Everywhere = "all/all";

enum class Outage : std::uint8_t { Busy, Deprecated, Empty, Forbidden, NotFound, Gone };

struct Period {
  Outage Kind;
  std::int64_t End;
};

// The outage of this moment. Each half hour may have one.
std::optional<Period> OutageAt(std::uint64_t seed, int inAHundred, std::int64_t now) {
  const auto halfHour = now / HalfHour;
  Random random(seed ^ static_cast<std::uint64_t>(halfHour), OutagesStream);
  if (random.Between(1, 100) > inAHundred) return {};
  const auto begin = halfHour * HalfHour + random.Between(0, HalfHour - 600);
  const Period period{static_cast<Outage>(random.Between(0, 5)), begin + random.Between(30, 600)};
  if (now < begin || now >= period.End) return {};
  return period;
}

std::uint64_t HashOf(string_view text) {
  std::uint64_t hash = 14'695'981'039'346'656'037U;  // FNV-1a
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1'099'511'628'211U;
  return hash;
}

string Hexadecimal(std::uint64_t number, std::size_t digits) {
  string text(digits, '0');
  for (auto& digit : text) {
    digit = "0123456789abcdef"[number % 16];
    number /= 16;
  }
  return text;
}

// A UUID that stands for the state that is described.
Reply Epoch(string_view state) {
  const auto hash = HashOf(state);
  const auto other = HashOf(string(state) + '.');
  return {.Type = "text/plain; charset=utf-8",
          .Body = Hexadecimal(hash, 8) + '-' + Hexadecimal(hash >> 32, 4) + "-4" +
                  Hexadecimal(hash >> 48, 3) + "-8" + Hexadecimal(other, 3) + '-' +
                  Hexadecimal(other >> 12, 12)};
}

Reply List(string rows) {
  return {.Type = "application/json; charset=utf-8", .Body = '[' + std::move(rows) + ']'};
}

// When to come again is told in either of two ways.
Reply Busy(std::int64_t end, std::int64_t now) {
  return {.Status = 429, .RetryAfter = end % 2 == 0 ? std::to_string(end - now) : RssTime(end)};
}

// The whole numbers in front of "all/all", such as 24 and 100 of "24/100/all/all"; none when it is another
// path.
std::vector<std::int64_t> LimitsOf(string_view path) {
  if (!path.ends_with(Everywhere)) return {};
  path.remove_suffix(Everywhere.size());
  std::vector<std::int64_t> limits;
  while (!path.empty()) {
    std::int64_t limit = 0;
    const auto end = std::min(path.find('/'), path.size() - 1);
    const auto read = std::from_chars(path.data(), path.data() + end, limit);
    if (end == 0 || read.ptr != path.data() + end) return {};
    limits.push_back(limit);
    path.remove_prefix(end + 1);
  }
  return limits;
}

}  // namespace

Reply Service::Answer(string_view path, string_view knownTag, const std::vector<PublishedSpot>& published,
                      AnnouncementBook& announcements, std::int64_t now) const {
  if (auto refusal = Refusal(path, now)) return *std::move(refusal);
  auto reply = Page(path, published, announcements, now);
  if (reply.Status != 200) return reply;
  reply.Tag = '"' + Hexadecimal(HashOf(reply.Body), 16) + '"';
  if (reply.Tag == knownTag) return {.Status = 304, .Type = reply.Type, .Tag = reply.Tag};
  return reply;
}

std::optional<Reply> Service::Refusal(string_view path, std::int64_t now) const {
  const auto outage = OutageAt(playing_.Seed, options_.OutagesInAHundred, now);
  if (!outage) return {};
  const bool isEpoch = path.ends_with("epoch");
  const bool isOfSpots = path.starts_with(OfSpots);
  switch (outage->Kind) {
    case Outage::Busy: return Busy(outage->End, now);
    case Outage::Deprecated:
      return isEpoch ? Epoch("deprecated") : List(isOfSpots ? DeprecatedSpot() : DeprecatedAlert());
    case Outage::Empty: return isEpoch ? Epoch("empty") : List({});
    case Outage::Forbidden: return Reply{.Status = 403};
    case Outage::NotFound: return Reply{.Status = 404};
    case Outage::Gone: break;
  }
  return Reply{.Status = 410};
}

Reply Service::Page(string_view path, const std::vector<PublishedSpot>& published,
                    AnnouncementBook& announcements, std::int64_t now) const {
  const auto limits = LimitsOf(path.substr(std::min(path.find('/') + 1, path.size())));
  if (path.starts_with(OfSpots)) {
    if (path == "spots/epoch") return SpotEpoch(published, now);
    if (limits.size() == 1 && limits[0] != 0) return SpotList(limits[0], published, now);
  } else if (path.starts_with(OfAlerts)) {
    const auto announced = announcements.Announcements(now);
    if (path == "alerts/epoch") return AlertEpoch(announced, now);
    if (limits.size() == 2) return AlertList(limits[0], limits[1], announced, now);
  }
  return {.Status = 404};
}

// Publishing and correcting begin a new epoch; taking a spot back does not.
Reply Service::SpotEpoch(const std::vector<PublishedSpot>& published, std::int64_t now) const {
  string state;
  for (const auto& spot : published)
    for (const auto& row : RowsOf(spot, playing_.Seed, options_.Shapes, now))
      state += std::to_string(row.Id) + (row.IsCorrected ? "c" : " ");
  return Epoch(state);
}

// So many spots, or below 0 those of so many hours.
Reply Service::SpotList(std::int64_t limit, const std::vector<PublishedSpot>& published,
                        std::int64_t now) const {
  const auto oldest = limit > 0 ? 0 : now + std::max(limit, -MostHours) * Hour;
  auto left = limit > 0 ? std::min(limit, MostSpots) : INT64_MAX;
  string rows;
  for (const auto& spot : published) {
    if (spot.Time < oldest || left <= 0) break;
    for (const auto& row : RowsOf(spot, playing_.Seed, options_.Shapes, now))
      if (!row.IsTakenBack && left-- > 0) AddRow(JsonOf(row), row.Id, rows);
  }
  return List(std::move(rows));
}

Reply Service::AlertEpoch(const std::vector<Announcement>& announced, std::int64_t now) const {
  string state;
  for (const auto& announcement : announced)
    if (const auto row = RowOf(announcement, playing_.Seed, options_.Shapes, now))
      state += std::to_string(row->Id) + row->What.Comment;
  return Epoch(state);
}

Reply Service::AlertList(std::int64_t hours, std::int64_t limit, const std::vector<Announcement>& announced,
                         std::int64_t now) const {
  const auto latest = now + std::clamp<std::int64_t>(hours, 0, MostHours) * Hour;
  string rows;
  for (const auto& announcement : announced) {
    if (announcement.Time > latest || limit <= 0) break;
    const auto row = RowOf(announcement, playing_.Seed, options_.Shapes, now);
    if (!row) continue;
    --limit;
    AddRow(JsonOf(*row), row->Id, rows);
  }
  return List(std::move(rows));
}

// Among rows of both shapes there are odd ones.
void Service::AddRow(const string& row, std::int64_t id, string& rows) const {
  rows += (rows.empty() ? "" : ",\n") + row;
  Random random(playing_.Seed ^ static_cast<std::uint64_t>(id), OddRowsStream);
  if (options_.Shapes == RowShapes::Mixed && random.OneIn(OddRowEvery)) rows += ",\n" + OddRow(random, row);
}

}  // namespace practice
