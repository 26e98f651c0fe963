// Who is never sent: the user's list of excluded activators, which reaches them whatever they put around
// their callsign.
#pragma once

#include <string>
#include <string_view>

#include "spots/spot.h"

namespace brelwin {

// Adds an entry of the list, as the user wrote it, under every callsign that it may stand for.
void ExcludeActivator(CallsignCollection& excluded, std::string_view entry);

// The entry that excludes the spot's station; empty when none does.
std::string ExcludingEntry(const CallsignCollection& excluded, const Spot& spot);

}  // namespace brelwin
