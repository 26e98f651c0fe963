// While it lives, the rest of the program knows that a page is being read or digested: input that would start
// work is dropped.
#pragma once

#include <utility>

#include "platform/host.h"

namespace brelwin {

class FetchMark {
 public:
  explicit FetchMark(Host& host) : host_(host), before_(std::exchange(host.FetchInProgress, true)) {}
  FetchMark(const FetchMark&) = delete;
  FetchMark& operator=(const FetchMark&) = delete;
  ~FetchMark() { host_.FetchInProgress = before_; }

 private:
  Host& host_;
  bool before_;
};

}  // namespace brelwin
