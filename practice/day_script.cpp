#include "day_script.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "activation.h"
#include "random.h"
#include "world.h"

namespace practice {
namespace {

constexpr std::int64_t Minute = 60;

std::vector<std::string> ShuffledOperators(Random& random, std::size_t crowd) {
  std::vector<std::string> operators(Operators().begin(), Operators().end());
  std::ranges::copy(CrowdCallsigns(crowd), std::back_inserter(operators));
  for (auto last = operators.size() - 1; last > 0; --last)
    std::swap(operators[last],
              operators[static_cast<std::size_t>(random.Between(0, static_cast<std::int64_t>(last)))]);
  return operators;
}

// Seconds from one beginning of an activation to the next.
std::int64_t Gap(Random& random, std::size_t operators, std::size_t crowd) {
  if (crowd == 0) return random.Between(6 * Minute, 12 * Minute);
  const auto usual = SecondsOfDay / static_cast<std::int64_t>(operators);
  return random.Between(usual * 7 / 10, usual * 13 / 10 + 1);
}

}  // namespace

std::vector<ScriptedSpot> ScriptDay(std::uint64_t seed, std::int64_t day, std::size_t crowd) {
  Random random(seed, static_cast<std::uint64_t>(day));
  const auto end = (day + 1) * SecondsOfDay;
  const auto operators = ShuffledOperators(random, crowd);
  std::vector<ScriptedSpot> spots;
  std::size_t turn = 0;
  // Everybody has a turn before anybody has another, so that nobody is on two summits at once.
  for (auto second = day * SecondsOfDay; second < end; second += Gap(random, operators.size(), crowd))
    std::ranges::copy_if(ScriptActivation(random, operators[turn++ % operators.size()], second),
                         std::back_inserter(spots),
                         [end](const ScriptedSpot& spot) { return spot.Second < end; });
  std::ranges::stable_sort(spots, {}, &ScriptedSpot::Second);
  return spots;
}

}  // namespace practice
