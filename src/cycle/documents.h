// What the user looks at: files of the program's folder, pages on the web, and more about one spot.
#pragma once

#include <vector>

#include "alerts/alert_collection.h"
#include "controls/screen.h"
#include "core/websites.h"
#include "cycle/callsign_lists.h"
#include "cycle/entries.h"
#include "platform/host.h"
#include "settings/configuration.h"

namespace brelwin {

// Gives the view buttons their files. All must outlive the screen's handlers.
void ConnectViewers(Host& host, Screen& screen, Entries& ways);

// What the lists of spots and websites lead to.
struct Library {
  Host& World;
  Screen& Controls;
  const Configuration& Config;
  const AlertCollection& Alerts;
  CallsignLists& Callsigns;
  const std::vector<Website>& Websites;
};

// Has a double click open the page, the selection show the details, and the menu keep the callsign. What the
// library refers to must outlive the screen's handlers.
void ConnectLists(const Library& library, Entries& ways);

}  // namespace brelwin
