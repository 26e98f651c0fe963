#include "console/board_printer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/encoding.h"
#include "base/line_text.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr Milliseconds AfterAChange{250};
constexpr Milliseconds Always{1000};
constexpr std::size_t LinesOfSources = 2;

// The other screen of the terminal, so that what was there comes back; and no cursor.
constexpr std::string_view TakeScreen = "\x1b[?1049h\x1b[?25l\x1b[2J";
constexpr std::string_view GiveScreenBack = "\x1b[?25h\x1b[?1049l";
constexpr std::string_view Home = "\x1b[H";
constexpr std::string_view EraseRestOfLine = "\x1b[K";
constexpr std::string_view EraseBelow = "\x1b[J";

std::string TitleLine(DateTime now) {
  return "Brelwin  " + DateTimeText(now) + " UTC";
}

// The text in lines of this width, no more than so many.
std::vector<std::string> Wrapped(std::string_view text, std::size_t width, std::size_t most) {
  std::vector<std::string> lines;
  while (!text.empty() && lines.size() < most) {
    const auto piece = FirstCharacters(text, width);
    AppendPrintable(lines.emplace_back(), piece);
    text.remove_prefix(piece.size());
  }
  return lines;
}

// Line ends stand between the lines only: one behind the last would make a full screen roll.
std::string FrameOf(const std::vector<std::string>& lines, std::size_t height) {
  std::string frame(Home);
  const auto shown = std::min(lines.size(), height - 1);
  for (std::size_t i = 0; i < shown; ++i)
    frame.append(i == 0 ? "" : "\n").append(lines[i]).append(EraseRestOfLine);
  return frame.append(EraseBelow);
}

}  // namespace

BoardPrinter::BoardPrinter(Host& world, BoardKeeper& keeper, SurroundingsOf surroundings,
                           const Screen& screen, Output output)
    : world_(world),
      board_(keeper.Board()),
      surroundings_(std::move(surroundings)),
      screen_(screen),
      output_(std::move(output)),
      isTerminal_(output_.Size().has_value()),
      watch_(keeper.Changed.WhenRaised([this] { ShowIn(AfterAChange); })) {
  if (isTerminal_) output_.Print(TakeScreen);
  ShowIn(AfterAChange);
}

BoardPrinter::~BoardPrinter() {
  if (isTerminal_) output_.Print(GiveScreenBack);
}

void BoardPrinter::ShowIn(Milliseconds delay) {
  const auto at = world_.Time.Now() + delay;
  if (nextAt_ > world_.Time.Now() && nextAt_ <= at) return;
  nextAt_ = at;
  next_ = world_.Events.CallAfter(delay, [this] { Show(); });
}

void BoardPrinter::Show() {
  nextAt_ = {};
  if (isTerminal_)
    Draw(output_.Size().value_or(TerminalSize()));
  else
    PrintChanges();
  ShowIn(Always);
}

void BoardPrinter::Draw(TerminalSize size) {
  const auto now = UTCNow(world_.Time);
  auto lines = Wrapped(TitleLine(now), size.Width, 1);
  const auto sources = Wrapped(screen_.Spots.lblSources.Caption.Get(), size.Width, LinesOfSources);
  const auto taken = lines.size() + sources.size() + 1;
  const TableSize room{size.Width, std::max<std::size_t>(size.Height, taken + 3) - taken};
  const auto table = BoardLines(board_, surroundings_, now, room);
  lines.insert(lines.end(), table.begin(), table.end());
  for (auto& line : Wrapped(EmptyText(), size.Width, 3)) lines.push_back(std::move(line));
  lines.insert(lines.end(), sources.begin(), sources.end());
  output_.Print(FrameOf(lines, size.Height));
}

// Rows that are over when they are first seen are of an earlier run.
void BoardPrinter::PrintChanges() {
  const auto now = UTCNow(world_.Time);
  if (auto text = EmptyText(); text != std::exchange(lastEmptyText_, text) && !text.empty())
    output_.Print(text);
  std::map<RowNumber, RowFace> faces;
  for (const auto& [number, row] : board_.Rows()) {
    const auto around = surroundings_(row);
    const auto moment = MomentOf(row, around, now);
    auto face = FaceOf(moment);
    const auto before = faces_.find(number);
    const bool isNews = before == faces_.end() ? !IsFinished(moment) : before->second != face;
    if (isNews) output_.Print(NewsLine(moment, before == faces_.end() ? RowFace() : before->second));
    faces.emplace(number, std::move(face));
  }
  faces_ = std::move(faces);
}

// Without the stream no announcements are read either.
std::string BoardPrinter::EmptyText() const {
  if (!screen_.RBN.chkReverseBeaconSpotsEnabled.Value)
    return "Spots from the Reverse Beacon Network are switched off, so no announcements are read. "
           "RBNSpotsEnabled=1 under [ReverseBeaconNetwork] in Brelwin.INI switches them on.";
  return board_.Rows().empty() ? "No activations are known yet." : "";
}

}  // namespace brelwin
