// What became of a spot that was to be posted: the status codes, what a caller does next, and their words.
#pragma once

#include <cstdint>
#include <string>

#include "core/status_codes.h"

namespace brelwin {

// Never sent: nothing can have been taken, as with StatusNothingDone. StatusNoConnection is known to readers
// of old logs and never given.
inline constexpr std::int32_t StatusInvalidData = -500;  // wrong until the spot or the settings change

// Taken.
inline constexpr std::int32_t StatusAccepted = StatusDone;

// May have been taken, as with StatusTimedOut: nobody knows until the feed shows it.
inline constexpr std::int32_t StatusUnrecognisedAnswer = -400;
inline constexpr std::int32_t StatusProtocolError = -1000;
inline constexpr std::int32_t StatusHandlerError = -1100;

// Refused by the server; the same form would be refused again.
inline constexpr std::int32_t StatusRefused = -300;
inline constexpr std::int32_t StatusBadLogin = -600;
inline constexpr std::int32_t StatusBadAssociation = -601;
inline constexpr std::int32_t StatusBadFrequency = -602;

// One submission, as its caller sees it.
struct SubmissionResult {
  std::int32_t Status = StatusNothingDone;
  std::string Message = {};  // for the user; empty for statuses that have none
  std::string LogLine = {};  // as written to the gateway's spot log; empty when the form was not sent
  std::string Reason = {};   // why the form was not sent, in words; empty when it was
};

// The message of a status that the user is told of, misspelt as logs have it; else empty.
std::string SubmissionMessage(std::int32_t status);

// What the gateway makes of a status that is no success; empty for one that has no text. For -1000 and -1100
// the words are those of the log line.
std::string GatewayStatusText(const SubmissionResult& result);

}  // namespace brelwin
