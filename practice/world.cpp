#include "world.h"

#include <array>

namespace practice {
namespace {

using std::string_view;

constexpr std::array SummitTable{
    Summit{"G/LD-001", "High Crag", 978, 10, 54.454, -3.211},
    Summit{"G/LD-003", "Long Edge", 950, 8, 54.527, -3.016},
    Summit{"G/SP-004", "Moor Top", 589, 4, 53.867, -2.301},
    Summit{"GM/WS-001", "Big Ben", 1345, 10, 56.797, -5.004},
    Summit{"GW/NW-001", "Snow Peak", 1085, 10, 53.068, -4.076},
    Summit{"DM/BW-012", "Dark Wood Hill", 1164, 8, 48.05, 8.2},
    Summit{"HB/BE-089", "Blue Horn", 2112, 8, 46.6, 7.7},
    Summit{"OE/TI-015", "White Needle & Saddle", 3102, 10, 47.05, 11.1},
    Summit{"F/AB-020", "Col de l'Aigle", 2480, 8, 44.9, 6.6},
    Summit{"EA2/NV-011", "Peña Alta", 1430, 8, 42.8, -1.5},
    Summit{"I/LO-205", "Monte Croce", 1960, 6, 45.9, 9.4},
    Summit{"OK/KR-001", "Říp Ridge", 1603, 10, 50.7, 15.7},
    Summit{"S5/JA-040", "Stol Peak", 2236, 8, 46.4, 14.2},
    Summit{"SP/BZ-006", "Grey Meadow", 1725, 10, 49.5, 19.5},
    Summit{"W6/CT-001", "Far Mountain", 3068, 10, 34.3, -117.6},
    Summit{"W7O/CN-002", "Fire Lookout", 1871, 8, 44.4, -121.8},
    Summit{"VK3/VE-005", "Mount Gum", 1704, 10, -37.1, 146.5},
    Summit{"ZL1/WK-021", "Fern Top", 767, 6, -37.8, 175.6},
    Summit{"JA/NN-017", "Kumo Dake", 2501, 10, 36.4, 137.7},
    Summit{"LA/RL-044", "Storhøa", 1287, 6, 62.5, 7.5},
};

constexpr std::array<string_view, 21> OperatorTable{
    "G4ABC",  "G4XYZ", "GM4ABC", "GW3XYZ", "DL1ABC", "DL2XYZ", "HB9ABC", "OE5XYZ", "F5ABC", "EA2XYZ", "I2ABC",
    "OK1XYZ", "S52AB", "SP9XYZ", "W6ABC",  "K7XYZ",  "VK3ABC", "ZL1XYZ", "JA1ABC", "LA1XY", "Q0ZZ"};

constexpr std::array<string_view, 12> ChaserTable{"M0ABC",  "G0XYZ",  "DL6ABC", "ON4XYZ", "PA3ABC", "EA7XYZ",
                                                  "IK4ABC", "SM5XYZ", "N1ABC",  "W4XYZ",  "VK2ABC", "HA5XY"};

constexpr std::array<string_view, 11> CrowdPrefixes{"DL", "SP", "OK", "HB", "F", "ON",
                                                    "PA", "SM", "EA", "K",  "W"};

constexpr std::array BandPlanTable{
    BandPlan{"CW", 35200, 35600, 10},       BandPlan{"CW", 70300, 70380, 5},
    BandPlan{"CW", 101160, 101230, 5},      BandPlan{"CW", 140580, 140650, 5},
    BandPlan{"CW", 180850, 180950, 5},      BandPlan{"CW", 210600, 210650, 10},
    BandPlan{"CW", 280600, 280650, 10},     BandPlan{"SSB", 36600, 37600, 50},
    BandPlan{"SSB", 53985, 53985, 1},       BandPlan{"SSB", 70900, 71900, 25},
    BandPlan{"SSB", 142700, 142950, 25},    BandPlan{"SSB", 182000, 182200, 50},
    BandPlan{"SSB", 285000, 285500, 50},    BandPlan{"FM", 1453750, 1455500, 125},
    BandPlan{"FM", 1455000, 1455000, 1},    BandPlan{"FM", 4334000, 4335000, 250},
    BandPlan{"FM", 704500, 704500, 1},      BandPlan{"PSK", 140700, 140720, 5},
    BandPlan{"DATA", 70470, 70480, 5},      BandPlan{"AM", 290100, 290100, 1},
    BandPlan{"SSB", 12962000, 12962000, 1}, BandPlan{"SSB", 103681000, 103681000, 1},
};

constexpr std::array<string_view, 14> OrdinaryTable{"599 in the north, thanks for the summit",
                                                    "CQ CQ CQ",
                                                    "Calling now",
                                                    "Weak with QSB but readable",
                                                    "Nice signal, 73",
                                                    "QSY next on 2m FM",
                                                    "Big pile-up, be patient",
                                                    "5 watts to a wire",
                                                    "S2S most welcome",
                                                    "Wind and rain, short activation",
                                                    "339 fading",
                                                    "Up 2",
                                                    "",
                                                    "Tnx for new one"};

constexpr std::array<string_view, 13> AwkwardTable{
    "S5 < S9 & rising > 20 dB, says \"Tom's\" meter",
    "<b>Still here</b> & calling &amp; listening",
    "The last one was Posted by mistake, this is right",
    "[Posted by DL1ABC] relayed by phone, Posted by request",
    "Schöne Grüße vom Gipfel — 73 à tous, ありがとう",
    "CQ CQ at 24 wpm. S/N=14 dB at DL6ABC {Via Tarnlink}",
    "first 7.032, then 10.118; later|maybe\t14.285",
    "First line\nand a second one\n",
    "100 % humidity \\ 0 % battery \\/ 73 {;-)}",
    "RBNN please, no automatic spots today",
    "on @ 14.285 SSB in 5 minutes, AND later 145.500 FM",
    "A long story: we left the hut before sunrise, lost the path twice in the fog, met a herd of very "
    "curious "
    "goats who took a liking to the antenna wire, repaired it with tape and a tent peg, and are now sitting "
    "behind a rock with five watts, half a battery, two bananas and an excellent view of the inside of a "
    "cloud, so please be patient, call slowly, and do send your own summit reference twice if you have one, "
    "73 from all three of us and from the goats",
    "'single' \"double\" ]] > ]]& <item> </item>",
};

}  // namespace

std::span<const Summit> Summits() {
  return SummitTable;
}
std::span<const string_view> Operators() {
  return OperatorTable;
}
std::span<const string_view> Chasers() {
  return ChaserTable;
}
std::vector<std::string> CrowdCallsigns(std::size_t count) {
  std::vector<std::string> callsigns;
  for (std::size_t number = 0; callsigns.size() < count; ++number) {
    auto callsign = std::string(CrowdPrefixes[number % CrowdPrefixes.size()]);
    callsign += static_cast<char>('0' + number / 7 % 10);
    for (auto letters = number; letters > 0; letters /= 26) callsign += static_cast<char>('A' + letters % 26);
    callsigns.push_back(callsign + "QZ");
  }
  return callsigns;
}

std::span<const BandPlan> BandPlans() {
  return BandPlanTable;
}
std::span<const string_view> OrdinaryComments() {
  return OrdinaryTable;
}
std::span<const string_view> AwkwardComments() {
  return AwkwardTable;
}

}  // namespace practice
