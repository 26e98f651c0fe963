// The transfer of a form and of its answer, and the fields in which its outcome is left.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/status_codes.h"
#include "gateway/http_control.h"
#include "platform/host.h"

namespace brelwin {

// Values of TransferStatus.
inline constexpr std::int32_t TransferPending = 0;
inline constexpr std::int32_t TransferCompleted = StatusDone;
inline constexpr std::int32_t TransferTimedOut = StatusTimedOut;
inline constexpr std::int32_t TransferHandlerFailed = -400;
inline constexpr std::int32_t TransferHeldBack = -500;  // nothing of the form has left
inline constexpr std::int32_t TransferFailed = -1000;

// One transfer. Every submission has its own, so that an answer is never read as that of another one.
struct TransferState {
  bool SendInProgress = false;
  bool IsHeldBack = false;
  std::int16_t LastInternetState = 0;
  std::string LastPostedData;
  std::int32_t LastResponseCode = 0;
  std::string LastResponseInfo;
  std::string LastResponseText;
  std::int32_t TransferStatus = TransferPending;
  std::int32_t TransferErrNumber = 0;
  std::string TransferErrString;
};

class SpotliteTransfer {
 public:
  explicit SpotliteTransfer(Host& host);
  SpotliteTransfer(const SpotliteTransfer&) = delete;
  SpotliteTransfer& operator=(const SpotliteTransfer&) = delete;

  // The fields of the latest transfer, and whether one is waited for: then no other may be begun.
  const TransferState& Latest() const { return *latest_; }
  bool SendInProgress() const { return latest_->SendInProgress; }

  // Posts the form. Whoever waits for it clears SendInProgress when the waiting is over. `mayLeave` is asked
  // when the form is about to leave the machine, however late that is; after a no the transfer is held back.
  std::shared_ptr<TransferState> Post(
      std::string_view url, std::string_view body,
      const std::function<bool()>& mayLeave = [] { return true; });

  // Ends the transfer; what has not been sent is not sent.
  void Cancel();

  // Ends a transfer, waited for or not, whose answer has not arrived: nothing leaves the machine behind a
  // user who has asked to quit. An answer that is there is still taken.
  void CancelUnanswered();

 private:
  void StateChanged(std::int16_t state);
  void TakeAnswer(const std::shared_ptr<TransferState>& transfer);

  Host& host_;
  HttpControl ctlInternet_;
  std::shared_ptr<TransferState> latest_ = std::make_shared<TransferState>();
  std::shared_ptr<TransferState> underWay_;  // whose events may still come; null when none can
};

}  // namespace brelwin
