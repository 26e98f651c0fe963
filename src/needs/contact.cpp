#include "needs/contact.h"

#include "base/text.h"
#include "radio/day_text.h"

namespace brelwin {

std::string SummitCodeOf(std::string_view text) {
  return UpperCase(Trim(text));
}

DateTime AtTimeOfDay(DateTime day, std::string_view time) {
  const auto digits = Without(std::string(Trim(time)), ":");
  const auto hour = ReadDigits(std::string_view(digits).substr(0, 2));
  const auto minute = digits.size() < 4 ? std::nullopt : ReadDigits(std::string_view(digits).substr(2, 2));
  if (!hour || !minute || *hour > 23 || *minute > 59) return day;
  return AddMinutes(day, 60 * *hour + *minute);
}

}  // namespace brelwin
