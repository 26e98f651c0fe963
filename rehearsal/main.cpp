// Plays days of the whole program against the practice network; who judges them comes afterwards.
#include <charconv>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "rehearsal.h"

namespace {

constexpr int UsageError = 2;
constexpr std::string_view Usage =
    "usage: brelwin-rehearsal --folder DIR [--days N] [--seed S] [--hours X] [--crowd N] [--lines N] "
    "[--faults 0] [--json 1]\n"
    "  --folder DIR  each day is kept in a folder of its own in there\n"
    "  --days N      how many days are played, each with a seed of its own (default 1)\n"
    "  --seed S      the first day's seed (default 1)\n"
    "  --hours X     how long a day is (default 24)\n"
    "  --crowd N     activators beside the usual ones (default 300)\n"
    "  --lines N     skimmer lines an hour (default 2000)\n"
    "  --faults 0    everything works\n"
    "  --json 1      spots and announcements come from the JSON service\n";

struct Options {
  std::string Folder;
  std::uint64_t Days = 1;
  rehearsal::Plan Plan;
};

template <class Number>
bool Read(std::string_view text, Number least, Number& number) {
  const auto end = text.data() + text.size();
  return std::from_chars(text.data(), end, number).ptr == end && number >= least;
}

bool ReadFlag(std::string_view text, bool& flag) {
  flag = text != "0";
  return text == "0" || text == "1";
}

bool ReadOption(std::string_view name, std::string_view value, Options& options) {
  if (name == "--folder") options.Folder = value;
  if (name == "--folder") return !value.empty();
  if (name == "--days") return Read<std::uint64_t>(value, 1, options.Days);
  if (name == "--seed") return Read<std::uint64_t>(value, 0, options.Plan.Seed);
  if (name == "--hours") return Read(value, 0.01, options.Plan.Hours);
  if (name == "--crowd") return Read<std::size_t>(value, 0, options.Plan.Crowd);
  if (name == "--lines") return Read(value, 1, options.Plan.LinesAnHour);
  if (name == "--faults") return ReadFlag(value, options.Plan.HasFaults);
  return name == "--json" && ReadFlag(value, options.Plan.IsByService);
}

bool ReadOptions(std::span<const std::string_view> arguments, Options& options) {
  for (std::size_t i = 0; i + 1 < arguments.size(); i += 2)
    if (!ReadOption(arguments[i], arguments[i + 1], options)) return false;
  return arguments.size() % 2 == 0 && !options.Folder.empty();
}

}  // namespace

int main(int count, char** values) {
  const std::vector<std::string_view> arguments(values + 1, values + count);
  Options options;
  if (!ReadOptions(arguments, options)) {
    std::cerr << Usage;
    return UsageError;
  }
  for (std::uint64_t day = 0; day < options.Days; ++day, ++options.Plan.Seed) {
    const auto folder = options.Folder + "/seed-" + std::to_string(options.Plan.Seed);
    rehearsal::Rehearse(options.Plan, folder);
    std::cout << folder << std::endl;
  }
  return 0;
}
