// The rules of the settings boxes when the user leaves them.
#pragma once

#include <optional>
#include <string>

#include "controls/screen.h"
#include "cycle/skimmer_spots.h"
#include "cycle/spot_lists.h"
#include "cycle/timers.h"
#include "platform/host.h"
#include "settings/settings.h"

namespace brelwin {

// A whole number from 3 to 60 restarts the timer at once, unless it counts down the start-up delay; anything
// else is refused and the box set back.
void txtSecondsBetweenChecks_LostFocus(Host& host, Screen& screen, CheckPace& pace);

// At least 1 minute; less is only complained of.
void txtDuplicateSpotFilteringPeriod_LostFocus(Host& host, const RBNTab& tab);

// A new maximum that is smaller than what is shown trims the list at once.
void txtMaximumSpotsInList_LostFocus(SpotLists& lists);

// A comment that does not tell that a gateway made it is warned of in the event log, once a template:
// `lookedAt` is the last one.
void txtSpotCommentTemplate_LostFocus(Host& host, const GatewayTab& tab,
                                      std::optional<std::string>& lookedAt);

// Saves the settings on request and says when that could not be done. Settings that are applied may have
// switched the streams on.
void cmdSaveSettings_Click(Host& host, SpotsTab& tab, Settings& settings, SkimmerStreams& streams);

}  // namespace brelwin
