// The Sotawatch side of a check: what the chosen feed has delivered goes into the lists, the logs and the
// ear, and what a service has changed in spots that were taken before goes into the lists.
#pragma once

#include "alerts/alert_commands.h"
#include "board/board_keeper.h"
#include "cycle/callsign_lists.h"
#include "cycle/spot_lists.h"
#include "cycle/spot_sources.h"
#include "spots/spot_filter.h"

namespace brelwin {

// What takes the spots of the feed: the lists, the known activators that are learned of, the commands among
// them, and the board.
struct SotawatchSpotTakers {
  SpotLists& Lists;
  CallsignLists& Callsigns;
  AlertCommands& Commands;
  AlertCommandScene Scene;
  BoardKeeper& Activations;
};

// Reads the feed anew and replaces both lists by what it holds. When the feed cannot be read the lists stay.
// Errors come through: the button swallows them, start-up shows them. What a start brings is heard only when
// `isHeardAtStart` says so.
void ReplaceSpotLists(SpotSources& sources, const SotawatchSpotTakers& takers, SpotFilter& filter,
                      const CheckBox& isHeardAtStart);

// Reads what is new in the feed and puts it in front of the lists. Up to the first read of a run that
// succeeded this is the start: its spots are no news. Edited spots replace what they said, deleted ones go
// from the lists; logs keep what they hold.
void TakeSotawatchSpots(SpotSources& sources, const SotawatchSpotTakers& takers, SpotFilter& filter,
                        const CheckBox& isHeardAtStart);

}  // namespace brelwin
