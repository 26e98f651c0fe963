#include "service_rows.h"

#include <string>
#include <string_view>

#include "activation.h"
#include "random.h"
#include "world.h"

namespace practice {
namespace {

constexpr std::int64_t Minute = 60;
constexpr std::int64_t Hour = 60 * Minute;
constexpr std::uint64_t SpotsStream = 801;
constexpr std::uint64_t AlertsStream = 802;
constexpr std::int64_t BeyondDoubles = std::int64_t{1} << 60;

bool IsOldShape(Random& random, RowShapes shapes) {
  return shapes == RowShapes::Old || (shapes == RowShapes::Mixed && random.OneIn(2));
}

void Correct(Random& random, ScriptedSpot& spot) {
  switch (random.Between(1, 4)) {
    case 1: MoveToAnotherBand(random, spot); break;
    case 2: spot.Mode = spot.Mode == "CW" ? "SSB" : "CW"; break;
    case 3: spot.Summit = random.Pick(Summits()).Reference; break;
    default: spot.Comment = "sorry, I meant: " + std::string(random.Pick(OrdinaryComments())); break;
  }
}

std::int64_t IdOf(std::int64_t time, bool isOld) {
  return isOld ? BeyondDoubles + time * 3 : time * 4;
}

// Somebody tries his own spotting program: as if the activator withdrew, on another band.
SpotRow TestOf(Random& random, SpotRow row) {
  row.Id = IdOf(row.Spot.Time, false) + 1;
  row.Type = SpotType::Test;
  row.IsOld = false;
  MoveToAnotherBand(random, row.Spot.What);
  row.Spot.What.Spotter = row.Spot.What.Station.substr(0, row.Spot.What.Station.find(' '));
  row.Spot.What.Comment = "RBNN please, this is only a test";
  return row;
}

std::uint64_t HashOf(const Announcement& announcement) {
  const auto text = announcement.Station + ' ' + announcement.Summit;
  std::uint64_t hash = 14'695'981'039'346'656'037U;  // FNV-1a
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1'099'511'628'211U;
  return hash ^ static_cast<std::uint64_t>(announcement.Time);
}

}  // namespace

std::vector<SpotRow> RowsOf(const PublishedSpot& spot, std::uint64_t seed, RowShapes shapes,
                            std::int64_t now) {
  Random random(seed ^ static_cast<std::uint64_t>(spot.Time), SpotsStream);
  SpotRow row{.Id = 0, .Spot = spot};
  row.IsOld = IsOldShape(random, shapes);
  row.Id = IdOf(spot.Time, row.IsOld);
  if (spot.What.Comment.starts_with("QRT")) row.Type = SpotType::Qrt;
  const auto test = TestOf(random, row);
  const bool hasTest = shapes != RowShapes::Old && random.OneIn(12);
  const auto correction = spot.Time + random.Between(Minute / 2, 15 * Minute);
  row.IsCorrected = random.OneIn(8) && now >= correction;
  const auto end = spot.Time + random.Between(Minute, 20 * Minute);
  row.IsTakenBack = random.OneIn(15) && now >= end;
  if (row.IsCorrected) Correct(random, row.Spot.What);
  if (hasTest) return {test, row};
  return {row};
}

std::optional<AlertRow> RowOf(Announcement announcement, std::uint64_t seed, RowShapes shapes,
                              std::int64_t now) {
  const auto hash = HashOf(announcement);
  Random random(seed ^ hash, AlertsStream);
  const bool isOld = IsOldShape(random, shapes);
  const auto end = announcement.Time - random.Between(-Hour / 2, 6 * Hour);
  if (random.OneIn(10) && now >= end) return {};
  const auto correction = announcement.Time - random.Between(-Hour / 2, 6 * Hour);
  if (random.OneIn(10) && now >= correction) announcement.Comment = SomeRemark(random);
  const auto id = static_cast<std::int64_t>(isOld ? hash >> 2 : hash >> 33);
  return AlertRow{id, std::move(announcement), isOld};
}

}  // namespace practice
