#include "alerts/withdrawal.h"

#include <string>
#include <utility>

#include "base/text.h"

namespace brelwin {

namespace {

bool HasOptOutWord(std::string upper) {
  std::erase(upper, ' ');
  return Contains(upper, "RBNN") || Contains(upper, "NOTARNLINK");
}

}  // namespace

bool HoldsOptOutWord(std::string_view comment) {
  return HasOptOutWord(UpperCase(comment));
}

Withdrawal WithdrawalIn(std::string_view comment) {
  auto upper = UpperCase(comment);
  if (Contains(upper, "CANCELLED") || Contains(upper, "CANCELED")) return Withdrawal::Cancelled;
  return HasOptOutWord(std::move(upper)) ? Withdrawal::OptedOut : Withdrawal::None;
}

}  // namespace brelwin
