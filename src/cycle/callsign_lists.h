// The three lists of callsigns that the user keeps in files: what is read into each, and how a spot's station
// or spotter comes into it by hand.
#pragma once

#include <string>

#include "controls/spot_list_box.h"
#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

struct CallsignLists {
  CallsignCollection KnownActivators;
  CallsignCollection TrustedSpotters;
  CallsignCollection ExcludedActivators;

  CallsignCollection& Named(CallsignListName name);
};

// Fills the list from its file, without which it stays as it is; what cannot be read is logged.
void LoadCallsigns(Host& host, CallsignListName name, CallsignCollection& list);

// Puts the spot's station, for the trusted spotters its spotter, into the list and at the end of its file,
// each unless it is there, and logs it. Gives what came of it in words for the user; what could not be
// written is told him in a message as well, and then holds until the program ends.
std::string AddCallsign(Host& host, CallsignListName name, CallsignCollection& list, const Spot& spot);

}  // namespace brelwin
