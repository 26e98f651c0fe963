#include "plain_line_reader.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "taking.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::string_view LineStart = "DX de ";

struct PlainLine {
  std::string_view Text;
  std::string_view Spotter;
  std::string_view Frequency;
  std::string_view Station;
  std::string_view Signal;
  std::string_view Speed;
  std::string_view Type;
};

std::string_view TakeWord(std::string_view& rest) {
  rest.remove_prefix(rest.find_first_not_of(' '));
  const auto word = rest.substr(0, rest.find(' '));
  rest.remove_prefix(word.size());
  return word;
}

PlainLine TakeLine(std::string_view& block) {
  PlainLine line;
  block.remove_prefix(LineStart.size());
  line.Text = block.substr(0, block.find('\r'));
  block.remove_prefix(line.Text.size() + 2);
  auto rest = line.Text;
  line.Spotter = rest.substr(0, rest.find("-#:"));
  rest.remove_prefix(line.Spotter.size() + 3);
  line.Frequency = TakeWord(rest);
  line.Station = TakeWord(rest);
  TakeWord(rest);  // the mode is always CW
  line.Signal = TakeWord(rest);
  TakeWord(rest);
  line.Speed = TakeWord(rest);
  TakeWord(rest);
  line.Type = TakeWord(rest);
  return line;
}

// "14062.0" to "14.062": without the noughts at the end, and without a point where only these follow.
std::string InMhz(std::string_view kilohertz) {
  std::string text(kilohertz.substr(0, 2));
  text.append(".").append(kilohertz.substr(2, 3));
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

// The columns two blanks apart.
void AppendColumns(std::string& text, std::string_view line) {
  while (!line.empty()) {
    const auto columnEnd = std::min(line.find("  "), line.size());
    text.append(line.substr(0, columnEnd));
    line.remove_prefix(columnEnd);
    if (line.empty()) break;
    text.append("  ");
    line.remove_prefix(line.find_first_not_of(' '));
  }
}

void Fill(Spot& spot, const PlainLine& line, std::string mhz) {
  spot.FrequencyString = line.Frequency;
  spot.FrequencyInMhz = static_cast<float>(NumberIn<std::int32_t>(line.Frequency)) / 1000;
  spot.BandInMhz = spot.FrequencyInMhz > 14 ? 14.0F : 0.135F;  // the edge belongs to no band
  spot.FormattedFrequencyString = std::move(mhz);
  if (spot.FormattedFrequencyString.size() == 2) spot.FormattedFrequencyString.push_back('.');
  spot.IsRBNSpot = true;
  spot.Spotter = line.Spotter;
  spot.ModeString = "CW";
  spot.mode = 1;
  spot.SignalToNoiseRatio = NumberIn<std::int32_t>(line.Signal);
  spot.Speed = NumberIn<std::int32_t>(line.Speed);
  spot.SpotTypeString = line.Type;
  spot.Comment.reserve(64);
  spot.Comment = spot.IsMatchedToAlert ? "Via RBN/Sotawatch Alert Match  S/N=" : "Via RBN  S/N=";
  spot.Comment.append(line.Signal).append(" dB, Speed=").append(line.Speed).append(" WPM");
  spot.UTCTime = "12:01";
}

}  // namespace

void ReadMadeLines(std::string_view block, PlainSurroundings& surroundings, SpotCollection& spots) {
  for (std::int32_t number = 1; !block.empty(); ++number) {
    const auto line = TakeLine(block);
    const std::string station(line.Station);
    auto mhz = InMhz(line.Frequency);
    auto key = station + mhz;
    const bool isNew = surroundings.Heard.Add(true, key);
    if (surroundings.DropsRepeated && !isNew) continue;
    auto made = std::make_shared<Spot>();
    auto& spot = *made;
    spot.IsMatchedToAlert = surroundings.Announced.contains(station);
    Fill(spot, line, std::move(mhz));
    spot.Station = spot.stationBaseCallsign = station;
    spot.SpotKey = std::move(key);
    spot.OrderReceived = number;
    spot.LocalDateAndTime = surroundings.LocalNow;
    spot.Spot.reserve(line.Text.size());
    AppendColumns(spot.Spot, line.Text);
    spot.Spot.append(" ---- <").append(std::to_string(number)).append(">");
    spot.ID.reserve(32);
    spot.ID.append(spot.UTCTime).append(std::to_string(number)).append(station).append(spot.Spotter);
    spots.Add(std::move(made), spot.ID);
  }
}

}  // namespace brelwin::benchmarks
