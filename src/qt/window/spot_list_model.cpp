#include "qt/window/spot_list_model.h"

#include <algorithm>
#include <ranges>

#include "base/encoding.h"
#include "base/text.h"
#include "qt/ports/qt_text.h"
#include "spots/spot_text.h"

namespace brelwin {

int SpotListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size() + spots_.size());
}

QVariant SpotListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == MatchedRole) return IsMatched(index.row());
  if (role == TestRole) return IsTest(index.row());
  if (role != Qt::DisplayRole) return {};
  return LineAt(index.row());
}

QString SpotListModel::LineAt(int row) const {
  const auto spot = SpotAt(row);
  return ToQString(spot ? FixedWidthLine(*spot) : lines_[static_cast<std::size_t>(row)]);
}

bool SpotListModel::IsMatched(int row) const {
  const auto spot = SpotAt(row);
  return spot && spot->IsMatchedToAlert;
}

bool SpotListModel::IsTest(int row) const {
  const auto spot = SpotAt(row);
  return spot && spot->Kind == SpotKind::Test;
}

std::shared_ptr<const Spot> SpotListModel::SpotAt(int row) const {
  const auto index = static_cast<std::size_t>(row);
  return row >= 0 && index < spots_.size() ? spots_[index] : nullptr;
}

std::size_t SpotListModel::LongestLine() const {
  std::size_t longest = spots_.empty() ? 0 : SpotLineWidth;
  for (const auto& line : lines_) longest = std::max(longest, CharacterCount(line));
  return longest;
}

void SpotListModel::ShowText(std::string_view text) {
  const auto lines = SplitLines(text);
  beginResetModel();
  spots_.clear();
  lines_.assign(lines.begin(), lines.end());
  endResetModel();
}

void SpotListModel::ShowSpots(const SpotRows& spots) {
  if (!lines_.empty()) ShowText({});
  const auto difference = FindRowDifference(spots_, spots);
  for (const auto& run : difference.Removed | std::views::reverse) Remove(run);
  for (const auto& run : difference.Added) Insert(run, spots);
  if (spots_ == spots) return;
  spots_ = spots;  // some stay by their IDs alone
  Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void SpotListModel::Remove(const RowRun& run) {
  beginRemoveRows({}, static_cast<int>(run.First), static_cast<int>(run.First + run.Count - 1));
  const auto first = spots_.begin() + static_cast<std::ptrdiff_t>(run.First);
  spots_.erase(first, first + static_cast<std::ptrdiff_t>(run.Count));
  endRemoveRows();
}

void SpotListModel::Insert(const RowRun& run, const SpotRows& from) {
  beginInsertRows({}, static_cast<int>(run.First), static_cast<int>(run.First + run.Count - 1));
  const auto first = static_cast<std::ptrdiff_t>(run.First);
  const auto source = from.begin() + first;
  spots_.insert(spots_.begin() + first, source, source + static_cast<std::ptrdiff_t>(run.Count));
  endInsertRows();
}

}  // namespace brelwin
