// The lists of spots: what is shown, what was received, and what the user sees, reads in logs and hears of a
// new spot.
#pragma once

#include <cstddef>
#include <string_view>

#include "around/surroundings.h"
#include "controls/screen.h"
#include "platform/host.h"
#include "settings/configuration.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

struct SpotLists {
  SpotLists(Host& host, Screen& screen, const Configuration& configuration, const Surroundings& around)
      : World(host),
        Tab(screen.Spots),
        Logs(screen.Logs),
        Window(screen.Window),
        Config(configuration),
        Around(around) {}

  Host& World;
  SpotsTab& Tab;
  LogsTab& Logs;
  Form& Window;
  const Configuration& Config;
  const Surroundings& Around;

  SpotCollection SpotList;              // what is shown, newest first, bounded by MaximumSpotsInList
  SpotCollection RecentSotawatchSpots;  // as received, newest first, bounded to 200

  // Spots that the filter has kept out of the list since it was loaded, because their points are not known.
  std::size_t SpotsHiddenForPoints = 0;
};

// Shows a text where the spots would be: a countdown, a failure.
void ShowInsteadOfSpots(SpotListBox& box, std::string_view text);

// Clears the list on the screen, yields twice, then shows the spots as they are by then.
void DisplaySpotList(SpotLists& lists);

// Keeps the newest MaximumSpotsInList spots of the list; 0 or less keeps all.
void TrimSpotList(SpotLists& lists);

// Puts the new spots in front of the list, trims it and shows it.
void MergeIntoSpotList(SpotLists& lists, const SpotCollection& newSpots);

// Logs the spots, leaves those for the list in the collection, and counts those that are kept out of it only
// because their points are not known.
void FilterAndLog(SpotLists& lists, SpotFilter& filter, SpotCollection& spots);

// Sounds and shows what the user wants to be told of new spots; `isFirstLoad` of those that a start brings.
void AlertOn(SpotLists& lists, const SpotCollection& newSpots, SpotFilter& filter, bool isFirstLoad = false);

// Says how many spots have been kept out for their points since the list was loaded, for as long as the list
// is filtered by points.
void ShowHiddenSpots(SpotLists& lists, const FiltersTab& filters);

}  // namespace brelwin
