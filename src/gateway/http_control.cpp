#include "gateway/http_control.h"

#include <algorithm>
#include <utility>

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

}  // namespace brelwin
