#include "feed.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "day_script.h"

namespace practice {
namespace {

constexpr std::int64_t HoursBeforeTheStart = 4;
constexpr std::size_t KeptSpots = 10'000;  // more than a day of the script has, even a fast one

void Keep(std::deque<PublishedSpot>& spots, PublishedSpot spot) {
  spots.push_front(std::move(spot));
  if (spots.size() > KeptSpots) spots.pop_back();
}

std::vector<PublishedSpot> First(const std::deque<PublishedSpot>& spots, std::size_t count) {
  const auto end = spots.begin() + static_cast<std::ptrdiff_t>(std::min(count, spots.size()));
  return {spots.begin(), end};
}

}  // namespace

std::int64_t PresentTime(std::int64_t scriptSecond, double speed, std::int64_t origin) {
  if (scriptSecond < 0) return origin + scriptSecond;
  return origin + static_cast<std::int64_t>(static_cast<double>(scriptSecond) / speed);
}

Feed::Feed(std::uint64_t seed, double speed, std::int64_t origin, std::size_t crowd)
    : seed_(seed), speed_(speed), origin_(origin), crowd_(crowd) {
  ReadNextDay();
  std::erase_if(upcoming_,
                [](const ScriptedSpot& spot) { return spot.Second < -HoursBeforeTheStart * 3600; });
}

std::vector<PublishedSpot> Feed::Newest(std::int64_t now, std::size_t count) {
  Advance(now);
  return First(published_, count);
}

std::vector<PublishedSpot> Feed::OnTheAir(std::int64_t now, std::size_t count) {
  Advance(now);
  return First(onTheAir_, count);
}

void Feed::Publish(ScriptedSpot spot, std::int64_t moment) {
  posted_.emplace(moment, std::move(spot));
}

// What was posted and what is scripted, in the order of time.
void Feed::Advance(std::int64_t now) {
  while (true) {
    while (upcoming_.empty()) ReadNextDay();
    const auto scripted = PresentTime(upcoming_.front().Second, speed_, origin_);
    const bool isPostedFirst = NextPostedMoment() < scripted;
    if (!(isPostedFirst ? PublishNextPosted(now) : PlayNextScripted(now))) return;
  }
}

bool Feed::PublishNextPosted(std::int64_t until) {
  const auto moment = FreeMoment(NextPostedMoment());
  if (moment > until) return false;
  Keep(published_, {moment, std::move(posted_.begin()->second)});
  posted_.erase(posted_.begin());
  return true;
}

bool Feed::PlayNextScripted(std::int64_t until) {
  auto& spot = upcoming_.front();
  const auto scripted = PresentTime(spot.Second, speed_, origin_);
  const auto moment = spot.IsSpotted ? FreeMoment(scripted) : scripted;
  if (moment > until) return false;
  Keep(onTheAir_, {scripted, spot});
  if (spot.IsSpotted) Keep(published_, {moment, std::move(spot)});
  upcoming_.pop_front();
  return true;
}

// No two spots share a second.
std::int64_t Feed::FreeMoment(std::int64_t wanted) const {
  return published_.empty() ? wanted : std::max(wanted, published_.front().Time + 1);
}

std::int64_t Feed::NextPostedMoment() const {
  return posted_.empty() ? std::numeric_limits<std::int64_t>::max() : posted_.begin()->first;
}

void Feed::ReadNextDay() {
  const auto day = ScriptDay(seed_, nextDay_++, crowd_);
  upcoming_.insert(upcoming_.end(), day.begin(), day.end());
}

}  // namespace practice
