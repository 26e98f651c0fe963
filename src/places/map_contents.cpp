#include "places/map_contents.h"

#include <algorithm>
#include <cstddef>

#include "places/great_circle.h"
#include "places/locator.h"

namespace brelwin {
namespace {

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

auto SelectedIn(const MapContents& contents) {
  return std::ranges::find(contents.Activations, contents.SelectedId, &MapActivation::Id);
}

}  // namespace

const MapActivation* SelectedActivation(const MapContents& contents) {
  const auto selected = SelectedIn(contents);
  return selected == contents.Activations.end() ? nullptr : &*selected;
}

const MapActivation* NextActivation(const MapContents& contents, int step) {
  const auto& all = contents.Activations;
  if (all.empty()) return nullptr;
  const auto selected = SelectedIn(contents);
  if (selected == all.end()) return step > 0 ? &all.front() : &all.back();
  if (step > 0) return selected + 1 == all.end() ? &all.front() : &*(selected + 1);
  return selected == all.begin() ? &all.back() : &*(selected - 1);
}

std::string PlaceWords(const MapContents& contents, GeoPoint place) {
  return LocatorText(place) + ", " + PathText(contents.Center, place);
}

std::string ActivationWords(const MapContents& contents, const MapActivation& activation) {
  return activation.State + ", " + activation.Label + ", " + PlaceWords(contents, activation.Place);
}

std::string SkimmerWords(const MapContents& contents, const MapSkimmer& skimmer) {
  return skimmer.Callsign + ", " + PlaceWords(contents, skimmer.Place);
}

std::string MapWords(const MapContents& contents) {
  auto text = "Centre " + LocatorText(contents.Center) + ". " +
              Counted(contents.Activations.size(), "activation") + ".";
  if (const auto* selected = SelectedActivation(contents))
    text += " Selected: " + ActivationWords(contents, *selected) + ", heard by " +
            Counted(contents.Skimmers.size(), "skimmer") + ".";
  return text;
}

}  // namespace brelwin
