// The lines of the list, changed line by line so that selections and scroll positions survive.
#pragma once

#include <QAbstractListModel>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

class SpotListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // Turns the present lines into those of the text, each ended by a line end.
  void ShowText(std::string_view text);

  // Characters in the longest line.
  std::size_t LongestLine() const { return longestLine_; }

 private:
  void Remove(std::size_t first, std::size_t count);
  void Insert(std::size_t first, const std::string_view* lines, std::size_t count);

  std::vector<std::string> lines_;
  std::size_t longestLine_ = 0;
};

}  // namespace brelwin
