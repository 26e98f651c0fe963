#include "day_script.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "activation.h"
#include "random.h"
#include "world.h"

namespace practice {
namespace {

std::vector<std::string_view> ShuffledOperators(Random& random) {
  std::vector<std::string_view> operators(Operators().begin(), Operators().end());
  for (auto last = operators.size() - 1; last > 0; --last)
    std::swap(operators[last],
              operators[static_cast<std::size_t>(random.Between(0, static_cast<std::int64_t>(last)))]);
  return operators;
}

}  // namespace

std::vector<ScriptedSpot> ScriptDay(std::uint64_t seed, std::int64_t day) {
  constexpr std::int64_t minute = 60;
  Random random(seed, static_cast<std::uint64_t>(day));
  const auto end = (day + 1) * SecondsOfDay;
  const auto operators = ShuffledOperators(random);
  std::vector<ScriptedSpot> spots;
  std::size_t turn = 0;
  // Everybody has a turn before anybody has another, so that nobody is on two summits at once.
  for (auto second = day * SecondsOfDay; second < end; second += random.Between(6 * minute, 12 * minute))
    std::ranges::copy_if(ScriptActivation(random, operators[turn++ % operators.size()], second),
                         std::back_inserter(spots),
                         [end](const ScriptedSpot& spot) { return spot.Second < end; });
  std::ranges::stable_sort(spots, {}, &ScriptedSpot::Second);
  return spots;
}

}  // namespace practice
