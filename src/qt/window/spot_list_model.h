// The lines of the list, changed line by line so that selections and scroll positions survive.
#pragma once

#include <QAbstractListModel>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "spots/spot.h"

namespace brelwin {

class SpotListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // Turns the present lines into those of the text, each ended by a line end. `spots` are those of the lines.
  void ShowText(std::string_view text, std::vector<std::shared_ptr<const Spot>> spots = {});

  // The spot of the row; null for a line that is no spot.
  std::shared_ptr<const Spot> SpotAt(int row) const;

  // Characters in the longest line.
  std::size_t LongestLine() const { return longestLine_; }

  // Whether the spot of the line matched an announced activation.
  static constexpr int MatchedRole = Qt::UserRole;

 private:
  bool IsMatched(int row) const;
  void Remove(std::size_t first, std::size_t count);
  void Insert(std::size_t first, const std::string_view* lines, std::size_t count);

  std::vector<std::string> lines_;
  std::vector<std::shared_ptr<const Spot>> spots_;  // of the lines; none when they are no spots
  std::size_t longestLine_ = 0;
};

}  // namespace brelwin
