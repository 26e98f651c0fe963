#include "cycle/spot_list_display.h"

#include <utility>

#include "radio/numbers.h"
#include "spots/spot_collections.h"

namespace brelwin {
namespace {

std::int32_t MaximumSpotsInList(const MainWindow& window) {
  return WholeNumber(window.Controls.Spots.txtMaximumSpotsInList.Text.Get());
}

}  // namespace

void ShowInsteadOfSpots(MainWindow& window, std::string_view text) {
  window.Controls.Spots.txtSPOTList.Contents = std::string(text);
}

void DisplaySpotList(MainWindow& window, const SpotCollection& spots) {
  auto& list = window.Controls.Spots.txtSPOTList;
  list.Contents = std::string();
  window.World.Events.DoEvents();
  window.World.Events.DoEvents();
  SpotRows rows;
  rows.reserve(spots.Count());
  for (const auto& entry : spots) rows.push_back(entry.Item);
  list.Contents = std::move(rows);
}

void TrimSpotList(MainWindow& window) {
  const auto maximum = MaximumSpotsInList(window);
  if (maximum > 0) TrimCollection(maximum, window.SpotList);
}

void MergeIntoSpotList(MainWindow& window, const SpotCollection& newSpots) {
  MergeInFront(newSpots, window.SpotList, MaximumSpotsInList(window));
  DisplaySpotList(window, window.SpotList);
}

}  // namespace brelwin
