#include "rbn/spot_line.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/text.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::string_view FieldGap = "  ";

bool IsDropped(char c) {
  return c == '\r' || c == '\n' || c == '\a';
}

bool IsDroppedOrBlank(char c) {
  return IsDropped(c) || c == ' ';
}

std::string_view Stripped(std::string_view field) {
  while (!field.empty() && IsDroppedOrBlank(field.back())) field.remove_suffix(1);
  while (!field.empty() && IsDroppedOrBlank(field.front())) field.remove_prefix(1);
  return field;
}

// Nearly always the field is clean once its ends are; `storage` is used when it is not.
std::string_view Cleaned(std::string_view field, std::string& storage) {
  const auto stripped = Stripped(field);
  if (std::none_of(stripped.begin(), stripped.end(), IsDropped)) return stripped;
  storage.clear();
  std::remove_copy_if(stripped.begin(), stripped.end(), std::back_inserter(storage), IsDropped);
  return storage;
}

// Takes the first field off the line, with the gap behind it.
std::string_view TakeField(std::string_view& line) {
  const auto field = line.substr(0, line.find(FieldGap));
  const auto next = line.find_first_not_of(' ', field.size());
  line.remove_prefix(std::min(next, line.size()));
  return field;
}

}  // namespace

void SpotLine::Read(std::string_view text) {
  text_ = text;
  for (auto& field : raw_) field = TakeField(text);
}

std::string_view SpotLine::Field(SpotField which) {
  const auto index = static_cast<std::size_t>(which);
  return Cleaned(raw_[index], mended_[index]);
}

std::string SpotLine::Text() const {
  std::string text;
  text.reserve(text_.size() + 16);
  std::string storage;
  for (auto rest = text_;;) {
    text.append(Cleaned(TakeField(rest), storage));
    if (rest.empty()) return text;
    text.append(FieldGap);
  }
}

std::string SkimmerCallsign(std::string_view skimmerField) {
  return std::string(Trim(Without(Without(std::string(skimmerField), SpotLineStart), "-#:")));
}

std::string UTCTimeText(std::string_view timeField) {
  const auto end = timeField.find('Z');
  const auto time = Trim(end == 0 ? timeField : timeField.substr(0, end));
  if (CharacterCount(time) != 4) return std::string(time);
  const auto hours = FirstCharacters(time, 2);
  return std::string(hours) + ":" + std::string(time.substr(hours.size()));
}

float NumberBefore(std::string_view unit, std::string_view field) {
  return ToSingle(ToDouble(Trim(Without(std::string(field), unit))));
}

bool SaysNothing(std::string_view line) {
  if (line.starts_with(SpotLineStart)) line.remove_prefix(SpotLineStart.size());
  return Stripped(line).empty();
}

std::string_view FromFirstSpotLine(std::string_view text) {
  const auto first = text.find(SpotLineStart);
  return first == std::string_view::npos ? text : text.substr(first);
}

}  // namespace brelwin
