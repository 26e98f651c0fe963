#include "board/board_columns.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/text.h"
#include "board/tuning.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::int64_t MinutesOfADay = std::int64_t{24} * 60;

std::string TimeText(DateTime time, DateTime now) {
  const bool isToday = time.Seconds / 86400 == now.Seconds / 86400;
  return isToday ? ClockText(time) : DateTimeText(time).substr(5, 11);
}

// "2 h 05 min", "3 d 4 h".
std::string MinutesText(std::int64_t minutes) {
  if (minutes < 60) return std::to_string(minutes) + " min";
  if (minutes >= MinutesOfADay)
    return std::to_string(minutes / MinutesOfADay) + " d " + std::to_string(minutes % MinutesOfADay / 60) +
           " h";
  const auto rest = std::to_string(minutes % 60);
  return std::to_string(minutes / 60) + " h " + (rest.size() < 2 ? "0" : "") + rest + " min";
}

std::string WindowText(const RowMoment& moment) {
  const auto* announcement = CurrentAnnouncement(moment.Row.Facts, moment.Now);
  if (announcement == nullptr) return {};
  auto text = TimeText(announcement->Begin, moment.Now) + "–" + ClockText(announcement->End);
  if (moment.Now < announcement->Begin)
    text += ", in " + MinutesText(MinutesBetween(moment.Now, announcement->Planned));
  return text;
}

// Before anybody is heard, what was announced.
std::string FrequencyCell(const RowMoment& moment) {
  if (moment.Row.Tuned) return KilohertzText(moment.Row.Tuned->FrequencyInMhz);
  const auto* announcement = CurrentAnnouncement(moment.Row.Facts, moment.Now);
  return announcement == nullptr ? std::string() : announcement->FrequencyModes;
}

std::string GatewayCell(const ActivationFacts& facts, DateTime now) {
  if (!facts.Gateway) return {};
  const auto time = TimeText(facts.Gateway->When, now);
  return facts.Gateway->WasSent ? "sent at " + time : "held back at " + time + ": " + facts.Gateway->Words;
}

// A skimmer's line counts as this activation within an announced window only.
std::string MatchCell(const RowMoment& moment) {
  const auto& facts = moment.Row.Facts;
  if (facts.Announcements.empty()) return "not announced";
  if (HasOptedOut(facts)) return "asks for no spots";
  const auto* announcement = CurrentAnnouncement(facts, moment.Now);
  if (announcement == nullptr) return "cancelled";
  if (moment.Now < announcement->Begin) return "before its window";
  return moment.Now > announcement->End ? "after its window" : "in its window";
}

std::string NumberText(std::optional<double> number, std::string_view unit) {
  return number ? std::to_string(std::llround(*number)) + std::string(unit) : std::string();
}

std::string CountText(std::int64_t count) {
  return count > 0 ? std::to_string(count) : std::string();
}

std::string HeardCell(BoardColumn column, const RowMoment& moment) {
  const auto& heard = moment.Row.Facts.Heard;
  if (!heard) return {};
  switch (column) {
    case BoardColumn::Signal: return std::to_string(heard->BestSignal) + " dB";
    case BoardColumn::Speed: return std::to_string(heard->LastSpeed) + " WPM";
    case BoardColumn::FirstHeard: return TimeText(heard->First, moment.Now);
    case BoardColumn::LastHeard: return TimeText(heard->Last, moment.Now);
    default: return {};
  }
}

std::int64_t SkimmerCount(const RowMoment& moment) {
  return static_cast<std::int64_t>(SkimmersOf(moment.Row.Facts, moment.Now).size());
}

CellSortKey Key(std::optional<double> number) {
  return {!number, number.value_or(0), {}};
}

std::optional<double> TimeNumber(const std::optional<HeardSummary>& heard, DateTime HeardSummary::*which) {
  if (!heard) return {};
  return static_cast<double>(((*heard).*which).Seconds);
}

std::optional<double> HeardNumber(const std::optional<HeardSummary>& heard,
                                  std::int32_t HeardSummary::*which) {
  if (!heard) return {};
  return (*heard).*which;
}

std::optional<double> Positive(double number) {
  return number > 0 ? std::optional(number) : std::nullopt;
}

