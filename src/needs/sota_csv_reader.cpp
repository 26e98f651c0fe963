#include "needs/sota_csv_reader.h"

#include <cstddef>

#include "base/csv_fields.h"
#include "base/encoding.h"
#include "base/text.h"
#include "radio/day_text.h"

namespace brelwin {
namespace {

constexpr std::size_t MySummitField = 2;
constexpr std::size_t DayField = 3;
constexpr std::size_t TimeField = 4;
constexpr std::size_t CallField = 7;
constexpr std::size_t SummitField = 8;

using Fields = std::vector<std::string_view>;

// Empty where the line ends before the field: the last ones may be left out.
std::string_view Value(const Fields& fields, std::size_t number) {
  return number < fields.size() ? Trim(fields[number]) : std::string_view{};
}

void ReadLine(const Fields& fields, std::size_t line, const TakeContact& take, RecordFaults& faults) {
  if (!EqualsIgnoringCase(Value(fields, 0), "V2")) return faults.Add(line, "no V2 in front");
  const auto call = Value(fields, CallField);
  if (call.empty()) return faults.Add(line, "no callsign");
  const auto day = ReadDay(Value(fields, DayField));
  if (!day) return faults.Add(line, "no date");
  take({.Time = AtTimeOfDay(*day, Value(fields, TimeField)),
        .Callsign = UpperCase(call),
        .Summit = SummitCodeOf(Value(fields, SummitField)),
        .MySummit = SummitCodeOf(Value(fields, MySummitField))});
}

std::string_view WithoutLineEnd(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

void ReadSotaCsv(std::string_view bytes, LogPosition& position, bool isWhole, const TakeContact& take,
                 RecordFaults& faults) {
  CsvFields reader;
  while (position.Byte < bytes.size()) {
    const auto rest = bytes.substr(position.Byte);
    const auto end = rest.find('\n');
    const bool isEnded = end != std::string_view::npos;
    if (!isEnded && !isWhole) return;
    const auto text = TextFromBytes(WithoutLineEnd(rest.substr(0, isEnded ? end + 1 : rest.size())));
    if (!Trim(text).empty()) ReadLine(reader.Read(text), position.Line, take, faults);
    position.Byte += isEnded ? end + 1 : rest.size();
    if (isEnded) ++position.Line;
  }
}

}  // namespace brelwin
