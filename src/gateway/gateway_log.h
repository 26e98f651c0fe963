// Entries of the gateway's spot log: one or two spots, each between the lines that say what became of it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

// " - - ... - ", with that many dashes.
std::string DashLine(std::size_t dashes);

inline constexpr std::size_t ShortSeparatorDashes = 26;
inline constexpr std::size_t LongSeparatorDashes = 41;

struct GatewayLogSpot {
  const Spot& TheSpot;
  std::string_view LogLinePreceeding;
  std::string_view LogLineFollowing;
};

// Appends the entry to "GatewaySpotLog.txt". The spots themselves keep no trace of it: their log lines would
// reach the user's own logs.
void WriteGatewayLogEntry(Host& host, std::initializer_list<GatewayLogSpot> spots);

}  // namespace brelwin
