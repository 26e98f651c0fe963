#include "gateway/submission_status.h"

namespace brelwin {

std::string SubmissionMessage(std::int32_t status) {
  switch (status) {
    case StatusTimedOut: return "Spot sumission failed, timeout.";
    case StatusRefused: return "Spot sumission failed";
    case StatusBadLogin: return "Spot sumission failed, bad login info";
    case StatusBadAssociation: return "Spot sumission failed, association not valid";
    case StatusBadFrequency: return "Spot sumission failed, frequency not valid";
    default: return {};
  }
}

std::string GatewayStatusText(const SubmissionResult& result) {
  switch (result.Status) {
    case StatusNoConnection: return "Submission failed, internet connection error.";
    case StatusTimedOut: return "Submission timed out.";
    case StatusRefused: return "Submission failed.";
    case StatusBadLogin: return "Submission failed, bad Sotawatch login info.";
    case StatusBadAssociation: return "Submission failed, invalid association.";
    case StatusBadFrequency: return "Submission failed, invalid frequency.";
    case StatusUnrecognisedAnswer: return "Submission status unknown, unrecognized response.";
    case StatusInvalidData: return "Submission failed, local data validation error.";
    case StatusProtocolError:
    case StatusHandlerError: return result.LogLine;
    default: return {};
  }
}

}  // namespace brelwin
