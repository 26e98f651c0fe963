#include "ui/sound_decision.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <optional>
#include <set>
#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "radio/callsign.h"

namespace brelwin {

namespace {

// A feed gone wild must not make thousands of names to look for.
constexpr std::size_t MostCalls = 200;
constexpr std::size_t LongestReference = 32;

constexpr std::string_view SpecialCallsign = "Q0ZZ";

// The sound files of the program's folder. The folder is read once: it may hold years of archives, and a long
// list asks for hundreds of names.
class SoundFiles {
 public:
  explicit SoundFiles(const Host& host) : host_(host) {
    for (const auto& name : host.Disk.NamesIn(host.ProgramFolder)) {
      if (auto upper = UpperCase(name); upper.ends_with(".WAV")) upperNames_.insert(std::move(upper));
    }
  }

  std::optional<std::string> Find(std::string_view name) const {
    if (Contains(name, "..")) return {};
    auto file = std::string(name) + ".wav";
    const bool isThere =
        upperNames_.contains(UpperCase(file)) && FileExists(host_, InProgramFolder(host_, file));
    return isThere ? std::optional(std::move(file)) : std::nullopt;
  }

 private:
  const Host& host_;
  std::set<std::string> upperNames_;
};

std::optional<std::string> FindForCallsigns(const SoundFiles& files,
                                            const KeyedCollection<std::string>& callsigns) {
  if (callsigns.Contains(SpecialCallsign)) {
    if (auto file = files.Find(SpecialCallsign)) return file;
  }
  std::size_t looked = 0;
  for (const auto& entry : callsigns) {
    if (++looked > MostCalls) break;
    if (auto file = files.Find(entry.Item)) return file;
  }
  return {};
}

std::optional<std::string> FindForReference(const SoundFiles& files, std::string_view reference) {
  const auto name = Replace(FirstCharacters(reference, LongestReference), "/", "-");
  for (auto length = CharacterCount(name); length > 0; --length) {
    if (auto file = files.Find(FirstCharacters(name, length))) return file;
  }
  return {};
}

std::optional<std::string> FindForReferences(const SoundFiles& files,
                                             const KeyedCollection<std::string>& references) {
  std::size_t looked = 0;
  for (const auto& entry : references) {
    if (++looked > MostCalls) break;
    if (auto file = FindForReference(files, entry.Item)) return file;
  }
  return {};
}

}  // namespace

std::string ChooseSoundFile(const Host& host, const SoundCalls& calls, std::string_view alertSound) {
  const SoundFiles files(host);
  if (auto file = FindForCallsigns(files, calls.Callsigns)) return *file;
  if (auto file = FindForReferences(files, calls.SummitReferences)) return *file;
  return std::string(alertSound);
}

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
