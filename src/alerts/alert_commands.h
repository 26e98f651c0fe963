// Alert commands: an activator's spot of himself, or a trusted spotter's spot of him, replaces his announced
// alerts by one for the time of the spot, or, with an opt-out word in its comment, removes them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "alerts/alert_collection.h"
#include "alerts/command_memory.h"
#include "platform/host.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

// What commands act on.
struct AlertCommandScene {
  AlertCollection& Alerts;
  const SpotFilter& Filter;              // the user's window counts for alerts without one
  std::function<void()> ReadAlertsPage;  // into Alerts; may yield
  bool LogAlertsAfterSelfSpots = false;  // write a report when commands have added alerts
};

class AlertCommands {
 public:
  AlertCommands(Host& host, CommandMemory memory);

  // Acts on the commands among the new spots (which are the newest first, their trust already known), the
  // oldest first, each once in the life of the settings file. The page is read first when it has not been
  // read in this run, at most once a call. Removals and additions are written to the modifications file,
  // those of one command at once, before the command is remembered. Opt-outs for which there is no page yet,
  // and commands that could not be written, wait. Quitting leaves the rest for the next start.
  void CarryOut(const SpotCollection& newSpots, const AlertCommandScene& scene);

  // Acts on the commands that wait. To be called whenever the page has been read.
  void CarryOutWaiting(const AlertCommandScene& scene);

 private:
  class Batch;

  Host& host_;
  CommandMemory memory_;
  std::vector<SpotPointer> waiting_;
};

// Whether the spot commands alerts: by the activator himself or by a trusted spotter, and not posted by a
// gateway.
bool IsAlertCommand(const Spot& spot);

}  // namespace brelwin
