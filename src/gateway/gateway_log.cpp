#include "gateway/gateway_log.h"

#include <memory>

#include "core/data_files.h"
#include "core/file_names.h"
#include "spots/spot_log.h"

namespace brelwin {
namespace {

SpotPointer WithLogLines(const GatewayLogSpot& spot) {
  auto copy = std::make_shared<Spot>(spot.TheSpot);
  copy->LogLinePreceeding = spot.LogLinePreceeding;
  copy->LogLineFollowing = spot.LogLineFollowing;
  return copy;
}

}  // namespace

std::string DashLine(std::size_t dashes) {
  std::string line = " ";
  for (std::size_t dash = 0; dash < dashes; ++dash) line.append("- ");
  return line;
}

void WriteGatewayLogEntry(Host& host, std::initializer_list<GatewayLogSpot> spots) {
  SpotCollection entry;
  for (const auto& spot : spots) entry.Add(WithLogLines(spot), {});
  WriteSpotsToLogFile(host, entry, InProgramFolder(host, GatewaySpotLogFile), TextLogFormat);
}

}  // namespace brelwin
