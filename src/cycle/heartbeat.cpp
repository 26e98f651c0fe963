#include "cycle/heartbeat.h"

namespace brelwin {
namespace {

constexpr auto Pause = std::chrono::seconds(10);

}  // namespace

Heartbeat::Heartbeat(const Clock& time, EventQueue& events, StallWatch& stalls)
    : time_(time), events_(events), stalls_(stalls) {
  Beat();
}

void Heartbeat::Beat() {
  stalls_.Look(time_.Now());
  pending_ = events_.CallAfter(Pause, [this] { Beat(); });
}

}  // namespace brelwin
