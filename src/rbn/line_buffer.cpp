#include "rbn/line_buffer.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"
#include "rbn/spot_line.h"

namespace brelwin {
namespace {

constexpr std::string_view SkimmerEnd = "-#:";
constexpr std::string_view FieldGap = "  ";

}  // namespace

LineBuffer::Intake LineBuffer::Add(std::string_view bytes) {
  Intake intake;
  while (!bytes.empty()) {
    const auto end = bytes.find('\n');
    AddToRest(bytes.substr(0, end), intake);
    if (end == std::string_view::npos) break;
    TakeRest(intake);
    bytes.remove_prefix(end + 1);
  }
  return intake;
}

std::string_view LineBuffer::Newest(std::size_t bytes) const {
  return std::string_view(waiting_).substr(waiting_.size() - std::min(bytes, waiting_.size()));
}

std::string LineBuffer::TakeLines() {
  return std::exchange(waiting_, {});
}

void LineBuffer::DropRest() {
  rest_.clear();
  restIsTooLong_ = false;
}

void LineBuffer::Clear() {
  *this = LineBuffer(limits_);
}

void LineBuffer::AddToRest(std::string_view piece, Intake& intake) {
  if (restIsTooLong_) return;
  if (rest_.size() + piece.size() <= limits_.LongestLine) {
    rest_.append(piece);
    return;
  }
  rest_.clear();
  restIsTooLong_ = true;
  ++intake.DroppedLines;
}

void LineBuffer::TakeRest(Intake& intake) {
  if (!restIsTooLong_) {
    const auto before = waiting_.size();
    if (!IsUtf8(rest_)) rest_ = TextFromBytes(rest_);
    AppendWithSpacedSkimmer(waiting_, rest_);
    waiting_.push_back('\n');
    intake.Bytes += waiting_.size() - before;
    if (!SaysNothing(rest_)) ++intake.WholeLines;
  }
  DropRest();
}

void AppendWithSpacedSkimmer(std::string& text, std::string_view line) {
  while (true) {
    const auto found = line.find(SkimmerEnd);
    if (found == std::string_view::npos) break;
    const auto after = found + SkimmerEnd.size();
    text.append(line.substr(0, after));
    line.remove_prefix(after);
    const auto blanks = std::min(line.find_first_not_of(' '), line.size());
    if (blanks < FieldGap.size()) text.append(FieldGap.substr(blanks));
  }
  text.append(line);
}

}  // namespace brelwin
