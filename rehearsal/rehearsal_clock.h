// What time it is on the rehearsal's clock, as the ledger and the practice network count it.
#pragma once

#include <cstdint>

#include "test_world.h"

namespace rehearsal {

class RehearsalClock {
 public:
  // `begin` is the moment, in seconds since 1970, at which the clock stands now.
  RehearsalClock(const brelwin::test::TestClock& clock, std::int64_t begin) : clock_(clock), begin_(begin) {}

  std::int64_t Milliseconds() const { return begin_ * 1000 + (clock_.Now() - brelwin::Instant{}).count(); }
  std::int64_t UTCSeconds() const { return Milliseconds() / 1000; }

 private:
  const brelwin::test::TestClock& clock_;
  std::int64_t begin_;
};

}  // namespace rehearsal
