#include "spots/spot_text.h"

#include <array>
#include <initializer_list>

#include "base/line_text.h"
#include "base/text.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

struct Column {
  std::size_t Shown;  // the first characters of the text, at most
  std::size_t Width;
  bool IsAlignedRight = false;
};

constexpr std::array<Column, 10> Columns = {
    {{7, 7}, {12, 12}, {12, 12}, {30, 32}, {3, 3}, {11, 11, true}, {6, 6}, {13, 14}, {60, 61}, {12, 12}}};

using Cells = std::array<std::string_view, Columns.size()>;

// Nearly every line is plain text, whose characters need no counting. False, with nothing done, for another.
bool AppendPlainCells(std::string& text, const Cells& cells) {
  std::array<char, SpotLineWidth> line{};
  line.fill(' ');
  auto* place = line.data();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto shown = cells[i].substr(0, Columns[i].Shown);
    shown.copy(Columns[i].IsAlignedRight ? place + Columns[i].Width - shown.size() : place, shown.size());
    place += Columns[i].Width;
  }
  const std::string_view finished(line.data(), line.size());
  if (!IsPlainText(finished)) return false;
  text.append(finished);
  return true;
}

void AppendCells(std::string& text, const Cells& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (Columns[i].IsAlignedRight) {
      AppendAlignedRight(text, cells[i], Columns[i].Width);
    } else {
      AppendPadded(text, cells[i], Columns[i].Shown, Columns[i].Width);
    }
  }
}

// The number pattern "##": the digits alone, and nothing for 0.
std::string PointsText(std::int16_t points) {
  return points == 0 ? std::string() : std::to_string(points);
}

// What a spot is beside what it says, put in front of its comment.
std::string_view WordOf(const Spot& spot) {
  if (spot.Kind == SpotKind::Test) return "TEST: ";
  return spot.IsEdited ? "edited: " : "";
}

// Who has left the air has no mode.
std::string_view ModeText(const Spot& spot) {
  return spot.Kind == SpotKind::Gone ? std::string_view("QRT") : spot.ModeString;
}

// The comment with its word; `storage` is used where there is one.
std::string_view CommentText(const Spot& spot, std::string& storage) {
  const auto word = WordOf(spot);
  if (word.empty()) return spot.Comment;
  storage = std::string(word) + spot.Comment;
  return storage;
}

void AppendColumns(std::string& text, const Spot& spot) {
  const auto points = PointsText(spot.SummitPoints);
  const auto spotter = "[" + spot.Spotter + "]";
  std::string comment;
  const Cells cells = {spot.UTCTime,
                       spot.Station,
                       spot.SummitDesignator,
                       spot.SummitName,
                       points,
                       spot.FormattedFrequencyString,
                       ModeText(spot),
                       spot.OperatorName,
                       CommentText(spot, comment),
                       spotter};
  if (!AppendPlainCells(text, cells)) AppendCells(text, cells);
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
  std::string comment;
  std::string line;
  AppendPrintable(line, time);
  for (const std::string_view value : std::initializer_list<std::string_view>{
           spot.UTCTime, spot.Station, spot.SummitDesignator, spot.SummitName, points, frequency,
           ModeText(spot), spot.OperatorName, CommentText(spot, comment), spot.Spotter, matches, spot.ID}) {
    line.append(separator);
    AppendPrintable(line, value);
  }
  return line;
}

}  // namespace brelwin
