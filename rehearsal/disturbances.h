// What disturbs the gateway in a rehearsal beside the network: a user who changes his mind about it, and a
// machine that falls asleep.
#pragma once

#include <cstdint>

#include "controls/screen.h"
#include "ledger.h"
#include "platform/event_queue.h"
#include "random.h"
#include "test_world.h"

namespace rehearsal {

class Disturbances {
 public:
  // Begins at once, with the gateway on for everyone, and goes on for as long as it lives.
  Disturbances(brelwin::EventQueue& queue, brelwin::test::TestClock& time, brelwin::GatewayTab& tab,
               practice::Ledger& ledger, std::uint64_t seed);

 private:
  struct Wish {
    bool Everyone = true;
    bool Mine = false;
    bool Login = true;
  };

  void Wait(brelwin::Milliseconds pause, void (Disturbances::*next)());
  void Disturb();
  void ComeBack();
  void Sleep(std::int64_t seconds);
  void Switch(const Wish& wish);

  brelwin::EventQueue& queue_;
  brelwin::test::TestClock& time_;
  brelwin::GatewayTab& tab_;
  practice::Ledger& ledger_;
  practice::Random random_;
  brelwin::TimerHandle pending_;
};

}  // namespace rehearsal
