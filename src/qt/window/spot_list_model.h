// The rows of the list, changed row by row so that selections and scroll positions survive. The line of a
// spot is made whenever it is asked for: for painting, a screen reader, a search, a copy.
#pragma once

#include <QAbstractListModel>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/spot_list_box.h"
#include "qt/window/row_difference.h"

namespace brelwin {

class SpotListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // Turns the present rows into the lines of the text, or into the spots.
  void ShowText(std::string_view text);
  void ShowSpots(const SpotRows& spots);

  // The spot of the row; null for a line that is no spot.
  std::shared_ptr<const Spot> SpotAt(int row) const;

  // Characters in the longest line.
  std::size_t LongestLine() const;

  // Whether the spot of the line matched an announced activation.
  static constexpr int MatchedRole = Qt::UserRole;

  // Whether the spot of the line is only shown.
  static constexpr int TestRole = Qt::UserRole + 1;

 private:
  QString LineAt(int row) const;
  bool IsMatched(int row) const;
  bool IsTest(int row) const;
  void Remove(const RowRun& run);
  void Insert(const RowRun& run, const SpotRows& from);

  std::vector<std::string> lines_;  // of a text; none beside spots
  SpotRows spots_;
};

}  // namespace brelwin
