#include "feed.h"

#include <algorithm>
#include <utility>

#include "day_script.h"

namespace practice {
namespace {

constexpr std::int64_t HoursBeforeTheStart = 4;
constexpr std::size_t KeptSpots = 500;

}  // namespace

std::int64_t PresentTime(std::int64_t scriptSecond, double speed, std::int64_t origin) {
  if (scriptSecond < 0) return origin + scriptSecond;
  return origin + static_cast<std::int64_t>(static_cast<double>(scriptSecond) / speed);
}

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
  const auto moment = PresentTime(spot.Second, speed_, origin_);
  return published_.empty() ? moment : std::max(moment, published_.front().Time + 1);
}

void Feed::ReadNextDay() {
  const auto day = ScriptDay(seed_, nextDay_++);
  upcoming_.insert(upcoming_.end(), day.begin(), day.end());
}

}  // namespace practice
