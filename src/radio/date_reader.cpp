// The reader of dates: takes the text word by word; each word is recognised by its looks, and each part of a
// date may be given once.
#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "radio/dates.h"
#include "radio/month_names.h"

namespace brelwin {
namespace {

constexpr std::int64_t SecondsOfDay = 86400;

struct DateParts {
  std::optional<int> Year;
  std::optional<int> Month;
  std::optional<int> Day;
  std::optional<int> SecondOfDay;
  std::optional<int> ZoneMinutes;  // east of UTC
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsNumber(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), IsDigit);
}

// The digits as a number when there are as many of them as allowed.
std::optional<int> Number(std::string_view digits, std::size_t fewest, std::size_t most) {
  if (!IsNumber(digits) || digits.size() < fewest || digits.size() > most) return {};
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

// Stores a part that was recognised; false when it was not, or when it is there already.
bool Store(std::optional<int>& part, std::optional<int> value) {
  if (part || !value) return false;
  part = value;
  return true;
}

// Without the fraction of a second, as in "10:00:00.250".
std::string_view WithoutFraction(std::string_view word) {
  const auto point = word.find('.');
  return point != std::string_view::npos && IsNumber(word.substr(point + 1)) ? word.substr(0, point) : word;
}

// "hh:mm" or "hh:mm:ss" as seconds of the day.
std::optional<int> ClockTime(std::string_view text) {
  const auto word = WithoutFraction(text);
  const auto first = word.find(':');
  if (first == std::string_view::npos) return {};
  const auto second = word.find(':', first + 1);
  const auto hour = Number(word.substr(0, first), 1, 2);
  const auto minute = Number(word.substr(first + 1, second - first - 1), 2, 2);
  const auto seconds =
      second == std::string_view::npos ? std::optional<int>(0) : Number(word.substr(second + 1), 2, 2);
  if (!hour || !minute || !seconds || *hour > 23 || *minute > 59 || *seconds > 59) return {};
  return *hour * 3600 + *minute * 60 + *seconds;
}

// "+hhmm" or "-hh:mm", and the names of UTC itself, as minutes east of UTC.
std::optional<int> Zone(std::string_view word) {
  for (const std::string_view name : {"UT", "UTC", "GMT", "Z"}) {
    if (EqualsIgnoringCase(word, name)) return 0;
  }
  if (word.size() < 5 || (word[0] != '+' && word[0] != '-')) return {};
  const auto hours = Number(word.substr(1, 2), 2, 2);
  const auto minutes = Number(word.substr(word[3] == ':' ? 4 : 3), 2, 2);
  if (!hours || !minutes || *hours > 23 || *minutes > 59) return {};
  return (*hours * 60 + *minutes) * (word[0] == '-' ? -1 : 1);
}

// A time with a zone joined to it, such as "10:00:00Z" or "10:00+01:00", or a time alone.
bool TakeTime(DateParts& parts, std::string_view word) {
  const auto zoneAt = word.find_first_of("+-Zz");
  if (!Store(parts.SecondOfDay, ClockTime(word.substr(0, zoneAt)))) return false;
  return zoneAt == std::string_view::npos || Store(parts.ZoneMinutes, Zone(word.substr(zoneAt)));
}

// "yyyy-mm-dd", alone or joined to a time by "T".
bool TakeDashedDate(DateParts& parts, std::string_view word) {
  if (word.size() < 10 || word[4] != '-' || word[7] != '-') return false;
  const auto rest = word.substr(10);
  return Store(parts.Year, Number(word.substr(0, 4), 4, 4)) &&
         Store(parts.Month, Number(word.substr(5, 2), 2, 2)) &&
         Store(parts.Day, Number(word.substr(8, 2), 2, 2)) &&
         (rest.empty() || (rest[0] == 'T' && TakeTime(parts, rest.substr(1))));
}

// Mail dates may give the year by its last two digits, always behind day and month.
bool TakeDayOrYear(DateParts& parts, std::string_view word) {
  if (word.size() > 2) return Store(parts.Year, Number(word, 4, 4));
  if (!parts.Day || !parts.Month) return Store(parts.Day, Number(word, 1, 2));
  const auto year = Number(word, 2, 2);
  return year && Store(parts.Year, *year < 30 ? 2000 + *year : 1900 + *year);
}

bool TakeWord(DateParts& parts, std::string_view word) {
  if (IsNumber(word)) return TakeDayOrYear(parts, word);
  if (IsDigit(word[0])) return TakeDashedDate(parts, word) || TakeTime(parts, word);
  if (const auto month = MonthOfName(word)) return Store(parts.Month, month);
  return IsWeekdayName(word) || Store(parts.ZoneMinutes, Zone(word));
}

std::optional<DateTime> DateTimeOf(const DateParts& parts) {
  const bool noDate = !parts.Year && !parts.Month && !parts.Day;
  if (noDate && !parts.SecondOfDay) return {};
  if (parts.ZoneMinutes && !parts.SecondOfDay) return {};
  const CalendarTime day{parts.Year.value_or(0), parts.Month.value_or(0), parts.Day.value_or(0), 0, 0, 0};
  const auto midnight = noDate ? DayZero() : DateTimeFromCalendar(day);
  if (!midnight) return {};
  const auto time = AddSeconds(*midnight, parts.SecondOfDay.value_or(0));
  if (parts.ZoneMinutes.value_or(0) == 0) return time;
  // A zone can lead out of the range of years.
  return DateTimeFromCalendar(CalendarFromDateTime(AddMinutes(time, -*parts.ZoneMinutes)));
}

bool IsSeparator(char c) {
  return c == ' ' || c == ',';
}

}  // namespace

std::optional<DateTime> ReadDateTime(std::string_view text) {
  DateParts parts;
  const auto end = text.end();
  for (auto begin = std::find_if_not(text.begin(), end, IsSeparator); begin != end;) {
    const auto wordEnd = std::find_if(begin, end, IsSeparator);
    if (!TakeWord(parts, {begin, wordEnd})) return {};
    begin = std::find_if_not(wordEnd, end, IsSeparator);
  }
  return DateTimeOf(parts);
}

// It is day zero of the dates that older files hold.
DateTime DayZero() {
  return {-25569 * SecondsOfDay};
}

bool IsTimeAlone(DateTime time) {
  return time >= DayZero() && time < AddSeconds(DayZero(), SecondsOfDay);
}

bool IsDateNotNumber(std::string_view text) {
  return ReadDateTime(text).has_value();
}

}  // namespace brelwin
