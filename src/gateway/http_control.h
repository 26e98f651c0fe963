// Posts forms, one at a time, and tells their progress as states; the outcome is left in the fields of the
// transfer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/status_codes.h"
#include "platform/event_queue.h"
#include "platform/host.h"
#include "platform/http.h"

namespace brelwin {

// The states that end a request.
inline constexpr std::int16_t HttpStateError = 11;      // there is no complete answer
inline constexpr std::int16_t HttpStateCompleted = 12;  // the answer, of whatever status, can be read

class HttpControl {
 public:
  // Client and queue must outlive it.
  HttpControl(HttpClient& client, EventQueue& events) : client_(client), events_(events) {}
  HttpControl(const HttpControl&) = delete;
  HttpControl& operator=(const HttpControl&) = delete;

  // Called from the event queue, never from inside Execute, and never for a request that has been ended. It
  // may call any function of the control.
  std::function<void(std::int16_t state)> StateChanged;

  // Ends the request before, of which nothing will be told any more, and posts this form. It is sent once. At
  // most 5 redirects are followed, 120 s are waited for the whole answer, and 16 MiB are taken of it. For
  // `mayLeave` see HttpRequest; a no is an error.
  void Execute(std::string url, std::string body, std::string contentType,
               std::function<bool()> mayLeave = {});

  // The next bytes of the answer, at most that many; empty when all has been read.
  std::string GetChunk(std::size_t atMost);

  // HTTP status and reason of the answer; after an error its number in the client's own list, never 0, and
  // what went wrong in words.
  std::int32_t ResponseCode() const;
  std::string ResponseInfo() const;

  // Ends the request; nothing will be told of it any more. What has not left the machine stays here.
  void Cancel();

 private:
  void End(HttpAnswer answer);

  HttpClient& client_;
  EventQueue& events_;
  std::unique_ptr<HttpTransfer> transfer_;
  TimerHandle limit_;
  HttpAnswer answer_;
  std::size_t read_ = 0;
};

// Values of TransferStatus.
inline constexpr std::int32_t TransferPending = 0;
inline constexpr std::int32_t TransferCompleted = StatusDone;
inline constexpr std::int32_t TransferTimedOut = StatusTimedOut;
inline constexpr std::int32_t TransferHandlerFailed = -400;
inline constexpr std::int32_t TransferHeldBack = -500;  // nothing of the form has left
inline constexpr std::int32_t TransferFailed = -1000;

// One transfer. Every submission has its own, so that an answer is never read as that of another one.
struct TransferState {
  std::optional<ActivityMark> SendInProgress;
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

  // The fields of the latest transfer.
  const TransferState& Latest() const { return *latest_; }

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
