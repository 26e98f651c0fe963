// One contact of the operator's log, as far as it matters for what is needed, and where in the log its reader
// stands.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/date_time.h"

namespace brelwin {

// Everything before the position has been read.
struct LogPosition {
  std::size_t Byte = 0;
  std::size_t Line = 1;         // that the position is in
  bool HeaderMayFollow = true;  // no record has been met
};

struct Contact {
  DateTime Time;         // UTC; midnight when the log has no time
  std::string Callsign;  // the other station's, in capitals, as logged
  std::string Summit;    // the other station's summit, "G/LD-003"; empty for none
  std::string MySummit;  // the operator's own; empty at home
};

using TakeContact = std::function<void(const Contact&)>;

// The summit's code trimmed and in capitals.
std::string SummitCodeOf(std::string_view text);

// Of both kinds of log: the time of a day "hhmm" or "hhmmss", with or without ":"; midnight for an unreadable
// one, so that a contact keeps its day.
DateTime AtTimeOfDay(DateTime day, std::string_view time);

}  // namespace brelwin
