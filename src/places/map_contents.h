// What the map shows, as data, and the same in words for those who do not see it.
#pragma once

#include <string>
#include <vector>

#include "base/date_time.h"
#include "places/geo_point.h"

namespace brelwin {

struct MapActivation {
  std::string Id;  // of its row; never empty
  GeoPoint Place;
  std::string Glyph;  // one character for the state, beside the word: nothing is told by colour alone
  std::string State;  // "heard"
  std::string Label;  // "G4ABC/P on G/LD-003"

  bool operator==(const MapActivation&) const = default;
};

struct MapSkimmer {
  std::string Callsign;
  GeoPoint Place;

  bool operator==(const MapSkimmer&) const = default;
};

struct MapContents {
  GeoPoint Center;
  DateTime UtcNow;  // for the grey line
  std::vector<MapActivation> Activations;
  std::string SelectedId;            // empty for none
  std::vector<MapSkimmer> Skimmers;  // those that hear the selected activation

  bool operator==(const MapContents&) const = default;
};

// The selected activation; none when it is not on the map. Points into the contents.
const MapActivation* SelectedActivation(const MapContents& contents);

// The activation after the selected one, or before it with -1, around the end; the first, or the last with
// -1, when none is selected. None without activations. Points into the contents.
const MapActivation* NextActivation(const MapContents& contents, int step);

// "IN80dk, 1234 km at 312°, long path 38796 km at 132°", seen from the centre.
std::string PlaceWords(const MapContents& contents, GeoPoint place);

// "heard, G4ABC/P on G/LD-003, IO84lm, 1655 km at 5°, ..."
std::string ActivationWords(const MapContents& contents, const MapActivation& activation);

// "RBN1AA, JO31, 900 km at 40°, ..."
std::string SkimmerWords(const MapContents& contents, const MapSkimmer& skimmer);

// The whole map as sentences for a screen reader.
std::string MapWords(const MapContents& contents);

}  // namespace brelwin
