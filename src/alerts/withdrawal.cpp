#include "alerts/withdrawal.h"

#include <string>

#include "base/text.h"

namespace brelwin {

bool HoldsCancellation(std::string_view comment) {
  const auto upper = UpperCase(comment);
  return Contains(upper, "CANCELLED") || Contains(upper, "CANCELED");
}

bool HoldsOptOutWord(std::string_view comment) {
  auto upper = UpperCase(comment);
  std::erase(upper, ' ');
  return Contains(upper, "RBNN") || Contains(upper, "NOTARNLINK");
}

}  // namespace brelwin
