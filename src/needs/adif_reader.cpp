#include "needs/adif_reader.h"

#include <optional>

#include "base/text.h"
#include "needs/adif_field.h"
#include "radio/day_text.h"

namespace brelwin {
namespace {

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
