#include "options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace practice {
namespace {

using std::string_view;

template <class Number>
bool ReadNumber(string_view text, Number least, Number most, Number& number) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !(value >= least && value <= most))
    return false;
  number = value;
  return true;
}

bool ReadFault(string_view name, Fault& fault) {
  const auto known = FaultOfName(name);
  if (known) fault = *known;
  return known.has_value();
}

bool ReadMix(string_view text, SpotliteMix& mix) {
  auto known = ReadSpotliteMix(text);
  if (known) mix = std::move(*known);
  return known.has_value();
}

bool ReadShapes(string_view name, RowShapes& shapes) {
  using Named = std::pair<string_view, RowShapes>;
  constexpr std::array Known{Named("new", RowShapes::New), Named("old", RowShapes::Old),
                             Named("mixed", RowShapes::Mixed)};
  const auto* const found = std::ranges::find(Known, name, &Named::first);
  if (found != Known.end()) shapes = found->second;
  return found != Known.end();
}

bool ReadFormOption(string_view name, string_view value, SpotliteOptions& options) {
  if (name == "--spotlite") return ReadMix(value, options.Mix);
  if (name == "--spotlite-wait") return ReadNumber(value, 0.0, 600.0, options.SecondsOfWait);
  return name == "--spot-lag" && ReadNumber(value, 0.0, 1e6, options.SecondsOfLag);
}

bool ReadOption(string_view name, string_view value, Options& options) {
  if (name == "--port") return ReadNumber(value, 0, 65535, options.Port);
  if (name == "--seed") return ReadNumber<std::uint64_t>(value, 0, UINT64_MAX, options.Seed);
  if (name == "--speed") return ReadNumber(value, 0.001, 10000.0, options.Speed);
  if (name == "--telnet-port") return ReadNumber(value, 0, 65535, options.TelnetPort);
  if (name == "--lines") return ReadNumber(value, 0.01, 100000.0, options.Stream.LinesPerSecond);
  if (name == "--fault-after") return ReadNumber(value, 0.0, 1e6, options.Stream.SecondsUntilTrouble);
  if (name == "--fault") return ReadFault(value, options.Stream.Trouble);
  if (name == "--crowd") return ReadNumber<std::size_t>(value, 0, 5000, options.Crowd);
  if (name == "--page-troubles") return ReadNumber(value, 0, 1000, options.PageTroubles);
  if (name == "--api") return ReadShapes(value, options.Json.Shapes);
  if (name == "--api-outages") return ReadNumber(value, 0, 100, options.Json.OutagesInAHundred);
  if (name.starts_with("--spot")) return ReadFormOption(name, value, options.Form);
  if (name != "--ledger" || value.empty()) return false;
  options.LedgerFile = value;
  return true;
}

}  // namespace

std::optional<Options> ReadOptions(std::span<const string_view> arguments) {
  Options options;
  if (arguments.size() % 2 != 0) return {};
  for (std::size_t i = 0; i < arguments.size(); i += 2)
    if (!ReadOption(arguments[i], arguments[i + 1], options)) return {};
  return options;
}

}  // namespace practice
