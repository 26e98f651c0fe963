#include "ui/sound_decision.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <set>
#include <string>

#include "base/text.h"
#include "radio/callsign.h"

namespace brelwin {
namespace {

constexpr std::int16_t NewSummit = 1;
constexpr std::int16_t NewStation = 2;
constexpr std::int16_t NewBand = 3;
constexpr std::int16_t NewMode = 4;
constexpr std::int16_t NewFrequency = 5;

std::string SummitOf(const Spot& spot) {
  return UpperCase(Trim(spot.SummitDesignator));
}

// What makes two spots the same news; the fields below the level that decides stay empty.
struct News {
  std::string Summit;
  std::string Station;
  float Band = 0;
  std::string Mode;
  float Frequency = 0;

  auto operator<=>(const News&) const = default;
};

News NewsDownTo(std::int16_t level, const Spot& spot) {
  News news;
  news.Summit = SummitOf(spot);
  if (level >= NewStation) news.Station = GetBaseCallsign(spot.Station);
  if (level >= NewBand) news.Band = spot.BandInMhz;
  if (level >= NewMode) news.Mode = UpperCase(spot.ModeString);
  if (level >= NewFrequency) news.Frequency = spot.FrequencyInMhz;
  return news;
}

// What has been on the air already, so far as it is on the summits of the candidates: the list may be long,
// and most of it is about other summits.
class KnownNews {
 public:
  KnownNews(std::int16_t level, const SpotCollection& candidates) : level_(level) {
    for (const auto& entry : candidates) summits_.insert(SummitOf(*entry.Item));
    summits_.erase("");  // no summit is no common place
  }

  void Add(const Spot& spot) {
    if (spot.Kind != SpotKind::Test && summits_.contains(SummitOf(spot)))
      news_.insert(NewsDownTo(level_, spot));
  }

  // What is only shown, and who has left the air, is no news.
  bool Holds(const Spot& spot) const {
    return spot.Kind != SpotKind::Normal || news_.contains(NewsDownTo(level_, spot));
  }

 private:
  std::int16_t level_;
  std::set<std::string> summits_;
  std::set<News> news_;
};

// The spots of the list that came before the batch are known at once; those of the batch that are in the list
// too become known one by one.
std::set<std::string_view> LearnList(const SpotCollection& spotList, const SpotCollection& newSpots,
                                     KnownNews& known) {
  std::set<std::string_view> batch;
  for (const auto& entry : newSpots) batch.insert(entry.Item->ID);
  std::set<std::string_view> listedOfBatch;
  for (const auto& entry : spotList) {
    if (batch.contains(entry.Item->ID)) {
      listedOfBatch.insert(entry.Item->ID);
    } else {
      known.Add(*entry.Item);
    }
  }
  return listedOfBatch;
}

std::vector<SpotPointer> AllOf(const SpotCollection& spots) {
  std::vector<SpotPointer> all;
  for (const auto& entry : spots) {
    if (entry.Item->Kind != SpotKind::Test) all.push_back(entry.Item);
  }
  return all;
}

std::vector<SpotPointer> NewSpotsDownTo(std::int16_t level, const SpotCollection& candidates,
                                        const SpotCollection& newSpots, const SpotCollection& spotList) {
  KnownNews known(level, candidates);
  const auto listed = LearnList(spotList, newSpots, known);
  std::vector<SpotPointer> calling;
  for (auto entry = newSpots.end(); entry != newSpots.begin();) {
    const auto& [key, spot] = *--entry;
    if (candidates.Contains(key) && !known.Holds(*spot)) calling.push_back(spot);
    if (listed.contains(spot->ID)) known.Add(*spot);
  }
  std::reverse(calling.begin(), calling.end());
  return calling;
}

}  // namespace

std::vector<SpotPointer> SpotsCallingForSound(std::int16_t playSoundWhen, const SpotCollection& candidates,
                                              const SpotCollection& newSpots,
                                              const SpotCollection& spotList) {
  if (playSoundWhen == SoundForEverySpot) return AllOf(candidates);
  if (playSoundWhen < NewSummit || playSoundWhen > NewFrequency) return {};
  return NewSpotsDownTo(playSoundWhen, candidates, newSpots, spotList);
}

}  // namespace brelwin
