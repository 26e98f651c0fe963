#include "needs/adif_reader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/encoding.h"
#include "base/line_text.h"
#include "base/text.h"
#include "radio/day_text.h"

namespace brelwin {

namespace {

enum class AdifTag : std::uint8_t { Field, EndOfHeader, EndOfRecord, Broken };

struct AdifField {
  AdifTag Tag = AdifTag::Field;
  std::string_view Name;     // as written; EqualsIgnoringCase compares it
  std::string_view Value;    // trimmed
  std::size_t NextByte = 0;  // where reading goes on
};

// No value of a log is longer; a length beyond is a slip of the writer.
constexpr int LongestValue = 100000;

// The longest tag there is names a field, a length and a type.
constexpr std::size_t LongestTag = 100;

struct Tag {
  std::size_t Begin = 0;  // of "<"
  std::size_t End = 0;    // behind ">"
  std::string_view Text;
};

bool BeginsName(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Text between fields may hold a "<" of its own, which no name follows.
std::optional<Tag> NextTag(std::string_view bytes, std::size_t from) {
  for (auto begin = bytes.find('<', from); begin != std::string_view::npos;
       begin = bytes.find('<', begin + 1)) {
    if (begin + 1 < bytes.size() && !BeginsName(bytes[begin + 1])) continue;
    const auto end = bytes.substr(begin, LongestTag).find('>');
    if (end != std::string_view::npos) return Tag{begin, begin + end + 1, bytes.substr(begin + 1, end - 1)};
    if (bytes.size() - begin < LongestTag) return std::nullopt;
  }
  return std::nullopt;
}

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

bool MayFollowValue(std::string_view rest) {
  return rest.empty() || std::string_view("< \t\r\n").find(rest.front()) != std::string_view::npos;
}

std::size_t BytesOfCharacters(std::string_view text, std::size_t count) {
  auto rest = text;
  for (; count > 0 && !rest.empty(); --count) TakeCodePoint(rest);
  return text.size() - rest.size();
}

// Where the mark of the record's end begins in the value; npos when it is not in there.
std::size_t EndOfRecordIn(std::string_view value) {
  auto at = value.find('<');
  while (at != std::string_view::npos && !StartsIgnoringCase(value.substr(at), "<EOR>"))
    at = value.find('<', at + 1);
  return at;
}

// Bytes as the format has it, unless characters fit and bytes do not.
std::size_t ValueSize(std::string_view rest, std::size_t length) {
  if (IsPlainText(rest.substr(0, length)) || MayFollowValue(rest.substr(std::min(length, rest.size()))))
    return length;
  const auto size = BytesOfCharacters(rest, length);
  const bool fits =
      MayFollowValue(rest.substr(size)) && EndOfRecordIn(rest.substr(0, size)) == std::string_view::npos;
  return fits ? size : length;
}

std::optional<AdifField> ReadValue(std::string_view bytes, const Tag& tag, std::size_t length,
                                   std::string_view name) {
  const auto rest = bytes.substr(tag.End);
  const auto size = ValueSize(rest, length);
  const auto end = EndOfRecordIn(rest.substr(0, size));
  if (end != std::string_view::npos) return AdifField{AdifTag::Broken, name, {}, tag.End + end};
  if (size > rest.size()) return std::nullopt;
  return AdifField{AdifTag::Field, name, Trim(rest.substr(0, size)), tag.End + size};
}

// The first field at or behind the byte; empty when there is none, or when it is not whole. Broken is a field
// whose length is no number, or whose value would swallow the end of its record.
std::optional<AdifField> NextAdifField(std::string_view bytes, std::size_t from) {
  const auto tag = NextTag(bytes, from);
  if (!tag) return std::nullopt;
  if (EqualsIgnoringCase(tag->Text, "EOH")) return AdifField{AdifTag::EndOfHeader, {}, {}, tag->End};
  if (EqualsIgnoringCase(tag->Text, "EOR")) return AdifField{AdifTag::EndOfRecord, {}, {}, tag->End};
  const auto parts = Split(tag->Text, ":");
  const auto length = parts.size() < 2 ? std::nullopt : ReadDigits(Trim(parts[1]));
  if (!length || *length > LongestValue) return AdifField{AdifTag::Broken, parts.front(), {}, tag->End};
  return ReadValue(bytes, *tag, static_cast<std::size_t>(*length), Trim(parts.front()));
}

struct Values {
  std::string_view Call, Date, Time, Summit, MySummit, Program, Reference, MyProgram, MyReference;
};

struct KnownField {
  std::string_view Name;
  std::string_view Values::*Value;
};

constexpr KnownField KnownFields[] = {{"CALL", &Values::Call},
                                      {"QSO_DATE", &Values::Date},
                                      {"TIME_ON", &Values::Time},
                                      {"SOTA_REF", &Values::Summit},
                                      {"MY_SOTA_REF", &Values::MySummit},
                                      {"SIG", &Values::Program},
                                      {"SIG_INFO", &Values::Reference},
                                      {"MY_SIG", &Values::MyProgram},
                                      {"MY_SIG_INFO", &Values::MyReference}};

void Keep(Values& values, const AdifField& field) {
  for (const auto& known : KnownFields)
    if (EqualsIgnoringCase(field.Name, known.Name)) values.*known.Value = field.Value;
}

// Some loggers name the summit in the fields that serve every award programme.
std::string SummitOf(std::string_view summit, std::string_view program, std::string_view reference) {
  if (!summit.empty()) return SummitCodeOf(summit);
  return EqualsIgnoringCase(program, "SOTA") ? SummitCodeOf(reference) : std::string();
}

class AdifLog {
 public:
  AdifLog(std::string_view bytes, LogPosition& position, const TakeContact& take, RecordFaults& faults)
      : bytes_(bytes), position_(position), take_(take), faults_(faults) {}

  void Read() {
    std::size_t next = position_.Byte;
    while (const auto field = NextAdifField(bytes_, next)) {
      next = field->NextByte;
      Take(*field);
    }
  }

 private:
  void Take(const AdifField& field) {
    switch (field.Tag) {
      case AdifTag::Field: return Keep(values_, field);
      case AdifTag::Broken: isBroken_ = true; return;
      case AdifTag::EndOfHeader: return EndHeader(field.NextByte);
      case AdifTag::EndOfRecord: return EndRecord(field.NextByte);
    }
  }

  // What stands in a header is no part of the first record; within the log the mark means nothing.
  void EndHeader(std::size_t byte) {
    if (position_.HeaderMayFollow) StartRecord(byte);
  }

  void EndRecord(std::size_t byte) {
    if (const auto day = ReadDay(values_.Date); isBroken_)
      AddFault("a field with a wrong length");
    else if (values_.Call.empty())
      AddFault("no callsign");
    else if (!day)
      AddFault("no date");
    else
      take_({.Time = AtTimeOfDay(*day, values_.Time),
             .Callsign = UpperCase(values_.Call),
             .Summit = SummitOf(values_.Summit, values_.Program, values_.Reference),
             .MySummit = SummitOf(values_.MySummit, values_.MyProgram, values_.MyReference)});
    StartRecord(byte);
  }

  void AddFault(std::string_view what) {
    const auto rest = bytes_.substr(position_.Byte);
    const auto blanks = rest.substr(0, rest.find_first_not_of(" \t\r\n"));
    faults_.Add(position_.Line + LinesBegunIn(blanks), what);
  }

  void StartRecord(std::size_t byte) {
    position_.Line += LinesBegunIn(bytes_.substr(position_.Byte, byte - position_.Byte));
    position_.Byte = byte;
    position_.HeaderMayFollow = false;
    values_ = {};
    isBroken_ = false;
  }

  std::string_view bytes_;
  LogPosition& position_;
  const TakeContact& take_;
  RecordFaults& faults_;
  Values values_;
  bool isBroken_ = false;
};

}  // namespace

void ReadAdif(std::string_view bytes, LogPosition& position, const TakeContact& take, RecordFaults& faults) {
  AdifLog(bytes, position, take, faults).Read();
}

}  // namespace brelwin
