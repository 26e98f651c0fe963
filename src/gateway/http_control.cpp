#include "gateway/http_control.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"
#include "core/trap.h"

namespace brelwin {

namespace {

constexpr HttpLimits Limits{std::uint64_t{16} * 1024 * 1024, 5};
constexpr Milliseconds LongestTransfer{120'000};
constexpr int TimeoutNumber = 4;  // as the client numbers what takes too long

}  // namespace

void HttpControl::Execute(std::string url, std::string body, std::string contentType,
                          std::function<bool()> mayLeave) {
  Cancel();
  transfer_ =
      client_.Start({.Url = std::move(url),
                     .Method = "POST",
                     // Plain, so that the length of what comes shows whether it is whole.
                     .Headers = {{"Content-Type", std::move(contentType)}, {"Accept-Encoding", "identity"}},
                     .Body = std::move(body),
                     .Limits = Limits,
                     .IsRepeatable = false,
                     .MayLeave = std::move(mayLeave)});
  transfer_->Finished = [this] { End(transfer_->TakeAnswer()); };
  limit_ = events_.CallAfter(LongestTransfer, [this] {
    End({.ErrorText = "no complete answer within 120 seconds", .ErrorNumber = TimeoutNumber});
  });
}

std::string HttpControl::GetChunk(std::size_t atMost) {
  auto chunk = answer_.Body.substr(std::min(read_, answer_.Body.size()), atMost);
  read_ += chunk.size();
  return chunk;
}

std::int32_t HttpControl::ResponseCode() const {
  return answer_.ErrorText.empty() ? answer_.Status : answer_.ErrorNumber;
}

std::string HttpControl::ResponseInfo() const {
  return answer_.ErrorText.empty() ? answer_.Reason : answer_.ErrorText;
}

void HttpControl::Cancel() {
  limit_ = {};
  transfer_ = nullptr;
  answer_ = {};
  read_ = 0;
}

void HttpControl::End(HttpAnswer answer) {
  Cancel();
  answer_ = std::move(answer);
  const auto listener = StateChanged;
  if (listener) listener(answer_.ErrorText.empty() ? HttpStateCompleted : HttpStateError);
}

namespace {

constexpr std::size_t ChunkLength = 1024;

void NoteEnd(const HttpControl& control, TransferState& transfer, std::int32_t status) {
  transfer.LastResponseCode = control.ResponseCode();
  transfer.LastResponseInfo = control.ResponseInfo();
  transfer.TransferStatus = status;
  transfer.SendInProgress.reset();
}

}  // namespace

SpotliteTransfer::SpotliteTransfer(Host& host) : host_(host), ctlInternet_(host.Internet, host.Events) {
  ctlInternet_.StateChanged = [this](std::int16_t state) { StateChanged(state); };
}

std::shared_ptr<TransferState> SpotliteTransfer::Post(std::string_view url, std::string_view body,
                                                      const std::function<bool()>& mayLeave) {
  auto transfer = std::make_shared<TransferState>();
  transfer->SendInProgress.emplace(host_.Going, Activity::SendInProgress);
  transfer->LastPostedData = body;
  latest_ = transfer;
  underWay_ = transfer;
  const auto ask = [transfer, mayLeave] {
    transfer->IsHeldBack = !mayLeave();
    return !transfer->IsHeldBack;
  };
  ctlInternet_.Execute(std::string(url), std::string(body), "application/x-www-form-urlencoded", ask);
  return transfer;
}

void SpotliteTransfer::Cancel() {
  underWay_ = nullptr;
  latest_->SendInProgress.reset();
  ctlInternet_.Cancel();
}

void SpotliteTransfer::CancelUnanswered() {
  if (latest_->LastInternetState != HttpStateCompleted) Cancel();
}

void SpotliteTransfer::StateChanged(std::int16_t state) {
  const auto transfer = underWay_;
  if (!transfer) return;
  const auto noteError = [&](const RuntimeError& error) {
    transfer->TransferErrNumber = error.Number;
    transfer->TransferErrString = error.Description;
    transfer->TransferStatus = TransferHandlerFailed;  // SendInProgress stays: the time-out ends the waiting
  };
  const auto handle = [&] {
    transfer->LastInternetState = state;
    if (state == HttpStateCompleted) TakeAnswer(transfer);
    if (state == HttpStateError)
      NoteEnd(ctlInternet_, *transfer, transfer->IsHeldBack ? TransferHeldBack : TransferFailed);
    return true;
  };
  TrapErrors(handle, false, noteError);
}

// A request begun during one of the yields takes the control over: then the rest of this answer is gone, and
// what the control holds is the other one's.
void SpotliteTransfer::TakeAnswer(const std::shared_ptr<TransferState>& transfer) {
  std::string bytes;
  while (underWay_ == transfer) {
    const auto chunk = ctlInternet_.GetChunk(ChunkLength);
    if (chunk.empty()) {
      transfer->LastResponseText = TextFromBytes(bytes);
      return NoteEnd(ctlInternet_, *transfer, TransferCompleted);
    }
    bytes.append(chunk);
    host_.Events.DoEvents();
  }
}

}  // namespace brelwin
