#include "core/internet_transfer.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include "base/encoding.h"
#include "core/fetch_mark.h"
#include "core/trap.h"
#include "platform/wait.h"

namespace brelwin {
namespace {

constexpr std::string_view UserAgent = "VB OpenUrl";
constexpr std::uint64_t MaximumBytes = std::uint64_t{64} * 1024 * 1024;

// A page that nothing else waits for is given more time.
struct Patience {
  std::chrono::seconds LongestSilence;  // until the connection stands, and between two bytes
  std::chrono::seconds LongestFetch;
};

constexpr Patience PatienceOf(DuringTransfer during) {
  using std::chrono::seconds;
  return during == DuringTransfer::NothingStarts ? Patience{seconds(30), seconds(120)}
                                                 : Patience{seconds(60), seconds(240)};
}

std::string InSeconds(std::string_view what, std::chrono::seconds limit) {
  return std::string(what) + std::to_string(limit.count()) + " seconds";
}

// Waits for the end of the page. Returns why it was not waited for any longer; empty when it has ended.
std::string WaitForEnd(Host& host, const PageRequest& request, const Patience& patience) {
  const auto deadline = host.Time.Now() + patience.LongestFetch;
  while (request.CurrentState() != PageRequest::State::Finished) {
    const auto activity = request.Activity();
    const auto somethingCame = [&] {
      return request.CurrentState() == PageRequest::State::Finished || request.Activity() != activity;
    };
    const auto silenceEnds = host.Time.Now() + patience.LongestSilence;
    const auto result = WaitUntil(host, somethingCame, std::min(silenceEnds, deadline));
    if (result == WaitResult::ShuttingDown) return "The program is closing";
    if (result == WaitResult::TimedOut)
      return silenceEnds < deadline ? InSeconds("No answer for ", patience.LongestSilence)
                                    : InSeconds("Not finished after ", patience.LongestFetch);
  }
  return {};
}

}  // namespace

std::string InternetTransfer::OpenURL(std::string_view theURL) {
  lastStatus_ = false;
  lastErrorMessage_ = "Unable to open URL";
  lastStatusCode_ = 0;
  lastBodyLength_ = 0;
  lastTransportError_ = "Another page is being read";
  if (host_.FetchInProgress) return {};

  std::optional<FetchMark> mark;
  if (during_ == DuringTransfer::NothingStarts) mark.emplace(host_);
  const auto silently = [this](const RuntimeError& error) { lastTransportError_ = error.Description; };
  return TrapErrors([&] { return Fetch(theURL); }, std::string(), silently);
}

std::string InternetTransfer::Fetch(std::string_view theURL) {
  const auto request = host_.Internet.OpenUrl({std::string(theURL), std::string(UserAgent), MaximumBytes});
  const auto reason = WaitForEnd(host_, *request, PatienceOf(during_));
  lastTransportError_ = reason.empty() ? request->ErrorText() : reason;
  lastStatusCode_ = request->StatusCode();
  lastStatus_ = lastStatusCode_ != 0;
  if (!lastStatus_) return {};
  lastErrorMessage_.clear();
  lastBodyLength_ = request->Body().size();
  return TextFromBytes(request->Body());
}

}  // namespace brelwin
