#include "gateway/gateway_journal.h"

#include <memory>
#include <utility>

#include "base/line_text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "radio/dates.h"
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

namespace {

constexpr auto LongestAge = std::chrono::hours(12);
constexpr std::size_t MostEntries = 500;

std::string LineOf(const GatewayJournalEntry& entry) {
  auto line = DateTimeText(entry.LocalTime) + "  ";
  AppendPadded(line, entry.Station, 12, 13);
  AppendAlignedRight(line, entry.Frequency, 11);
  line.append("  ");
  AppendPrintable(line, entry.Words);
  return line;
}

}  // namespace

void GatewayJournal::Add(GatewayJournalEntry entry) {
  const auto oldest = entry.When - LongestAge;
  entries_.push_front(std::move(entry));
  while (entries_.size() > MostEntries || entries_.back().When < oldest) entries_.pop_back();
}

std::vector<std::string> GatewayJournal::Lines() const {
  std::vector<std::string> lines;
  lines.reserve(entries_.size());
  for (const auto& entry : entries_) lines.push_back(LineOf(entry));
  return lines;
}

}  // namespace brelwin
