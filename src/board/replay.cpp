#include "board/replay.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "board/row_choice.h"
#include "board/row_text.h"

namespace brelwin {
namespace {

constexpr int HighestSpeed = 100;
constexpr std::int64_t SecondsOfHour = 3600;
constexpr std::int64_t SecondsOfDay = 86'400;

int Allowed(int speed) {
  return std::clamp(speed, 1, HighestSpeed);
}

// Announcements are written whole once a day, so that those of the day before have to be read as well.
bool Matters(const TimedEvent& event, DateTime day) {
  return std::holds_alternative<AnnouncementsRead>(event.Event) ||
         event.When >= AddSeconds(day, -SecondsOfSilence);
}

}  // namespace

Replay::Replay(std::vector<TimedEvent> events, DateTime begin, DateTime end, int speed, Instant now)
    : events_(std::move(events)), end_(end), from_(begin), since_(now), speed_(Allowed(speed)) {}

void Replay::SetSpeed(int speed, Instant now) {
  from_ = TimeAt(now);
  since_ = now;
  speed_ = Allowed(speed);
}

DateTime Replay::TimeAt(Instant now) const {
  const auto passed = std::max(now - since_, Milliseconds::zero()) * speed_;
  return std::min(end_, AddSeconds(from_, passed / std::chrono::seconds(1)));
}

std::span<const TimedEvent> Replay::Due(Instant now) {
  const auto time = TimeAt(now);
  const auto first = next_;
  while (next_ < events_.size() && events_[next_].When <= time) ++next_;
  return std::span(events_).subspan(first, next_ - first);
}

StoreResult EventsOfDay(ActivationStore& store, DateTime day, const std::function<bool()>& mayGoOn,
                        std::vector<TimedEvent>& events) {
  EventReader reader;
  const auto end = AddSeconds(day, SecondsOfDay);
  for (auto hour = AddSeconds(day, -SecondsOfDay); hour < end; hour = AddSeconds(hour, SecondsOfHour)) {
    std::vector<KeptEvent> kept;
    auto result = store.LoadEvents(hour, AddSeconds(hour, SecondsOfHour), kept);
    if (result.Outcome != StoreOutcome::Done) return result;
    for (const auto& text : kept) {
      auto event = reader.Read(text.Text);
      if (event && Matters(*event, day)) events.push_back(std::move(*event));
    }
    if (!mayGoOn()) break;
  }
  return {};
}

}  // namespace brelwin
