#include "skimmer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "times.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::int64_t UsualOnOneFrequency = 900;     // seconds in which skimmers hear an activator there
constexpr std::int64_t LongestOnOneFrequency = 2700;  // some call for longer

constexpr std::array<string_view, 8> SkimmerTable{"KM3T-2", "LZ3CB", "DL8LAS-3", "EA8/DF4UE",
                                                  "F8DGY",  "W3OA",  "VK4CT",    "G4ZFE"};
constexpr std::array<string_view, 6> Prefixes{"K", "DL", "UA", "JA", "IK", "SP"};
constexpr std::array<string_view, 3> Notices{
    "WWV de W0MU <18Z> :   SFI=150, A=8, K=2, No Storms -> No Storms\r\n",
    "To ALL de VE7CC: maintenance tonight at 0300Z\a\a\r\n", "\a\r\n"};

// How far from the activator's channel skimmers hear it, in units of 100 Hz.
constexpr std::array<std::int64_t, 14> Offsets{0, 0, 0, 0, 0, 0, 1, 1, -1, 5, 9, 10, -10, 15};

struct Heard {
  string_view Skimmer;
  string Kilohertz;
  string Station;
  string_view Mode = "CW";
  int SignalToNoise = 0;
  int Speed = 0;
  string_view SpeedUnit = "WPM";
  string_view Type = "CQ";
};

string Padded(string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

string AlignedRight(const string& text, std::size_t width) {
  return string(width - std::min(width, text.size()), ' ') + text;
}

// Skimmers with long callsigns leave fewer blanks before the frequency, or none.
string Line(const Heard& heard, std::int64_t now) {
  const auto skimmer = string(heard.Skimmer) + "-#:";
  auto time = ClockTime(now);
  time.erase(2, 1);
  return "DX de " + skimmer + AlignedRight(heard.Kilohertz, 18 - std::min<std::size_t>(skimmer.size(), 18)) +
         "  " + Padded(heard.Station, 15) + Padded(string(heard.Mode), 6) +
         AlignedRight(std::to_string(heard.SignalToNoise), 2) + " dB  " +
         AlignedRight(std::to_string(heard.Speed), 2) + " " + string(heard.SpeedUnit) + "  " +
         Padded(string(heard.Type), 8) + time + "Z\r\n";
}

string KilohertzText(std::int64_t hundredHertz) {
  return std::to_string(hundredHertz / 10) + "." + std::to_string(hundredHertz % 10);
}

// "7.032" MHz in units of 100 Hz.
std::int64_t HundredHertz(const string& megahertz) {
  return std::llround(std::strtod(megahertz.c_str(), nullptr) * 10000);
}

// The operator, or the one beside him where there are two.
string StationOf(const ScriptedSpot& spot, bool second) {
  constexpr string_view And = " AND ";
  const auto at = spot.Station.find(And);
  if (at == string::npos) return spot.Station;
  return second ? spot.Station.substr(at + And.size()) : spot.Station.substr(0, at);
}

}  // namespace

string Skimmers::ActivatorLine(const PublishedSpot& spot, std::int64_t now) {
  Heard heard;
  heard.Skimmer = random_.Pick(SkimmerTable);
  heard.Kilohertz = KilohertzText(HundredHertz(spot.What.Frequency) + random_.Pick(Offsets));
  if (random_.OneIn(6)) heard.Kilohertz += static_cast<char>('0' + random_.Between(0, 9));
  heard.Station = StationOf(spot.What, random_.OneIn(3));
  heard.SignalToNoise = random_.OneIn(40) ? 0 : static_cast<int>(random_.Between(3, 40));
  heard.Speed = random_.OneIn(40) ? 0 : static_cast<int>(random_.Between(12, 26));
  if (random_.OneIn(20)) heard.Type = random_.OneIn(2) ? "DX" : "BEACON";
  if (random_.OneIn(40)) heard.Mode = "RTTY";
  return Line(heard, now);
}

string Skimmers::OtherLine(std::int64_t now) {
  Heard heard;
  heard.Skimmer = random_.Pick(SkimmerTable);
  heard.Kilohertz = KilohertzText(random_.Between(70000, 141000));
  heard.Station = string(random_.Pick(Prefixes)) + std::to_string(random_.Between(0, 9));
  for (auto letters = random_.Between(1, 3); letters > 0; --letters)
    heard.Station += static_cast<char>('A' + random_.Between(0, 25));
  heard.SignalToNoise = static_cast<int>(random_.Between(1, 50));
  heard.Speed = static_cast<int>(random_.Between(14, 38));
  if (random_.OneIn(6)) heard.Type = random_.OneIn(2) ? "DX" : "BEACON";
  if (random_.OneIn(12)) {
    heard.Mode = "RTTY";
    heard.Speed = 45;
    heard.SpeedUnit = "BPS";
  }
  return Line(heard, now);
}

string Skimmers::Notice() {
  return string(random_.Pick(Notices));
}

string Skimmers::NextLine(const std::vector<PublishedSpot>& onTheAir, std::int64_t now) {
  if (random_.OneIn(60)) return Notice();
  if (!random_.OneIn(5)) return OtherLine(now);
  const auto longest = random_.OneIn(5) ? LongestOnOneFrequency : UsualOnOneFrequency;
  std::vector<PublishedSpot> heard;
  std::ranges::copy_if(onTheAir, std::back_inserter(heard), [now, longest](const PublishedSpot& spot) {
    return spot.What.Mode == "CW" && now - spot.Time < longest;
  });
  return heard.empty() ? OtherLine(now) : ActivatorLine(random_.Pick(heard), now);
}

}  // namespace practice
