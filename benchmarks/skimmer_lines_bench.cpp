// Turning a million skimmer lines into spots.
#include <benchmark/benchmark.h>

#include <array>
#include <span>

#include "board/board_keeper.h"
#include "made_spots.h"
#include "plain_line_reader.h"
#include "rbn/line_buffer.h"
#include "rbn/spot_parser.h"
#include "test_host.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t LineCount = 1'000'000;
constexpr std::size_t LinesInBlock = 1'000;
constexpr std::size_t AlertCount = 2'000;

// Files that take everything and keep nothing.
class DiscardingFiles final : public Files {
 public:
  bool Exists(std::string_view) const override { return true; }
  std::optional<std::string> Read(std::string_view) const override { return {}; }
  FileResult Write(std::string_view, std::string_view, FileAccess) override { return {}; }
  FileResult Append(std::string_view, std::string_view, FileAccess) override { return {}; }
  FileResult Delete(std::string_view) override { return {}; }
  std::vector<std::string> NamesIn(std::string_view) const override { return {}; }
  std::optional<std::uint64_t> Length(std::string_view) const override { return {}; }
};

// The callsign of a number: "DL3ABC". Numbers below 175,760 give different ones.
std::string Callsign(std::string_view prefix, std::size_t number) {
  std::string callsign(prefix);
  callsign += static_cast<char>('0' + number % 10);
  auto rest = number / 10;
  for (int i = 0; i < 3; ++i, rest /= 26) callsign += static_cast<char>('A' + rest % 26);
  return callsign;
}

struct MadeLine {
  std::size_t Skimmer = 0;
  std::size_t Station = 0;
  std::string_view Type = "CQ";
};

