#include "cycle/spot_lists.h"

#include <string>
#include <utility>

#include "base/text.h"
#include "core/trap.h"
#include "radio/numbers.h"
#include "spots/spot_collections.h"
#include "ui/alerting.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

std::int32_t MaximumSpotsInList(const SpotLists& lists) {
  return WholeNumber(lists.Tab.txtMaximumSpotsInList.Text.Get());
}

std::string HiddenText(std::size_t count) {
  if (count == 1) return "1 spot hidden: its points are not known";
  return std::to_string(count) + " spots hidden: their points are not known";
}

bool ListIsFilteredByPoints(const FiltersTab& tab) {
  return tab.chkFilterSpotDisplay.Value && !Trim(tab.txtFilterPoints.Text.Get()).empty();
}

}  // namespace

void ShowInsteadOfSpots(SpotListBox& box, std::string_view text) {
  box.Contents = std::string(text);
}

void DisplaySpotList(SpotLists& lists) {
  auto& box = lists.Tab.txtSPOTList;
  box.Contents = std::string();
  lists.World.Events.DoEvents();
  lists.World.Events.DoEvents();
  SpotRows rows;
  rows.reserve(lists.SpotList.Count());
  for (const auto& entry : lists.SpotList) rows.push_back(entry.Item);
  box.Contents = std::move(rows);
}

void TrimSpotList(SpotLists& lists) {
  const auto maximum = MaximumSpotsInList(lists);
  if (maximum > 0) TrimCollection(maximum, lists.SpotList);
}

void MergeIntoSpotList(SpotLists& lists, const SpotCollection& newSpots) {
  MergeInFront(newSpots, lists.SpotList, MaximumSpotsInList(lists));
  DisplaySpotList(lists);
}

void FilterAndLog(SpotLists& lists, SpotFilter& filter, SpotCollection& spots) {
  if (filter.FilterSpotDisplay)
    TrapErrorsSilently([&] { lists.SpotsHiddenForPoints += CountFailingForUnknownPoints(filter, spots); });
  PerformDisplayFilteringAndSpotLogging(lists.World, lists.Logs, lists.Config.LogRawSpots, filter, spots);
}

void AlertOn(SpotLists& lists, const SpotCollection& newSpots, SpotFilter& filter, bool isFirstLoad) {
  AlertOnNewSpots(lists.World, newSpots, filter, lists.SpotList, nullptr, &lists.Window, isFirstLoad,
                  lists.Around.SoundQuestion());
}

void ShowHiddenSpots(SpotLists& lists, const FiltersTab& filters) {
  auto& label = lists.Tab.lblSpotsHidden;
  const auto count = lists.SpotsHiddenForPoints;
  const bool hasSomeHidden = count > 0 && ListIsFilteredByPoints(filters);
  label.Caption = hasSomeHidden ? HiddenText(count) : "";
  label.Visible = hasSomeHidden;
}

}  // namespace brelwin
