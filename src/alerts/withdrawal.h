// The words by which an activator withdraws an alert: from the air, or from being spotted by the gateway.
#pragma once

#include <string_view>

namespace brelwin {

// "CANCELLED" or "CANCELED", in any letter case.
bool HoldsCancellation(std::string_view comment);

// "RBNN" or "NOTARNLINK", in any letter case and with blanks anywhere.
bool HoldsOptOutWord(std::string_view comment);

}  // namespace brelwin
