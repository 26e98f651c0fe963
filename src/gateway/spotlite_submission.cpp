#include "gateway/spotlite_submission.h"

#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/event_log.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "gateway/gateway_journal.h"
#include "gateway/spotlite_form.h"
#include "platform/wait.h"
#include "radio/dates.h"
#include "settings/configuration.h"

namespace brelwin {

namespace {

constexpr std::size_t LongestComment = 60;

std::string TruthText(bool value) {
  return value ? "-1" : "0";
}

std::string KnownOrQuestionMark(std::int32_t value) {
  return value > 0 ? std::to_string(value) : "?";
}

std::string SpotType(const Spot& spot) {
  return UpperCase(Trim(spot.SpotTypeString));
}

SubmissionResult NoGatewaySpot(Host& host, const Spot& spot) {
  LogEvent(host,
           "SendRBNSpotToSotawatch - Input data validation failed: isRBN%=" + TruthText(spot.IsRBNSpot) +
               ", isMatched%=" + TruthText(spot.IsMatchedToAlert) + ", theSpotTypeString$=" + SpotType(spot));
  return {.Status = StatusInvalidData, .Reason = "the spot is no alert-matched skimmer spot"};
}

}  // namespace

bool IsGatewaySpot(const Spot& spot) {
  return SpotType(spot) == "CQ" && spot.IsRBNSpot && spot.IsMatchedToAlert;
}

std::string GatewaySpotComment(std::string_view commentTemplate, const Spot& spot) {
  auto comment = Replace(commentTemplate, "XXX", KnownOrQuestionMark(spot.Speed));
  comment = Replace(comment, "YYY", KnownOrQuestionMark(spot.SignalToNoiseRatio));
  comment = Replace(comment, "ZZZ", Trim(spot.Spotter));
  return std::string(FirstCharacters(comment, LongestComment));
}

SubmissionResult SendRBNSpotToSotawatch(Host& host, SpotliteTransfer& transfer,
                                        const Configuration& configuration, std::string_view login,
                                        std::string_view password, std::string_view commentTemplate,
                                        Spot* spot, const std::function<bool()>& mayLeave) {
  if (spot == nullptr) return {};
  return LogErrors(host, "SendRBNSpotToSotawatch", SubmissionResult{}, [&] {
    if (!IsGatewaySpot(*spot)) return NoGatewaySpot(host, *spot);
    spot->Comment = GatewaySpotComment(commentTemplate, *spot);
    return SendSpotToSotawatch(host, transfer, configuration, login, password, spot, mayLeave);
  });
}

namespace {

constexpr std::int32_t UsualTimeoutSeconds = 5;
constexpr std::string_view HeldBack = "switched off, or held up for too long, before the form had left";

// What could not be sent as a form; only text that was refused for its characters needs a log line.
SubmissionResult NotSent(Host& host, const FormCheck& check) {
  SubmissionResult result;
  result.Status = check.Refusal == FormRefusal::NoSummit ? StatusNothingDone : StatusInvalidData;
  result.Reason = FormRefusalText(check.Refusal);
  if (check.Refusal == FormRefusal::ForbiddenCharacter)
    LogEvent(host, "SendSpotToSotawatch - Spot not submitted, " + result.Reason + ": " +
                       check.Form.Activator + " " + check.Form.Association + "/" + check.Form.Summit);
  return result;
}

// Quitting ends the transfer, so the waiting may be over without an outcome.
void WaitForAnswer(Host& host, SpotliteTransfer& transfer, TransferState& state, std::int32_t seconds) {
  const auto deadline = host.Time.Now() + std::chrono::seconds(seconds);
  const auto result = WaitUntil(
      host, [&] { return !state.SendInProgress; }, deadline);
  if (result == WaitResult::TimedOut) state.TransferStatus = TransferTimedOut;
  if (result == WaitResult::ShuttingDown) transfer.Cancel();
  if (state.TransferStatus == TransferPending && host.ShuttingDown)
    LogEvent(host, "SendSpotToSotawatch - The program is ending, the answer is not waited for.");
}

// The password is written as it was posted, so the file is for its owner only.
void LogAnswer(Host& host, const TransferState& state) {
  const auto text =
      DateTimeText(host.Time.LocalNow()) + "\r\n" + state.LastPostedData + "\r\n" + state.LastResponseText;
  std::string errorText;
  AppendToFile(host, InProgramFolder(host, GatewayServerResponseLogFile), text, true, errorText,
               FileAccess::OwnerOnly);
  if (!errorText.empty())
    LogEvent(host, "SendSpotToSotawatch - The server's answer was not logged: " + errorText);
}

std::int32_t StatusOf(const TransferState& state, const SpotliteForm& form) {
  switch (state.TransferStatus) {
    case TransferTimedOut: return StatusTimedOut;
    case TransferFailed: return StatusProtocolError;
    case TransferHandlerFailed: return StatusHandlerError;
    case TransferCompleted: return ClassifySpotliteAnswer(state.LastResponseText, form);
    default: return StatusNothingDone;
  }
}

std::string LogLineOf(const TransferState& state, std::int32_t status) {
  switch (status) {
    case StatusAccepted: return "Spot submission succeeded.";
    case StatusUnrecognisedAnswer:
      return "Spot submission finished but not all expected data in server response";
    case StatusProtocolError:
      return "Submission failed, protocol error. ResponseCode=" + std::to_string(state.LastResponseCode) +
             " ResponseInfo=" + state.LastResponseInfo;
    case StatusHandlerError:
      return "Submission failed, protocol error, unexpected. ErrNumber=" +
             std::to_string(state.TransferErrNumber) + " ErrString=" + state.TransferErrString;
    case StatusNothingDone:
      if (state.TransferStatus == TransferHeldBack)
        return "Submission held back, " + std::string(HeldBack) + ".";
      return "Submission status unknown, the program is ending.";
    default: return SubmissionMessage(status);
  }
}

void Classify(Host& host, const TransferState& state, const SpotliteForm& form, SubmissionResult& result) {
  if (state.TransferStatus == TransferCompleted) LogAnswer(host, state);
  result.Status = StatusOf(state, form);
  result.Message = SubmissionMessage(result.Status);
  result.LogLine = LogLineOf(state, result.Status);
  if (state.TransferStatus == TransferHeldBack) result.Reason = HeldBack;
}

std::string_view FormAddress(const Configuration& configuration) {
  const auto address = Trim(configuration.Addresses.SpotliteSpotSubmitURL);
  return address.empty() ? SpotliteFormAddress : address;
}

SubmissionResult Submit(Host& host, SpotliteTransfer& transfer, const Configuration& configuration,
                        const SpotliteForm& form, const std::function<bool()>& mayLeave) {
  SubmissionResult result;
  const auto submit = [&] {
    const auto state = transfer.Post(FormAddress(configuration), SpotliteFormBody(form), mayLeave);
    WaitForAnswer(host, transfer, *state, InternetTimeoutSeconds(configuration));
    state->SendInProgress.reset();
    Classify(host, *state, form, result);
    return true;
  };
  TrapErrors(submit, false, [&](const RuntimeError& error) {
    transfer.Cancel();
    if (result.LogLine.empty())
      result.LogLine = "SendSpotToSotawatchHandler: errNumber=" + std::to_string(error.Number) +
                       " errString$=" + error.Description;
  });
  return result;
}

void LogSubmission(Host& host, const Spot& spot, std::string_view logLine) {
  auto separator = DashLine(ShortSeparatorDashes);
  separator.pop_back();  // of all entries only this one has the line without its last blank
  WriteGatewayLogEntry(host, {{spot, separator, logLine}});
}

}  // namespace

std::int32_t InternetTimeoutSeconds(const Configuration& configuration) {
  return configuration.RBNConnectionTimeout < 1 ? UsualTimeoutSeconds : configuration.RBNConnectionTimeout;
}

SubmissionResult SendSpotToSotawatch(Host& host, SpotliteTransfer& transfer,
                                     const Configuration& configuration, std::string_view login,
                                     std::string_view password, const Spot* spot,
                                     const std::function<bool()>& mayLeave) {
  if (spot == nullptr) return {};
  if (host.ShuttingDown) return {.Reason = "the program is ending"};
  const auto check = CheckSpotliteForm(login, password, *spot);
  if (check.Refusal != FormRefusal::None) return NotSent(host, check);
  auto result = Submit(host, transfer, configuration, check.Form, mayLeave);
  TrapErrorsSilently([&] { LogSubmission(host, *spot, result.LogLine); });
  return result;
}

}  // namespace brelwin