std::string SpokenStation(std::string_view station) {
  const auto spoken = [&](std::string_view suffix, std::string_view word) {
    return std::string(station.substr(0, station.size() - suffix.size())) + std::string(word);
  };
  if (station.ends_with("/P")) return spoken("/P", " portable");
  if (station.ends_with("/M")) return spoken("/M", " mobile");
  return std::string(station);
}

std::string SpokenTime(const RowMoment& moment) {
  const auto* announcement = CurrentAnnouncement(moment.Row.Facts, moment.Now);
  if (announcement == nullptr) return {};
  if (moment.Verdict.State == ActivationState::Due) return "window until " + ClockText(announcement->End);
  return "planned for " + TimeText(announcement->Planned, moment.Now);
}

bool IsYetToCome(ActivationState state) {
  return state == ActivationState::Announced || state == ActivationState::Due;
}

std::string Quoted(std::string_view cell) {
  const bool isFormula =
      !cell.empty() && std::string_view("=+-@\t").find(cell.front()) != std::string_view::npos;
  return '"' + std::string(isFormula ? " " : "") + Replace(cell, "\"", "\"\"") + '"';
}

template <class TextOf>
std::string Line(TextOf textOf) {
  std::string line;
  for (const auto& column : BoardColumns()) {
    if (!line.empty()) line += ',';
    line += Quoted(textOf(column));
  }
  return line;
}

// Whoever announced or spotted it knows best.
const std::string& NameOf(const RowMoment& moment) {
  const auto& own = moment.Row.Who.SummitName;
  return own.empty() ? moment.Around.SummitName : own;
}

int PointsOf(const RowMoment& moment) {
  const int own = moment.Row.Who.Points;
  return own == 0 ? moment.Around.Points : own;
}

}  // namespace

const std::array<BoardColumnInfo, BoardColumnCount>& BoardColumns() {
  static constexpr std::array<BoardColumnInfo, BoardColumnCount> columns{{
      {BoardColumn::State, "State", "State", "State", false},
      {BoardColumn::Station, "Station", "Station", "Station", false},
      {BoardColumn::Summit, "Summit", "Summit", "Summit reference", false},
      {BoardColumn::Name, "Name", "Name", "Name of the summit", false},
      {BoardColumn::Points, "Points", "Pts", "Points of the summit", true},
      {BoardColumn::Window, "Window", "Window", "Announced window (UTC)", false},
      {BoardColumn::Frequency, "Frequency", "MHz", "Frequency in MHz", true},
      {BoardColumn::Mode, "Mode", "Mode", "Mode", false},
      {BoardColumn::Skimmers, "Skimmers", "Skm", "Skimmers in the last 10 minutes", true},
      {BoardColumn::Continents, "Continents", "From", "Continents of these skimmers", false},
      {BoardColumn::Signal, "Signal", "S/N", "Best signal over the noise", true},
      {BoardColumn::Speed, "Speed", "Speed", "Speed in words per minute", true},
      {BoardColumn::FirstHeard, "FirstHeard", "First", "First heard (UTC)", false},
      {BoardColumn::LastHeard, "LastHeard", "Last", "Last heard (UTC)", false},
      {BoardColumn::Distance, "Distance", "km", "Distance in km", true},
      {BoardColumn::Bearing, "Bearing", "Deg", "Bearing in degrees", true},
      {BoardColumn::Activations, "Activations", "Act", "Activations of the summit", true},
      {BoardColumn::Needed, "Needed", "Needed", "Why you need it", false},
      {BoardColumn::Gateway, "Gateway", "Gateway", "What the gateway decided", false},
      {BoardColumn::Match, "Match", "Match", "Why its spots match an announcement, or why not", false},
  }};
  return columns;
}

RowMoment MomentOf(const ActivationRow& row, const RowSurroundings& around, DateTime now) {
  return {row, around, now, StateOf(row.Facts, now)};
}

