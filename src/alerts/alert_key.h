// The keys by which an alert is known from one reading of the page to the next, and in the modifications
// file.
#pragma once

#include <string>

#include "alerts/sota_alert.h"

namespace brelwin {

// Time, base callsign and summit of an alert with a window of its own.
std::string CustomWindowKey(const SOTAAlert& alert);

// The same with the first 10 characters of the comment, blanks left out: an activator who edits the beginning
// of the comment makes a new alert.
std::string CommentKey(const SOTAAlert& alert);

// Of an alert that a spot made.
std::string SpotAlertKey(const SOTAAlert& alert);

}  // namespace brelwin
