#include "qt/window/spot_list_model.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "base/encoding.h"
#include "base/text.h"
#include "qt/ports/qt_text.h"
#include "qt/window/line_difference.h"

namespace brelwin {
namespace {

using Position = std::vector<std::string>::difference_type;

// A line has at most as many characters as bytes, so that few lines need counting.
std::size_t LongestOf(const std::vector<std::string_view>& lines) {
  std::size_t longest = 0;
  for (const auto line : lines)
    if (line.size() > longest) longest = std::max(longest, CharacterCount(line));
  return longest;
}

}  // namespace

int SpotListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant SpotListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == MatchedRole) return IsMatched(index.row());
  if (role != Qt::DisplayRole) return {};
  return ToQString(lines_[static_cast<std::size_t>(index.row())]);
}

bool SpotListModel::IsMatched(int row) const {
  const auto spot = SpotAt(row);
  return spot && spot->IsMatchedToAlert;
}

std::shared_ptr<const Spot> SpotListModel::SpotAt(int row) const {
  const auto index = static_cast<std::size_t>(row);
  return row >= 0 && index < spots_.size() ? spots_[index] : nullptr;
}

void SpotListModel::ShowText(std::string_view text, std::vector<std::shared_ptr<const Spot>> spots) {
  spots_ = std::move(spots);
  const auto lines = SplitLines(text);
  longestLine_ = LongestOf(lines);
  const auto difference = FindLineDifference({lines_.begin(), lines_.end()}, lines);
  for (const auto& run : difference.Removed | std::views::reverse) Remove(run.First, run.Count);
  for (const auto& run : difference.Added) Insert(run.First, &lines[run.First], run.Count);
}

void SpotListModel::Remove(std::size_t first, std::size_t count) {
  beginRemoveRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
  const auto begin = lines_.begin() + static_cast<Position>(first);
  lines_.erase(begin, begin + static_cast<Position>(count));
  endRemoveRows();
}

void SpotListModel::Insert(std::size_t first, const std::string_view* lines, std::size_t count) {
  beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
  lines_.insert(lines_.begin() + static_cast<Position>(first), lines, lines + count);
  endInsertRows();
}

}  // namespace brelwin