std::string CellText(BoardColumn column, const RowMoment& moment) {
  const auto& row = moment.Row;
  const auto state = moment.Verdict.State;
  switch (column) {
    case BoardColumn::State: return std::string(StateGlyph(state)) + " " + std::string(StateWord(state));
    case BoardColumn::Station: return row.Who.Station;
    case BoardColumn::Summit: return row.Who.Summit;
    case BoardColumn::Name: return NameOf(moment);
    case BoardColumn::Points: return CountText(PointsOf(moment));
    case BoardColumn::Window: return WindowText(moment);
    case BoardColumn::Frequency: return FrequencyCell(moment);
    case BoardColumn::Mode: return row.Tuned ? row.Tuned->Mode : std::string();
    case BoardColumn::Skimmers: return CountText(SkimmerCount(moment));
    case BoardColumn::Continents: return moment.Around.Continents;
    case BoardColumn::Signal:
    case BoardColumn::Speed:
    case BoardColumn::FirstHeard:
    case BoardColumn::LastHeard: return HeardCell(column, moment);
    case BoardColumn::Distance: return NumberText(moment.Around.DistanceInKm, "");
    case BoardColumn::Bearing: return NumberText(moment.Around.BearingInDegrees, "°");
    case BoardColumn::Activations: return NumberText(moment.Around.ActivationCount, "");
    case BoardColumn::Needed: return moment.Around.Needed;
    case BoardColumn::Gateway: return GatewayCell(row.Facts, moment.Now);
    case BoardColumn::Match: return MatchCell(moment);
  }
  return {};
}

CellSortKey SortKeyOf(BoardColumn column, const RowMoment& moment) {
  const auto& row = moment.Row;
  const auto& heard = row.Facts.Heard;
  switch (column) {
    case BoardColumn::State: return Key(static_cast<double>(moment.Verdict.State));
    case BoardColumn::Points: return Key(Positive(PointsOf(moment)));
    case BoardColumn::Window: {
      const auto window = WindowOf(moment);
      return Key(window ? std::optional(static_cast<double>(window->Begin.Seconds)) : std::nullopt);
    }
    case BoardColumn::Frequency: return Key(row.Tuned ? Positive(row.Tuned->FrequencyInMhz) : std::nullopt);
    case BoardColumn::Skimmers: return Key(Positive(static_cast<double>(SkimmerCount(moment))));
    case BoardColumn::Signal: return Key(HeardNumber(heard, &HeardSummary::BestSignal));
    case BoardColumn::Speed: return Key(HeardNumber(heard, &HeardSummary::LastSpeed));
    case BoardColumn::FirstHeard: return Key(TimeNumber(heard, &HeardSummary::First));
    case BoardColumn::LastHeard: return Key(TimeNumber(heard, &HeardSummary::Last));
    case BoardColumn::Distance: return Key(moment.Around.DistanceInKm);
    case BoardColumn::Bearing: return Key(moment.Around.BearingInDegrees);
    case BoardColumn::Activations: return Key(moment.Around.ActivationCount);
    default: {
      auto text = CellText(column, moment);
      const bool saysNothing = text.empty();
      return {saysNothing, 0, std::move(text)};
    }
  }
}

std::optional<WindowProgress> WindowOf(const RowMoment& moment) {
  const auto* announcement = CurrentAnnouncement(moment.Row.Facts, moment.Now);
  if (announcement == nullptr) return {};
  const auto length = std::max<std::int64_t>(1, announcement->End.Seconds - announcement->Begin.Seconds);
  const auto gone = moment.Now.Seconds - announcement->Begin.Seconds;
  return WindowProgress{announcement->Begin, announcement->End,
                        static_cast<double>(gone) / static_cast<double>(length)};
}

std::string RowSentence(const RowMoment& moment) {
  const auto& row = moment.Row;
  auto sentence = LowerCase(StateWord(moment.Verdict.State)) + ", " + SpokenStation(row.Who.Station);
  if (!row.Who.Summit.empty()) sentence += " on " + row.Who.Summit;
  const auto add = [&](const std::string& words) {
    if (!words.empty()) sentence += ", " + words;
  };
  if (IsYetToCome(moment.Verdict.State)) add(SpokenTime(moment));
  add(row.Tuned ? TuningText(*row.Tuned) : FrequencyCell(moment));
  const auto skimmers = SkimmerCount(moment);
  if (skimmers > 0) add(std::to_string(skimmers) + (skimmers == 1 ? " skimmer" : " skimmers"));
  add(moment.Around.Needed);
  return sentence;
}

std::string CsvLine(const RowMoment& moment) {
  return Line([&](const BoardColumnInfo& column) { return CellText(column.Column, moment); });
}

std::string CsvHeader() {
  return Line([](const BoardColumnInfo& column) { return std::string(column.Meaning); });
}

}  // namespace brelwin
