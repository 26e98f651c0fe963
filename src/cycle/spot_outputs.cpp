#include "cycle/spot_outputs.h"

#include <string>

#include "base/text.h"
#include "core/trap.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

std::string HiddenText(std::size_t count) {
  if (count == 1) return "1 spot hidden: its points are not known";
  return std::to_string(count) + " spots hidden: their points are not known";
}

bool ListIsFilteredByPoints(const FiltersTab& tab) {
  return tab.chkFilterSpotDisplay.Value && !Trim(tab.txtFilterPoints.Text.Get()).empty();
}

}  // namespace

void FilterAndLog(MainWindow& window, SpotFilter& filter, SpotCollection& spots) {
  if (filter.FilterSpotDisplay)
    TrapErrorsSilently([&] { window.SpotsHiddenForPoints += CountFailingForUnknownPoints(filter, spots); });
  PerformDisplayFilteringAndSpotLogging(window.World, window.Controls.Logs, window.Config.LogRawSpots, filter,
                                        spots);
}

void ShowHiddenSpots(MainWindow& window) {
  auto& label = window.Controls.Spots.lblSpotsHidden;
  const auto count = window.SpotsHiddenForPoints;
  const bool hasSomeHidden = count > 0 && ListIsFilteredByPoints(window.Controls.Filters);
  label.Caption = hasSomeHidden ? HiddenText(count) : "";
  label.Visible = hasSomeHidden;
}

}  // namespace brelwin
