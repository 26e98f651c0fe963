#include "feed.h"

#include <algorithm>
#include <utility>

#include "day_script.h"

namespace practice {
namespace {

constexpr std::int64_t HoursBeforeTheStart = 4;
constexpr std::size_t KeptSpots = 500;

}  // namespace

Feed::Feed(std::uint64_t seed, double speed, std::int64_t origin)
    : seed_(seed), speed_(speed), origin_(origin) {
  ReadNextDay();
  std::erase_if(upcoming_,
                [](const ScriptedSpot& spot) { return spot.Second < -HoursBeforeTheStart * 3600; });
}

std::vector<PublishedSpot> Feed::Newest(std::int64_t now, std::size_t count) {
  while (true) {
    while (upcoming_.empty()) ReadNextDay();
    const auto moment = MomentOf(upcoming_.front());
    if (moment > now) break;
    published_.push_front({moment, std::move(upcoming_.front())});
    upcoming_.pop_front();
    if (published_.size() > KeptSpots) published_.pop_back();
  }
  const auto end = published_.begin() + static_cast<std::ptrdiff_t>(std::min(count, published_.size()));
  return {published_.begin(), end};
}

std::int64_t Feed::MomentOf(const ScriptedSpot& spot) const {
  const auto distance =
      spot.Second < 0 ? spot.Second : static_cast<std::int64_t>(static_cast<double>(spot.Second) / speed_);
  const auto earliest = published_.empty() ? origin_ + distance : published_.front().Time + 1;
  return std::max(origin_ + distance, earliest);
}

void Feed::ReadNextDay() {
  const auto day = ScriptDay(seed_, nextDay_++);
  upcoming_.insert(upcoming_.end(), day.begin(), day.end());
}

}  // namespace practice
