#include "board/board_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/encoding.h"
#include "base/line_text.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::int64_t SecondsOfCharacter = std::int64_t{20} * 60;
constexpr std::int64_t HalfOfBar = 6;  // characters on each side of "now"
constexpr std::size_t NarrowestTable = 60;
constexpr std::int64_t MinutesOfDay = 1440;

std::string Span(std::int64_t seconds) {
  const auto minutes = seconds / 60;
  if (minutes < 60) return std::to_string(minutes) + " min";
  if (minutes < MinutesOfDay) return std::to_string(minutes / 60) + " h " + std::to_string(minutes % 60);
  return std::to_string(minutes / MinutesOfDay) + " d";
}

std::string WindowText(const RowMoment& moment) {
  return WindowBar(moment.Row.Facts, moment.Now);
}

std::string WhereText(const RowMoment& moment) {
  const auto& tuned = moment.Row.Tuned;
  return tuned ? TuningText(*tuned) : CellText(BoardColumn::Frequency, moment);
}

std::string LastText(const RowMoment& moment) {
  const auto last = LastActivity(moment.Row.Facts);
  return last ? Span(std::max<std::int64_t>(0, moment.Now.Seconds - last->Seconds)) : std::string();
}

// What the gateway said matters more than why a row is where its group shows it to be.
std::string NoteText(const RowMoment& moment) {
  const auto& gateway = moment.Row.Facts.Gateway;
  if (gateway) return ClockText(gateway->When) + " gateway: " + gateway->Words;
  return ReasonInWords(moment.Verdict, moment.Row.Facts, moment.Now);
}

template <BoardColumn Of>
std::string Cell(const RowMoment& moment) {
  return CellText(Of, moment);
}

struct Column {
  std::string_view Name;
  std::size_t Width;  // characters, with the gap behind it
  std::string (*Text)(const RowMoment&);
};

// The note takes what is left.
constexpr std::array Columns = {Column{"State", 20, Cell<BoardColumn::State>},
                                Column{"Station", 12, Cell<BoardColumn::Station>},
                                Column{"Summit", 11, Cell<BoardColumn::Summit>},
                                Column{"  Window", 14, WindowText},
                                Column{"MHz", 13, WhereText},
                                Column{"RBN", 4, Cell<BoardColumn::Skimmers>},
                                Column{"S/N", 6, Cell<BoardColumn::Signal>},
                                Column{"Last", 8, LastText}};

std::string Cut(std::string_view text, std::size_t width) {
  std::string cut;
  AppendPadded(cut, text, width, width);
  cut.erase(cut.find_last_not_of(' ') + 1);
  return cut;
}

std::string Heading() {
  std::string line;
  for (const auto& column : Columns) AppendPadded(line, column.Name, column.Width - 1, column.Width);
  return line + "Note";
}

std::string TableLine(const RowMoment& moment) {
  std::string line;
  for (const auto& column : Columns) AppendPadded(line, column.Text(moment), column.Width - 1, column.Width);
  return line + NoteText(moment);
}

std::string RestInWords(std::size_t withoutPlace, std::size_t finished) {
  std::string words;
  if (withoutPlace > 0) words = std::to_string(withoutPlace) + " more";
  if (finished > 0) words += (words.empty() ? "" : ", ") + std::to_string(finished) + " finished";
  return words;
}

// How many rows have a place between the heading and the line of the rest.
std::size_t Places(const BoardOrder& order, std::size_t height) {
  if (height == 0) return order.Rows.size();
  const auto lines = std::max<std::size_t>(height, 3) - 1;
  const bool hasRest = order.FinishedCount > 0 || order.Rows.size() > lines;
  return std::min(order.Rows.size(), lines - (hasRest ? 1 : 0));
}

char32_t CharacterAt(const ActivationFacts& facts, DateTime now, std::int64_t place) {
  const TimeSpan span{AddSeconds(now, (2 * place - 1) * SecondsOfCharacter / 2),
                      AddSeconds(now, (2 * place + 1) * SecondsOfCharacter / 2)};
  const bool isOpen = std::ranges::any_of(facts.Announcements, [&](const Announcement& announcement) {
    return announcement.Stands() && announcement.Begin < span.End && announcement.End > span.Begin;
  });
  if (place == 0) return isOpen ? U'╋' : U'┃';
  return isOpen ? U'━' : U'·';
}

}  // namespace

std::vector<std::string> BoardLines(const Board& board, const SurroundingsOf& surroundings, DateTime now,
                                    TableSize size) {
  const auto width = std::max(size.Width, NarrowestTable);
  const auto order = OrderOf(board, {}, surroundings, now);
  const auto places = Places(order, size.Height);
  std::vector<std::string> lines = {Cut(Heading(), width)};
  for (std::size_t i = 0; i < places; ++i) {
    const auto& row = *board.Find(order.Rows[i]);
    const auto around = surroundings(row);
    lines.push_back(Cut(TableLine(MomentOf(row, around, now)), width));
  }
  if (auto rest = RestInWords(order.Rows.size() - places, order.FinishedCount); !rest.empty())
    lines.push_back(std::move(rest));
  return lines;
}

std::string NewsLine(const RowMoment& moment, const RowFace& before) {
  std::string line = DateTimeText(moment.Now).substr(11) + "Z ";
  for (const auto& [text, width] :
       {std::pair(CellText(BoardColumn::State, moment), 20U), std::pair(moment.Row.Who.Station, 12U),
        std::pair(moment.Row.Who.Summit, 11U), std::pair(WhereText(moment), 13U)})
    AppendPadded(line, text, width - 1, width);
  const auto& story = moment.Row.Story;
  const bool isEvent = story.size() > before.Events && moment.Verdict.State == before.State;
  AppendPrintable(line,
                  isEvent ? story.back().Words : ReasonInWords(moment.Verdict, moment.Row.Facts, moment.Now));
  return line;
}

RowFace FaceOf(const RowMoment& moment) {
  const auto& story = moment.Row.Story;
  return {moment.Verdict.State, moment.Verdict.Reason, story.size(), story.empty() ? "" : story.back().Words};
}

std::string WindowBar(const ActivationFacts& facts, DateTime now) {
  const auto* next = CurrentAnnouncement(facts, now);
  const auto farthest = SecondsOfCharacter * HalfOfBar;
  if (next == nullptr) return {};
  if (next->Begin.Seconds - now.Seconds > farthest) return "in " + Span(next->Planned.Seconds - now.Seconds);
  if (now.Seconds - next->End.Seconds > farthest) return {};
  std::string bar;
  for (auto place = -HalfOfBar; place <= HalfOfBar; ++place)
    AppendCodePoint(bar, CharacterAt(facts, now, place));
  return bar;
}

}  // namespace brelwin
