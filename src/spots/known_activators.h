// How activators that are met for the first time become known ones, in memory and in the list file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

// The shortest base callsigns that are learned, in characters: of a spot, and of an announced activation.
inline constexpr std::size_t ShortestSpottedCallsign = 2;
inline constexpr std::size_t ShortestAnnouncedCallsign = 3;

// Whether the activator was known before. One who was not, and whose base callsign is long enough, is added
// to the known and to the learned ones.
bool LearnActivator(const std::string& baseCallsign, std::size_t shortest, CallsignCollection& known,
                    std::vector<std::string>& learned);

enum class MissingList : std::uint8_t { IsCreated, StaysMissing };

// Adds the learned activators to "SOTAActivators.txt"; what cannot be written is logged.
void SaveLearnedActivators(Host& host, const std::vector<std::string>& learned, MissingList missing);

}  // namespace brelwin
