#include "core/internet_transfer.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/encoding.h"
#include "core/trap.h"
#include "platform/wait.h"

namespace brelwin {

namespace {

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
std::string WaitForEnd(Host& host, const HttpTransfer& transfer, const Patience& patience) {
  const auto deadline = host.Time.Now() + patience.LongestFetch;
  while (!transfer.IsFinished()) {
    const auto activity = transfer.Activity();
    const auto somethingCame = [&] { return transfer.IsFinished() || transfer.Activity() != activity; };
    const auto silenceEnds = host.Time.Now() + patience.LongestSilence;
    const auto result = WaitUntil(host, somethingCame, std::min(silenceEnds, deadline));
    if (result == WaitResult::ShuttingDown) return "The program is closing";
    if (result == WaitResult::TimedOut)
      return silenceEnds < deadline ? InSeconds("No answer for ", patience.LongestSilence)
                                    : InSeconds("Not finished after ", patience.LongestFetch);
  }
  return {};
}

HttpAnswer Fetch(Host& host, const HttpRequest& request, const Patience& patience) {
  const auto transfer = host.Internet.Start(request);
  auto reason = WaitForEnd(host, *transfer, patience);
  auto answer = transfer->TakeAnswer();
  if (!reason.empty()) answer.ErrorText = std::move(reason);
  return answer;
}

}  // namespace

HttpAnswer FetchPage(Host& host, const HttpRequest& request, DuringTransfer during) {
  if (!host.Going.LetStart(Work::Fetch)) return {.ErrorText = "Another page is being read"};
  std::optional<ActivityMark> mark;
  if (during == DuringTransfer::NothingStarts) mark.emplace(host.Going, Activity::FetchInProgress);
  HttpAnswer answer;
  const auto fetch = [&] {
    answer = Fetch(host, request, PatienceOf(during));
    return true;
  };
  TrapErrors(fetch, false, [&](const RuntimeError& error) { answer.ErrorText = error.Description; });
  return answer;
}

std::string InternetTransfer::OpenURL(std::string_view theURL) {
  answer_ = FetchPage(host_, {.Url = std::string(theURL)}, during_);
  const auto body = std::exchange(answer_.Body, {});
  lastBodyLength_ = body.size();
  const auto silently = [this](const RuntimeError& error) { answer_.ErrorText = error.Description; };
  return TrapErrors([&] { return TextFromBytes(body); }, std::string(), silently);
}

}  // namespace brelwin
