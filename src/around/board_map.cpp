#include "around/board_map.h"

#include <string>

#include "base/text.h"
#include "board/activation_row.h"
#include "board/activation_state.h"

namespace brelwin {
namespace {

std::string LabelOf(const StationOnSummit& who) {
  return who.Station + " on " + who.Summit;
}

// On the air, or to be expected there now.
bool IsLive(ActivationState state) {
  switch (state) {
    case ActivationState::Due:
    case ActivationState::Heard:
    case ActivationState::Spotted:
    case ActivationState::HeardAndSpotted:
    case ActivationState::Quiet: return true;
    default: return false;
  }
}

MapActivation ActivationOf(const ActivationRow& row, ActivationState state, GeoPoint place) {
  return {std::to_string(row.Number), place, std::string(StateGlyph(state)), std::string(StateWord(state)),
          LabelOf(row.Who)};
}

}  // namespace

std::optional<BoardMap> MapOf(const Board& board, Surroundings& around, DateTime now, RowNumber selected) {
  if (!around.MyPlace()) return {};
  BoardMap map;
  map.Contents.Center = *around.MyPlace();
  map.Contents.UtcNow = now;
  for (const auto& [number, row] : board.Rows()) {
    const auto state = StateOf(row.Facts, now).State;
    if (!IsLive(state)) continue;
    const auto place = around.PlaceOfSummit(row.Who.Summit);
    if (place)
      map.Contents.Activations.push_back(ActivationOf(row, state, *place));
    else
      ++map.WithoutPlace;
  }
  const auto* chosen = board.Find(selected);
  if (chosen == nullptr) return map;
  map.Contents.SelectedId = std::to_string(selected);
  for (const auto skimmer : SkimmersOf(chosen->Facts, now))
    if (const auto place = around.PlaceOfSkimmer(skimmer))
      map.Contents.Skimmers.push_back({std::string(skimmer), *place});
  return map;
}

}  // namespace brelwin
