// How a reader finds his way in the list of spots: what a search finds in it, and what of it is shown while
// it is narrowed to one thing. Neither changes the list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "spots/spot.h"

namespace brelwin {

// The numbers, from 0, of those of `count` lines that hold the text; ASCII letters match in either case. None
// hold an empty text.
std::vector<std::size_t> LinesWith(std::string_view text, std::size_t count,
                                   const std::function<std::string(std::size_t)>& lineAt);

enum class SearchStep : std::uint8_t { Stay, Next, Previous };

// The place, from 0, within the found lines to which a step leads from a line of the list: that line or the
// next one below, the next below, the next above. Past either end it goes on at the other. Empty when nothing
// was found.
std::optional<std::size_t> StepTo(const std::vector<std::size_t>& found, std::size_t line, SearchStep step);

// "3 of 12" when the line is the third of those found, "12 found" when it is none of them, "not found".
std::string SearchWords(const std::vector<std::size_t>& found, std::optional<std::size_t> line);

enum class NarrowBy : std::uint8_t { Station, Summit, Band };

// One thing whose spots alone are shown.
struct Narrowing {
  NarrowBy By = NarrowBy::Station;
  std::string Station;  // as in the spot; compared by what callsigns it may stand for
  std::string Summit;
  float BandInMhz = 0;
};

// Narrowed to what the spot has of it; empty when it has none: no summit, or no band.
std::optional<Narrowing> NarrowingTo(NarrowBy by, const Spot& spot);

// Whether a spot is shown while the list is narrowed so.
bool IsWithin(const Narrowing& narrowing, const Spot& spot);

// "station G4ABC/P", "summit G/LD-001", "band 14 MHz".
std::string NarrowingWords(const Narrowing& narrowing);

}  // namespace brelwin
