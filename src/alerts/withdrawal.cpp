#include "alerts/withdrawal.h"

#include "base/text.h"

namespace brelwin {

bool HoldsOptOutWord(std::string_view comment) {
  const auto letters = Replace(UpperCase(comment), " ", "");
  return Contains(letters, "RBNN") || Contains(letters, "NOTARNLINK");
}

Withdrawal WithdrawalIn(std::string_view comment) {
  const auto upper = UpperCase(comment);
  if (Contains(upper, "CANCELLED") || Contains(upper, "CANCELED")) return Withdrawal::Cancelled;
  return HoldsOptOutWord(upper) ? Withdrawal::OptedOut : Withdrawal::None;
}

}  // namespace brelwin
