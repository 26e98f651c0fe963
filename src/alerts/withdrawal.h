// The words by which an activator withdraws an alert: from the air, or from being spotted by the gateway.
#pragma once

#include <string_view>

#include "alerts/alert_collection.h"

namespace brelwin {

// "RBNN" or "NOTARNLINK", in any letter case and with blanks anywhere.
bool HoldsOptOutWord(std::string_view comment);

// What the comment of an announced alert says: Cancelled, OptedOut or None.
Withdrawal WithdrawalIn(std::string_view comment);

}  // namespace brelwin
