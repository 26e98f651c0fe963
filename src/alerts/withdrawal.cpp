#include "alerts/withdrawal.h"

#include <string>

#include "base/text.h"

namespace brelwin {

bool HoldsOptOutWord(std::string_view comment) {
  auto letters = UpperCase(comment);
  std::erase(letters, ' ');
  return Contains(letters, "RBNN") || Contains(letters, "NOTARNLINK");
}

Withdrawal WithdrawalIn(std::string_view comment) {
  const auto upper = UpperCase(comment);
  if (Contains(upper, "CANCELLED") || Contains(upper, "CANCELED")) return Withdrawal::Cancelled;
  return HoldsOptOutWord(comment) ? Withdrawal::OptedOut : Withdrawal::None;
}

}  // namespace brelwin
