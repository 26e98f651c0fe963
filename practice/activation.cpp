#include "activation.h"

#include "world.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::int64_t Minute = 60;

// Away from home the host country's prefix comes first: "GW/DL1ABC/P".
string CallsignOnTheHill(Random& random, string_view callsign, string_view summit) {
  const auto country = summit.substr(0, summit.find('/'));
  const auto prefix = callsign.starts_with(country) || random.OneIn(2) ? string() : string(country) + "/";
  return prefix + string(callsign) + (random.OneIn(6) ? "" : "/P");
}

string StationText(Random& random, string_view callsign, string_view summit) {
  const auto station = CallsignOnTheHill(random, callsign, summit);
  return random.OneIn(8) ? station + " AND " + string(random.Pick(Chasers())) : station;
}

string PickComment(Random& random) {
  return string(random.OneIn(4) ? random.Pick(AwkwardComments()) : random.Pick(OrdinaryComments()));
}

ScriptedSpot SpottedBy(Random& random, ScriptedSpot spot, string spotter, string comment) {
  spot.Spotter = std::move(spotter);
  spot.Comment = std::move(comment);
  spot.Writing = static_cast<Markup>(random.Between(0, 2));
  return spot;
}

// The first spot after a change of band: the operator's own, by the web or by APRS, or a chaser's.
ScriptedSpot FirstOfBand(Random& random, const ScriptedSpot& spot, string_view callsign) {
  if (random.OneIn(4))
    return SpottedBy(random, spot, string(callsign) + " via APRS", "On the air, sent by APRS");
  if (random.OneIn(3)) return SpottedBy(random, spot, string(callsign), PickComment(random));
  return SpottedBy(random, spot, string(random.Pick(Chasers())), PickComment(random));
}

}  // namespace

void MoveToAnotherBand(Random& random, ScriptedSpot& spot) {
  const auto& plan = random.Pick(BandPlans());
  spot.Frequency =
      FrequencyText(plan.From + plan.Step * random.Between(0, (plan.To - plan.From) / plan.Step));
  spot.Mode = plan.Mode;
}

std::string FrequencyText(std::int64_t hundredHertz) {
  auto decimals = std::to_string(10000 + hundredHertz % 10000).substr(1);
  if (decimals.back() == '0') decimals.pop_back();
  return std::to_string(hundredHertz / 10000) + "." + decimals;
}

std::vector<ScriptedSpot> ScriptActivation(Random& random, string_view callsign, std::int64_t beginning) {
  ScriptedSpot spot;
  spot.Second = beginning;
  spot.Summit = random.Pick(Summits()).Reference;
  spot.Station = StationText(random, callsign, spot.Summit);

  std::vector<ScriptedSpot> spots;
  for (auto bands = random.Between(1, 4); bands > 0; --bands) {
    MoveToAnotherBand(random, spot);
    spots.push_back(spot);
    spots.back().IsSpotted = false;
    if (!random.OneIn(3)) {
      spot.Second += random.Between(0, 4 * Minute);
      spots.push_back(FirstOfBand(random, spot, callsign));
    }
    for (auto chasers = random.Between(0, 2); chasers > 0; --chasers) {
      spot.Second += random.Between(1 * Minute, 8 * Minute);
      spots.push_back(SpottedBy(random, spot, string(random.Pick(Chasers())), PickComment(random)));
    }
    spot.Second += random.Between(3 * Minute, 12 * Minute);
  }
  if (random.OneIn(2))
    spots.push_back(SpottedBy(random, spot, string(callsign), "QRT, thanks to all chasers"));
  return spots;
}

}  // namespace practice
