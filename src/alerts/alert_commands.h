// Alert commands: an activator's spot of himself, or a trusted spotter's spot of him, replaces his
// announced alerts by one for the time of the spot, or, with an opt-out word in its comment, removes them.
#pragma once

#include <functional>

#include "alerts/alert_collection.h"
#include "alerts/command_memory.h"
#include "alerts/sota_alert.h"
#include "platform/clock.h"
#include "platform/host.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// For the time of the spot, or the present one for a spot without a time; without a window of its own. Its
// texts are single lines.
SOTAAlert AlertOfSpot(const Spot& spot, const Clock& clock);

// What commands act on.
struct AlertCommandScene {
  AlertCollection& Alerts;
  const SpotFilter& Filter;                    // the user's window counts for alerts without one
  std::function<bool(const Spot&)> IsOwnPost;  // a post of the program's own gateway is no command
  bool LogAlertsAfterSelfSpots = false;        // write a report when commands have added alerts
};

class AlertCommands {
 public:
  AlertCommands(Host& host, CommandMemory memory);

  // Acts on the commands among the new spots (which are the newest first, their trust already known), the
  // oldest first, each once in the life of the settings file. Removals and additions are written to the
  // modifications file, all at once, before the commands are remembered. As long as the page has not been
  // read in this run commands wait, also over the end of the run, and so do those that could not be written.
  // Quitting leaves the rest for the next start. Does not yield.
  void CarryOut(const SpotCollection& newSpots, const AlertCommandScene& scene);

  // Acts on the commands that wait, in the order of their spots. To be called whenever the page has been
  // read.
  void CarryOutWaiting(const AlertCommandScene& scene);

  // Whether commands wait for the page.
  bool AreWaiting() { return !waiting_.Empty(); }

 private:
  class Batch;

  Host& host_;
  CommandMemory memory_;
  WaitingCommands waiting_;
};

// Whether the spot commands alerts: by the activator himself or by a trusted spotter, not posted by a
// gateway, and no test.
bool IsAlertCommand(const Spot& spot);

}  // namespace brelwin
