// The practice network's site behind the program's own ports: pages and posts in one process, on a clock that
// jumps.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/http_control.h"
#include "platform/internet_session.h"
#include "random.h"
#include "rehearsal_clock.h"
#include "site.h"

namespace rehearsal {

// A way to the site: each request takes a little, drawn from the seed.
class Way {
 public:
  Way(practice::Site& site, const RehearsalClock& clock, std::uint64_t seed)
      : site_(site), clock_(clock), random_(seed, 601) {}

  practice::Exchange Ask(const std::string& method, const std::string& url, const std::string& body,
                         const std::string& agent);
  void Sent(const practice::Exchange& exchange, bool whole = true) { site_.Sent(exchange, whole); }

  // Milliseconds from the request to the last byte.
  brelwin::Milliseconds TimeFor(const practice::Exchange& exchange);

 private:
  practice::Site& site_;
  const RehearsalClock& clock_;
  practice::Random random_;
};

class RehearsedInternet final : public brelwin::InternetSession {
 public:
  RehearsedInternet(brelwin::EventQueue& queue, Way& way) : queue_(queue), way_(way) {}

  std::unique_ptr<brelwin::PageRequest> OpenUrl(const brelwin::PageQuery& query) override;

 private:
  brelwin::EventQueue& queue_;
  Way& way_;
};

class RehearsedHttp final : public brelwin::HttpControl {
 public:
  RehearsedHttp(brelwin::EventQueue& queue, Way& way) : queue_(queue), way_(way) {}

  void Execute(const brelwin::HttpRequest& request) override;
  std::string GetChunk(std::size_t atMost) override;
  std::int32_t ResponseCode() const override;
  std::string ResponseInfo() const override { return isBroken_ ? "Connection closed" : "OK"; }
  void Cancel() override;

 private:
  void Ask(const std::string& method, const std::string& url, const std::string& body);
  void Finish();

  brelwin::EventQueue& queue_;
  Way& way_;
  std::string base_;                         // address of the site
  std::optional<practice::Exchange> asked_;  // until its answer has come
  brelwin::TimerHandle timer_;
  std::string answer_;
  std::int32_t status_ = 0;
  std::size_t read_ = 0;
  bool isBroken_ = false;
};

}  // namespace rehearsal
