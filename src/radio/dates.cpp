#include "radio/dates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "base/text.h"

namespace brelwin {

namespace {

constexpr std::size_t ShortLength = 3;

constexpr std::array<std::string_view, 12> Months = {"January",   "February", "March",    "April",
                                                     "May",       "June",     "July",     "August",
                                                     "September", "October",  "November", "December"};

constexpr std::array<std::string_view, 7> Weekdays = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                      "Friday", "Saturday", "Sunday"};

bool Names(std::string_view name, std::string_view full) {
  return EqualsIgnoringCase(name, name.size() == ShortLength ? full.substr(0, ShortLength) : full);
}

}  // namespace

std::string_view ShortMonthName(int month) {
  return Months[static_cast<std::size_t>(month - 1)].substr(0, ShortLength);
}

std::optional<int> MonthOfName(std::string_view name) {
  for (std::size_t i = 0; i < Months.size(); ++i) {
    if (Names(name, Months[i])) return static_cast<int>(i) + 1;
  }
  return {};
}

bool IsWeekdayName(std::string_view name) {
  for (const auto weekday : Weekdays) {
    if (Names(name, weekday)) return true;
  }
  return false;
}

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

namespace {

void PutTwoDigits(char* at, int number) {
  at[0] = static_cast<char>('0' + number / 10 % 10);
  at[1] = static_cast<char>('0' + number % 10);
}

// "yyyymmddhhmmss".
std::string DigitsOf(const CalendarTime& time) {
  std::string digits(14, '0');
  const auto year = std::max(time.Year, 0);
  PutTwoDigits(&digits[0], year / 100);
  PutTwoDigits(&digits[2], year);
  PutTwoDigits(&digits[4], time.Month);
  PutTwoDigits(&digits[6], time.Day);
  PutTwoDigits(&digits[8], time.Hour);
  PutTwoDigits(&digits[10], time.Minute);
  PutTwoDigits(&digits[12], time.Second);
  return digits;
}

// The pattern with the digits in place of its "#".
std::string FillIn(std::string_view pattern, std::string_view digits) {
  std::string text(pattern);
  auto digit = digits.begin();
  for (char& c : text) {
    if (c == '#') c = *digit++;
  }
  return text;
}

}  // namespace

std::string DateTimeText(DateTime time) {
  return FillIn("####-##-## ##:##:##", CompactText(time));
}

std::string ClockText(DateTime time) {
  return FillIn("##:##", CompactText(time).substr(8));
}

std::string CompactText(DateTime time) {
  return DigitsOf(CalendarFromDateTime(time));
}

std::string CompactMinutesText(DateTime time) {
  return CompactText(time).substr(0, 12);
}

std::string MonthFirstText(DateTime time) {
  const auto parts = CalendarFromDateTime(time);
  const auto digits = DigitsOf(parts);
  const auto yearBehindDay = digits.substr(6, 2) + digits.substr(0, 4) + digits.substr(8);
  return std::string(ShortMonthName(parts.Month)) + FillIn(" ## #### ##:##:##", yearBehindDay);
}

std::int32_t TimeZoneOffsetInMinutes(const Clock& clock) {
  const auto zone = clock.GetTimeZoneInformation();
  const bool daylight = zone.Now == TimeZoneInformation::State::Daylight;
  return zone.Bias + (daylight ? zone.DaylightBias : zone.StandardBias);
}

bool GetTimeZoneOffset(const Clock& clock, std::int32_t& hours, std::int32_t& minutes) {
  const auto offset = TimeZoneOffsetInMinutes(clock);
  hours = offset / 60;
  minutes = offset % 60;
  return true;
}

DateTime UTCNow(const Clock& clock) {
  return AddMinutes(clock.LocalNow(), TimeZoneOffsetInMinutes(clock));
}

std::string GetUTCNowText(const Clock& clock) {
  return MonthFirstText(UTCNow(clock));
}

std::optional<DateTime> UTCToLocal(const Clock& clock, std::optional<DateTime> utc) {
  if (!utc) return {};
  return AddMinutes(*utc, -TimeZoneOffsetInMinutes(clock));
}

}  // namespace brelwin
