#include "ui/spot_list.h"

#include <array>
#include <charconv>
#include <initializer_list>

#include "base/text.h"
#include "radio/dates.h"
#include "radio/numbers.h"
#include "ui/line_text.h"

namespace brelwin {
namespace {

constexpr std::size_t UsualLineLength = 172;  // all columns and a line end

// The number pattern "##": the digits alone, and nothing for 0.
void AppendPoints(std::string& text, std::int16_t points) {
  constexpr std::size_t Width = 3;
  std::array<char, 8> buffer{};
  const auto end = points == 0 ? buffer.data() : std::to_chars(buffer.begin(), buffer.end(), points).ptr;
  AppendPadded(text, {buffer.data(), end}, Width, Width);
}

void AppendColumns(std::string& text, const Spot& spot) {
  AppendPadded(text, spot.UTCTime, 7, 7);
  AppendPadded(text, spot.Station, 12, 12);
  AppendPadded(text, spot.SummitDesignator, 12, 12);
  AppendPadded(text, spot.SummitName, 30, 32);
  AppendPoints(text, spot.SummitPoints);
  AppendAlignedRight(text, spot.FormattedFrequencyString, 11);
  AppendPadded(text, spot.ModeString, 6, 6);
  AppendPadded(text, spot.OperatorName, 13, 14);
  AppendPadded(text, spot.Comment, 60, 61);
  AppendPadded(text, "[" + spot.Spotter + "]", 12, 12);
}

// Feeds escape slashes with a backslash.
void UnescapeSlashes(std::string& text, std::size_t from) {
  if (text.find("\\/", from) == std::string::npos) return;
  text.replace(from, std::string::npos, Replace(std::string_view(text).substr(from), "\\/", "/"));
}

std::string FrequencyText(const Spot& spot) {
  const auto formatted = Trim(spot.FormattedFrequencyString);
  return formatted.empty() ? SingleText(spot.FrequencyInMhz) : std::string(formatted);
}

}  // namespace

std::string SpotListHeader() {
  const auto captions = "UTC" + std::string(4, ' ') + "Station" + std::string(5, ' ') + "Summit" +
                        std::string(6, ' ') + "Summit Name" + std::string(21, ' ') + "Pts" +
                        std::string(2, ' ') + "Freq" + std::string(5, ' ') + "Mode" + std::string(2, ' ') +
                        "Operator" + std::string(6, ' ') + "Comment" + std::string(54, ' ') + "Spotter";
  const std::string underline(captions.size(), '=');
  return captions + "\r\n" + underline + "\r\n";
}

void AppendFixedWidthLine(std::string& text, const Spot& spot) {
  const auto start = text.size();
  AppendColumns(text, spot);
  UnescapeSlashes(text, start);
}

std::string FixedWidthLine(const Spot& spot) {
  std::string line;
  AppendFixedWidthLine(line, spot);
  return line;
}

std::string DelimitedLine(const Spot& spot, std::string_view separator) {
  const auto time = spot.LocalDateAndTime ? DateTimeText(*spot.LocalDateAndTime) : std::string();
  const auto points = std::to_string(spot.SummitPoints);
  const auto frequency = FrequencyText(spot);
  const std::string_view matches = spot.IsMatchedToAlert ? "MatchesAlert=Yes" : "MatchesAlert=No";
  std::string line;
  AppendPrintable(line, time);
  for (const std::string_view value : std::initializer_list<std::string_view>{
           spot.UTCTime, spot.Station, spot.SummitDesignator, spot.SummitName, points, frequency,
           spot.ModeString, spot.OperatorName, spot.Comment, spot.Spotter, matches, spot.ID}) {
    line.append(separator);
    AppendPrintable(line, value);
  }
  return line;
}

std::string SpotListText(const SpotCollection& spots) {
  std::string text;
  text.reserve(spots.Count() * UsualLineLength);
  for (const auto& entry : spots) {
    AppendFixedWidthLine(text, *entry.Item);
    text.append(LineEnd);
  }
  return text;
}

}  // namespace brelwin