// Appends the line in the columns of the stream.
void AppendLine(std::string& block, const MadeLine& line) {
  constexpr std::array<std::string_view, 5> Skimmers = {
      "KM3T-2-#: ", "DL8LAS-3-#:", "EA5WU-#:  ", "W3OA-#:   ", "JI1HFJ-#: "};
  block.append("DX de ").append(Skimmers[line.Skimmer % Skimmers.size()]).append("  ");
  block.append(std::to_string(14'000 + line.Station % 100)).append(".0  ");
  block.append(Callsign("DL", line.Station)).append("         CW    ");
  block.append(std::to_string(10 + line.Skimmer % 30)).append(" dB  22 WPM  ");
  block.append(line.Type).append("      1201Z\r\n");
}

using Blocks = std::vector<std::string>;

template <class LineOfNumber>
Blocks MakeBlocks(std::size_t linesInBlock, LineOfNumber lineOfNumber) {
  Blocks blocks(LineCount / linesInBlock);
  for (std::size_t number = 0; number < LineCount; ++number)
    AppendLine(blocks[number / linesInBlock], lineOfNumber(number));
  return blocks;
}

Blocks BlocksOfBeacons(std::size_t linesInBlock) {
  return MakeBlocks(linesInBlock, [](std::size_t number) { return MadeLine{number, number, "BEACON"}; });
}

Blocks BlocksOfDifferentCalls(std::size_t linesInBlock) {
  return MakeBlocks(linesInBlock, [](std::size_t number) { return MadeLine{number, number}; });
}

// Of twenty lines one is of a new station; the others are of those that came just before it.
Blocks BlocksOfRepeatedCalls() {
  return MakeBlocks(LinesInBlock, [](std::size_t number) {
    const auto newest = number / 20;
    return MadeLine{number, number % 20 == 0 ? newest : newest - std::min(newest, number % 7)};
  });
}

// Four alerts for three stations, of which the first five are heard in the made lines.
AlertCollection MakeAlerts(std::size_t count, DateTime time) {
  AlertCollection alerts;
  for (std::size_t i = 0; i < count; ++i) {
    SOTAAlert alert;
    alert.AlertKey = alert.ID = std::to_string(i);
    alert.stationBaseCallsign = Callsign(i < 5 ? "DL" : "OE", i % (count * 3 / 4));
    SetAlertDateAndTime(alert, time);
    alerts.Add(std::make_shared<const SOTAAlert>(std::move(alert)));
  }
  return alerts;
}

class Parser {
 public:
  Parser(SpotFilter filter, std::size_t alertCount)
      : filter_(std::move(filter)), alerts_(MakeAlerts(alertCount, host_.Time.LocalNow())) {}

  SpotCollection Spots(std::string_view block) {
    SpotCollection spots;
    ParseReverseBeaconSpots(world_, block, filter_, known_, alerts_, recent_, spots, count_, errorText_);
    return spots;
  }

  // How many spots the block gives.
  std::size_t Parse(std::string_view block) { return Spots(block).Count(); }

  void Forget() { recent_ = RecentRBNSpots(); }

 private:
  test::TestHost host_;
  DiscardingFiles files_;
  Host world_ = host_.WithFiles(files_);
  SpotFilter filter_;
  AlertCollection alerts_;
  CallsignCollection known_;
  RecentRBNSpots recent_;
  std::int32_t count_ = 0;
  std::string errorText_;
};

void CountLines(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(LineCount));
}

enum class Forgetting : std::uint8_t { BetweenRuns, BetweenBlocks };

void ParseBlocks(benchmark::State& state, Parser parser, const Blocks& blocks, std::size_t expected,
                 Forgetting forgetting = Forgetting::BetweenRuns) {
  for (auto _ : state) {
    std::size_t kept = 0;
    for (const auto& block : blocks) {
      kept += parser.Parse(block);
      if (forgetting == Forgetting::BetweenBlocks) parser.Forget();
    }
    state.PauseTiming();
    if (kept != expected) state.SkipWithError("not the spots that were expected");
    parser.Forget();
    if (kept != expected) break;
    state.ResumeTiming();
  }
  CountLines(state);
}

PlainSurroundings SurroundingsFor(const SpotFilter& filter, DateTime localNow) {
  PlainSurroundings surroundings;
  for (std::size_t i = 0; i < 5; ++i) surroundings.Announced.insert(Callsign("DL", i));
  surroundings.DropsRepeated = filter.FilterDuplicateSpots;
  surroundings.LocalNow = localNow;
  return surroundings;
}

// Whether the parser makes the same spots of some of the blocks.
bool AreSpotsOf(Parser parser, const Blocks& blocks, PlainSurroundings surroundings) {
  const auto some = std::span(blocks).first(std::min<std::size_t>(20, blocks.size()));
  return std::ranges::all_of(some, [&](const std::string& block) {
    SpotCollection spots;
    ReadMadeLines(block, surroundings, spots);
    return AreSameSpots(parser.Spots(block), spots);
  });
}

// The same spots by code that knows these lines.
void ReadBlocksPlainly(benchmark::State& state, const SpotFilter& filter, const Blocks& blocks,
                       std::size_t expected, Forgetting forgetting = Forgetting::BetweenRuns) {
  auto surroundings = SurroundingsFor(filter, test::TestHost().Time.LocalNow());
  if (!AreSpotsOf(Parser(filter, AlertCount), blocks, surroundings))
    state.SkipWithError("the floor makes other spots");
  for (auto _ : state) {
    std::size_t kept = 0;
    for (const auto& block : blocks) {
      SpotCollection spots;
      ReadMadeLines(block, surroundings, spots);
      kept += spots.Count();
      if (forgetting == Forgetting::BetweenBlocks) surroundings.Heard.Clear();
    }
    state.PauseTiming();
    if (kept != expected) state.SkipWithError("not the spots that were expected");
    surroundings.Heard.Clear();
    state.ResumeTiming();
  }
  CountLines(state);
}

std::size_t CharactersInFields(std::string_view line) {
  std::size_t characters = 0;
  for (int field = 0; field < 8; ++field) {
    const auto length = std::min(line.find("  "), line.size());
    characters += length;
    line.remove_prefix(std::min(line.find_first_not_of(' ', length), line.size()));
  }
  return characters;
}

// Finds the lines and takes them apart into fields, and does nothing else.
void SplitBlocks(benchmark::State& state, const Blocks& blocks) {
  for (auto _ : state) {
    std::size_t characters = 0;
    for (std::string_view block : blocks) {
      while (!block.empty()) {
        const auto line = block.substr(5, block.find("DX de", 5) - 5);
        characters += CharactersInFields(line);
        block.remove_prefix(line.size() + 5);
      }
    }
    benchmark::DoNotOptimize(characters);
  }
  CountLines(state);
}

void DropByType(benchmark::State& state) {
  ParseBlocks(state, Parser({}, AlertCount), BlocksOfBeacons(static_cast<std::size_t>(state.range(0))), 0);
}
BENCHMARK(DropByType)->Arg(10)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

// From the socket to the verdict, by itself and with a board of a thousand stations that hears every line
// first. None of the lines is of these stations.
void DropFromSocket(benchmark::State& state) {
  const auto blocks = BlocksOfBeacons(LinesInBlock);
  Parser parser({}, AlertCount);
  test::TestHost host;
  BoardKeeper keeper(host.World);
  for (std::size_t i = 0; i < 1'000; ++i) {
    SotawatchSpotRead spot;
    spot.Who.BaseCallsign = Callsign("OE", i);
    spot.What.ID = std::to_string(i);
    keeper.Take(spot);
  }
  LineBuffer lines;
  for (auto _ : state) {
    for (const auto& block : blocks) {
      const auto intake = lines.Add(block);
      if (state.range(0) == 1) keeper.Hear(lines.Newest(intake.Bytes));
      benchmark::DoNotOptimize(parser.Parse(lines.TakeLines()));
    }
  }
  CountLines(state);
}
BENCHMARK(DropFromSocket)->ArgName("board")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void DropByTypeFloor(benchmark::State& state) {
  SplitBlocks(state, BlocksOfBeacons(LinesInBlock));
}
BENCHMARK(DropByTypeFloor)->Unit(benchmark::kMillisecond);

SpotFilter FilterOfRepeated() {
  SpotFilter filter;
  filter.FilterDuplicateSpots = true;
  filter.DuplicateSpotFilteringPeriod = 10;
  return filter;
}

void KeepFivePercent(benchmark::State& state) {
  ParseBlocks(state, Parser(FilterOfRepeated(), static_cast<std::size_t>(state.range(0))),
              BlocksOfRepeatedCalls(), LineCount / 20);
}
BENCHMARK(KeepFivePercent)->Arg(10)->Arg(2'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void KeepFivePercentFloor(benchmark::State& state) {
  ReadBlocksPlainly(state, FilterOfRepeated(), BlocksOfRepeatedCalls(), LineCount / 20);
}
BENCHMARK(KeepFivePercentFloor)->Unit(benchmark::kMillisecond);

SpotFilter FilterOfNothing() {
  SpotFilter filter;
  filter.DuplicateSpotFilteringPeriod = 10;
  return filter;
}

void KeepEveryLine(benchmark::State& state) {
  const auto linesInBlock = static_cast<std::size_t>(state.range(0));
  ParseBlocks(state, Parser(FilterOfNothing(), AlertCount), BlocksOfDifferentCalls(linesInBlock), LineCount,
              Forgetting::BetweenBlocks);
}
BENCHMARK(KeepEveryLine)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void KeepEveryLineFloor(benchmark::State& state) {
  ReadBlocksPlainly(state, FilterOfNothing(),
                    BlocksOfDifferentCalls(static_cast<std::size_t>(state.range(0))), LineCount,
                    Forgetting::BetweenBlocks);
}
BENCHMARK(KeepEveryLineFloor)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
