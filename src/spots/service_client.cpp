#include "spots/service_client.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "radio/dates.h"

namespace brelwin {

namespace {

using std::chrono::seconds;

constexpr seconds ShortestPause{60};
constexpr seconds LongestPause{600};
constexpr seconds LongestRefusal{24 * 3600};
constexpr seconds BetweenWholeLists{300};

// Doubles with each failure. The half of it is left to chance, so that many programs that lost the same
// service do not come back to it at the same moment.
Milliseconds PauseAfter(int failures, double random) {
  constexpr int MostDoublings = 4;
  const auto whole =
      Milliseconds(std::min(LongestPause, ShortestPause * (1 << std::min(failures, MostDoublings))));
  return whole / 2 +
         Milliseconds(static_cast<std::int64_t>(random * static_cast<double>((whole / 2).count())));
}

}  // namespace

bool ServiceSchedule::MayAsk(Instant now) const {
  return now >= std::max(notBefore_, refusedUntil_);
}

std::optional<Instant> ServiceSchedule::NextAsk(Instant now) const {
  return MayAsk(now) ? std::nullopt : std::optional(std::max(notBefore_, refusedUntil_));
}

bool ServiceSchedule::IsWholeListDue(Instant now) const {
  return !wholeListAt_ || now - *wholeListAt_ >= BetweenWholeLists;
}

void ServiceSchedule::NoteAsked(Instant now) {
  notBefore_ = now + ShortestPause;
}

void ServiceSchedule::NoteFailure(Instant now, std::optional<seconds> retryAfter) {
  ++failures_;
  notBefore_ = std::max(notBefore_, now + PauseAfter(failures_, random_()));
  if (retryAfter)
    refusedUntil_ = std::max(refusedUntil_, now + std::clamp(*retryAfter, seconds(0), LongestRefusal));
}

namespace {

constexpr int NotModified = 304;
constexpr int TooManyRequests = 429;
constexpr std::size_t LongestEpoch = 100;
constexpr std::string_view GivenUp = "DEPRECATED";

bool IsSuccess(int status) {
  return status >= 200 && status < 300;
}

bool MeansGone(int status) {
  return status == 403 || status == 404 || status == 410;
}

// The epoch of an answer, which may be written as a text of JSON; empty when the answer holds something else.
std::string EpochOf(std::string_view body) {
  constexpr std::string_view Around = " \t\r\n\"";
  const auto begin = std::min(body.find_first_not_of(Around), body.size());
  const auto epoch = body.substr(begin, body.find_last_not_of(Around) + 1 - begin);
  const bool isOther = epoch.size() > LongestEpoch || epoch.find_first_of("<>{}[]") != std::string_view::npos;
  return std::string(isOther ? std::string_view() : epoch);
}

// The seconds of a "Retry-After", which may be a number or a date.
std::optional<std::chrono::seconds> RetryAfter(const HttpAnswer& answer, const Clock& clock) {
  constexpr std::chrono::seconds Usual{60};
  const auto value = answer.Header("Retry-After");
  if (!value) return answer.Status == TooManyRequests ? std::optional(Usual) : std::nullopt;
  if (const auto time = ReadDateTime(*value))
    return std::chrono::seconds(time->Seconds - UTCNow(clock).Seconds);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(value->data(), value->data() + value->size(), number);
  const auto most = std::chrono::seconds(std::chrono::hours(24 * 365));
  if (error == std::errc::result_out_of_range || number > most.count()) return most;
  return std::chrono::seconds(number);
}

std::string WithReason(const std::string& text, const std::string& reason) {
  return reason.empty() ? text : text + ": " + reason;
}

}  // namespace

std::string ServiceAddress(std::string_view root, std::string_view path) {
  constexpr std::string_view Api = "/api";
  auto base = Trim(root);
  while (base.ends_with('/')) base.remove_suffix(1);
  return std::string(base).append(base.ends_with(Api) ? "" : Api).append("/").append(path);
}

ServiceAnswer ServiceClient::Ask(const std::string& epochAddress, const std::string& listAddress,
                                 bool isWanted) {
  const auto now = host_.Time.Now();
  if (!schedule_.MayAsk(now)) return {};
  schedule_.NoteAsked(now);
  offered_.clear();
  auto answer = AskEpoch(epochAddress);
  const bool isSame = answer.Outcome == ServiceOutcome::Unchanged;
  if (isSame ? isWanted : answer.Outcome == ServiceOutcome::Listed) answer = AnswerOf(Get(listAddress, true));
  if (answer.Outcome == ServiceOutcome::Unchanged) Accept();
  return answer;
}

ServiceAnswer ServiceClient::AskBeside(const std::string& listAddress) {
  if (!schedule_.MayAskBeside(host_.Time.Now())) return {};
  return AnswerOf(Get(listAddress, false));
}

void ServiceClient::Accept() {
  epoch_ = newEpoch_;
  for (auto& [address, validators] : offered_) accepted_[address] = std::move(validators);
  offered_.clear();
  schedule_.NoteSuccess();
}

void ServiceClient::Reject() {
  schedule_.NoteFailure(host_.Time.Now(), {});
}

void ServiceClient::Forget() {
  epoch_.clear();
  accepted_.clear();
  schedule_.WantWholeList();
}

HttpAnswer ServiceClient::Get(const std::string& address, bool isConditional) {
  HttpRequest request{.Url = address};
  request.Headers.push_back({"Accept", "application/json"});
  request.Limits.MostRedirects = 0;  // another host would be one that the user has not confirmed
  if (const auto held = accepted_.find(address); isConditional && held != accepted_.end())
    request.Headers.insert(request.Headers.end(), held->second.begin(), held->second.end());
  auto answer = FetchPage(host_, request, during_);
  Validators validators;
  if (auto tag = answer.Header("ETag")) validators.push_back({"If-None-Match", *tag});
  if (auto time = answer.Header("Last-Modified")) validators.push_back({"If-Modified-Since", *time});
  if (isConditional && IsSuccess(answer.Status)) offered_[address] = std::move(validators);
  return answer;
}

ServiceAnswer ServiceClient::AnswerOf(HttpAnswer&& answer) {
  if (answer.Status == NotModified) return {ServiceOutcome::Unchanged, true, {}, {}};
  if (IsSuccess(answer.Status))
    return {ServiceOutcome::Listed, true, std::move(answer.Body), std::move(answer.ErrorText)};
  schedule_.NoteFailure(host_.Time.Now(), RetryAfter(answer, host_.Time));
  if (answer.Status == 0) return {ServiceOutcome::Failed, false, {}, std::move(answer.ErrorText)};
  return {MeansGone(answer.Status) ? ServiceOutcome::Gone : ServiceOutcome::Failed,
          true,
          {},
          WithReason("it answered " + std::to_string(answer.Status), answer.ErrorText)};
}

// Listed stands for an epoch that is another one.
ServiceAnswer ServiceClient::AskEpoch(const std::string& address) {
  newEpoch_ = epoch_;
  auto answer = AnswerOf(Get(address, true));
  if (answer.Outcome != ServiceOutcome::Listed) return answer;
  if (!answer.ErrorText.empty())
    return Fail(ServiceOutcome::Failed, "its epoch broke off: " + answer.ErrorText);
  newEpoch_ = EpochOf(answer.Body);
  if (newEpoch_.empty()) return Fail(ServiceOutcome::Failed, "it answered, but not with an epoch");
  if (newEpoch_ == GivenUp) return Fail(ServiceOutcome::Gone, "it says " + newEpoch_);
  if (newEpoch_ == epoch_) answer.Outcome = ServiceOutcome::Unchanged;
  return answer;
}

ServiceAnswer ServiceClient::Fail(ServiceOutcome outcome, std::string errorText) {
  schedule_.NoteFailure(host_.Time.Now(), {});
  return {outcome, true, {}, std::move(errorText)};
}

}  // namespace brelwin
