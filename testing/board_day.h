// A morning of activations in every state, as many as are wanted, and what surrounds them.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "board/board_keeper.h"
#include "board/board_order.h"
#include "radio/dates.h"
#include "test_host.h"

namespace brelwin::test {

// Minutes after 12:00 UTC of the day.
inline DateTime OnTheDay(int minute) {
  return AddMinutes(*DateTimeFromCalendar({2026, 11, 26, 12, 0, 0}), minute);
}

// The moment at which the day is looked at.
inline constexpr int LookMinute = 34;

inline StationOnSummit ActivatorOf(int number) {
  static const std::array<StationOnSummit, 4> some{{
      {"G4ABC/P", "G4ABC", "G/LD-003", "Helvellyn", 10},
      {"OE/DL1ABC/P", "DL1ABC", "OE/TI-123", "Große Klammspitze", 8},
      {"W6XYZ", "W6XYZ", "W6/CT-011", "Mount Wilson, San Gabriel Mountains", 6},
      {"HB9XY/P", "HB9XY", "HB/VS-077", "Pointe de Lona", 10},
  }};
  auto who = some[static_cast<std::size_t>(number) % some.size()];
  if (number < 4) return who;
  const auto suffix =
      std::string{static_cast<char>('A' + number / 676 % 26), static_cast<char>('A' + number / 26 % 26),
                  static_cast<char>('A' + number % 26)};
  who.BaseCallsign = "M" + std::to_string(number / 17576 % 10) + suffix;
  who.Station = who.BaseCallsign + "/P";
  who.Summit = "GW/NW-" + std::to_string(100 + number % 900);
  return who;
}

// Windows begin from half an hour before noon to some hours later; one in ten is over, one in ten cancelled.
inline AnnouncedStation AnnouncedOnTheDay(int number) {
  const int begin = number % 10 == 9 ? -400 : -30 + number % 10 * 25;
  const auto withdrawn = number % 10 == 8 ? Withdrawal::Cancelled : Withdrawal::None;
  return {ActivatorOf(number),
          {"K" + std::to_string(number), OnTheDay(begin), OnTheDay(begin + 30), OnTheDay(begin + 210),
           "14.062-cw, 7.032-cw", number % 2 == 0 ? "With dog; S2S welcome" : "", withdrawn, false}};
}

inline SkimmerHeard HeardOnTheDay(int number, int minute, float mhz) {
  static const std::array<const char*, 6> skimmers{"DK1AA", "W3LPL", "G0KTN", "OH6BG", "EA5WU", "JH7CSU"};
  const auto who = ActivatorOf(number);
  const auto skimmer = skimmers[static_cast<std::size_t>(minute + number) % skimmers.size()];
  const auto signal = 8 + (minute * 7 + number * 3) % 24;
  return {who.Station, who.BaseCallsign, {OnTheDay(minute), mhz, "CW", skimmer, signal, 22}};
}

inline SotawatchSpotRead SpottedOnTheDay(int number, int minute, const std::string& comment) {
  return {ActivatorOf(number),
          {"S" + std::to_string(number) + "-" + std::to_string(minute), OnTheDay(minute), 7.032F, "CW",
           comment, ActivatorOf(number).BaseCallsign, true, comment.find("QRT") != std::string::npos}};
}

inline void Hear(TestHost& host, BoardKeeper& keeper, int number, int from, int to, float mhz) {
  for (int minute = from; minute < to; ++minute) {
    host.Time.SetLocalTime(OnTheDay(minute));
    keeper.Take(HeardOnTheDay(number, minute, mhz));
  }
}

// The clock of the host then shows the moment of the look.
inline void TakeDay(TestHost& host, BoardKeeper& keeper, int activations) {
  AnnouncementsRead read;
  for (int number = 0; number < activations; ++number) read.All.push_back(AnnouncedOnTheDay(number));
  host.Time.SetLocalTime(OnTheDay(-420));
  keeper.Take(read);
  Hear(host, keeper, 0, 0, 20, 14.0625F);
  Hear(host, keeper, 0, 22, 34, 7.0321F);
  Hear(host, keeper, 1, 25, 33, 10.118F);
  Hear(host, keeper, 2, 0, 15, 21.061F);
  Hear(host, keeper, 5, 0, 10, 14.061F);
  for (int number = 20; number < activations; number += 20) Hear(host, keeper, number, 31, 34, 14.062F);
  host.Time.SetLocalTime(OnTheDay(30));
  keeper.Take(SpottedOnTheDay(0, 24, "CQ CQ, then to the next summit"));
  keeper.Take(SpottedOnTheDay(3, 28, "calling now"));
  keeper.Take(SpottedOnTheDay(5, 12, "QRT, thanks all"));
  keeper.Take(GatewayDecided{"G4ABC", {OnTheDay(23), true, "sent"}});
  keeper.Take(GatewayDecided{"DL1ABC", {OnTheDay(26), false, "spotted 3 minutes ago"}});
  host.Time.SetLocalTime(OnTheDay(LookMinute));
}

inline RowSurroundings AroundOnTheDay(const ActivationRow& row) {
  const auto number = static_cast<double>(row.Number);
  const bool isNeeded = row.Number % 3 == 0;
  return {850 + number * 37,
          45 + number * 13,
          static_cast<int>(row.Number % 40),
          "EU, NA",
          isNeeded ? "new summit" : "",
          isNeeded,
          row.Number % 5 == 0};
}

}  // namespace brelwin::test
