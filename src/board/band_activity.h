// How many spots each band had in the last hours, those of skimmers and of Sotawatch apart. It is read from
// the kept events when somebody wants to see it, and costs nothing before.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "board/row_text.h"
#include "platform/activation_store.h"

namespace brelwin {

// Parts of the time that is looked at.
inline constexpr std::size_t BandParts = 24;

struct BandCounts {
  std::string Band;                                 // "20m"; "21.9 MHz" for what is outside of the bands
  std::array<std::uint32_t, BandParts> Skimmers{};  // oldest first
  std::array<std::uint32_t, BandParts> Sotawatch{};

  std::uint32_t SkimmersInAll() const;
  std::uint32_t SotawatchInAll() const;
};

struct BandTable {
  DateTime Begin;
  DateTime End;
  std::vector<BandCounts> Bands;  // those with a spot, lowest frequency first

  DateTime BeginOf(std::size_t part) const;  // the part ends where the next one begins
};

class BandActivity {
 public:
  // Takes the events that were kept since the last call, of an hour at most; the first call begins 24 hours
  // ago. False when there is nothing more to read. Events are kept some seconds after they happen.
  bool ReadOn(ActivationStore& store, DateTime now);

  // The last hours, 1 to 24, up to where the events were read.
  BandTable Count(int hours) const;

 private:
  struct Sighting {
    DateTime When;
    double Band = 0;  // its lower edge in MHz
  };

  void Take(const TimedEvent& event);
  void ForgetBefore(DateTime time);

  EventReader reader_;
  DateTime readTo_;
  std::vector<Sighting> heard_;
  std::map<std::string, Sighting> spotted_;  // by the ID of the spot
};

// "20m: 34 by skimmers, 2 on Sotawatch; 40m: ...", and the same for one part of one band with its times.
std::string BandTableWords(const BandTable& table);
std::string BandPartWords(const BandTable& table, const BandCounts& band, std::size_t part);

}  // namespace brelwin
