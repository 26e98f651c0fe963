#include "board/band_activity.h"

#include <algorithm>
#include <numeric>
#include <variant>

#include "board/tuning.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::int64_t SecondsOfHour = 3600;
constexpr std::int64_t SecondsKept = 24 * SecondsOfHour;
constexpr std::int64_t SecondsUntilKept = 20;  // the board is saved a few seconds after a change

std::string NameOf(double band) {
  const auto name = NameOfBand(band);
  return name.empty() ? SingleText(static_cast<float>(band)) + " MHz" : std::string(name);
}

std::string CountWords(std::uint32_t skimmers, std::uint32_t sotawatch) {
  return std::to_string(skimmers) + " by skimmers, " + std::to_string(sotawatch) + " on Sotawatch";
}

using Parts = std::array<std::uint32_t, BandParts>;

std::uint32_t Sum(const Parts& parts) {
  return std::accumulate(parts.begin(), parts.end(), 0U);
}

// Puts what lies within the table's time into its band and part.
class Counter {
 public:
  Counter(DateTime begin, DateTime end) : begin_(begin), end_(end) {}

  void Add(DateTime when, double band, Parts BandCounts::*kind) {
    if (when < begin_ || when >= end_) return;
    const auto part = static_cast<std::size_t>(when.Seconds - begin_.Seconds) * BandParts /
                      static_cast<std::size_t>(end_.Seconds - begin_.Seconds);
    ++(bands_[band].*kind)[part];
  }

  BandTable Result() && {
    BandTable table{begin_, end_, {}};
    for (auto& [band, counts] : bands_) {
      counts.Band = NameOf(band);
      table.Bands.push_back(std::move(counts));
    }
    return table;
  }

 private:
  DateTime begin_;
  DateTime end_;
  std::map<double, BandCounts> bands_;
};

}  // namespace

std::uint32_t BandCounts::SkimmersInAll() const {
  return Sum(Skimmers);
}

std::uint32_t BandCounts::SotawatchInAll() const {
  return Sum(Sotawatch);
}

DateTime BandTable::BeginOf(std::size_t part) const {
  const auto seconds = End.Seconds - Begin.Seconds;
  return AddSeconds(Begin, seconds * static_cast<std::int64_t>(part) / static_cast<std::int64_t>(BandParts));
}

bool BandActivity::ReadOn(ActivationStore& store, DateTime now) {
  const auto until = AddSeconds(now, -SecondsUntilKept);
  const auto oldest = AddSeconds(until, -SecondsKept);
  const auto begin = std::max(readTo_, oldest);
  const auto end = std::min(until, AddSeconds(begin, SecondsOfHour));
  if (end <= begin) return false;
  std::vector<KeptEvent> kept;
  if (store.LoadEvents(begin, end, kept).Outcome == StoreOutcome::NotDone) return false;
  for (const auto& one : kept)
    if (const auto event = reader_.Read(one.Text)) Take(*event);
  readTo_ = end;
  ForgetBefore(oldest);
  return end < until;
}

void BandActivity::Take(const TimedEvent& event) {
  if (const auto* heard = std::get_if<SkimmerHeard>(&event.Event))
    heard_.push_back({heard->What.When, BandFromFrequency(heard->What.FrequencyInMhz)});
  if (const auto* spot = std::get_if<SotawatchSpotRead>(&event.Event))
    spotted_[spot->What.ID] = {spot->What.When, BandFromFrequency(spot->What.FrequencyInMhz)};
  if (const auto* spot = std::get_if<SotawatchSpotTakenBack>(&event.Event)) spotted_.erase(spot->ID);
}

void BandActivity::ForgetBefore(DateTime time) {
  std::erase_if(heard_, [&](const Sighting& one) { return one.When < time; });
  std::erase_if(spotted_, [&](const auto& one) { return one.second.When < time; });
}

BandTable BandActivity::Count(int hours) const {
  Counter counter(AddSeconds(readTo_, -std::clamp(hours, 1, 24) * SecondsOfHour), readTo_);
  for (const auto& one : heard_) counter.Add(one.When, one.Band, &BandCounts::Skimmers);
  for (const auto& [id, one] : spotted_) counter.Add(one.When, one.Band, &BandCounts::Sotawatch);
  return std::move(counter).Result();
}

std::string BandTableWords(const BandTable& table) {
  std::string words;
  for (const auto& band : table.Bands)
    words += (words.empty() ? "" : "; ") + band.Band + ": " +
             CountWords(band.SkimmersInAll(), band.SotawatchInAll());
  return words.empty() ? "no spots" : words;
}

std::string BandPartWords(const BandTable& table, const BandCounts& band, std::size_t part) {
  return band.Band + ", " + ClockText(table.BeginOf(part)) + " to " + ClockText(table.BeginOf(part + 1)) +
         " UTC: " + CountWords(band.Skimmers[part], band.Sotawatch[part]);
}

}  // namespace brelwin
