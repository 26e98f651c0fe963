// In which state an activation is: one decision from facts and the time to a state with its reason.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "board/activation_facts.h"

namespace brelwin {

enum class ActivationState : std::uint8_t {
  Announced,  // its window is yet to come
  Due,        // in its window and not heard
  Heard,      // by skimmers
  Spotted,    // on Sotawatch
  HeardAndSpotted,
  Quiet,  // nothing for 15 minutes
  Off,    // left the air
  Cancelled,
  NoShow,    // its window is over, and it was never heard
  OptedOut,  // does not want to be spotted automatically
};

enum class StateReason : std::uint8_t {
  WindowToCome,
  InWindow,
  HeardLately,
  SpottedLately,
  HeardAndSpottedLately,
  SilentForMinutes,
  SilentAfterWindow,
  SaidQRT,
  MovedOn,
  CancelledByActivator,
  RemovedByEntry,
  TakenOffThePage,
  SpotsTakenBack,
  WindowOver,
  AskedForNoSpots,
};

struct StateVerdict {
  ActivationState State = ActivationState::Announced;
  StateReason Reason = StateReason::WindowToCome;
  DateTime Since;  // the moment that the reason speaks of: of the window, the last sign of life, the word

  bool operator==(const StateVerdict&) const = default;
};

// Whoever is moved, or said QRT and was not heard 5 minutes later or spotted again, is off. Heard and spotted
// are signs of the last 15 minutes; of one who has opted out only spots count. Silence is quiet for up to 60
// minutes, in the window in which the station was on the air up to its end; then the station is off, or
// expected again in a window that is not over. Without any sign of life the announcements decide.
StateVerdict StateOf(const ActivationFacts& facts, DateTime now);

// The word of the state, such as "Heard and spotted", and one character that is its sign.
std::string_view StateWord(ActivationState state);
std::string_view StateGlyph(ActivationState state);

// The reason in words, such as "heard by 12 skimmers, last 2 min ago". One line.
std::string ReasonInWords(const StateVerdict& verdict, const ActivationFacts& facts, DateTime now);

// Skimmers that heard it in the last 10 minutes, each once, in the order of their callsigns.
std::vector<std::string_view> SkimmersOf(const ActivationFacts& facts, DateTime now);

}  // namespace brelwin
