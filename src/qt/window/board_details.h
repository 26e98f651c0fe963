// More about the selected activation: its story, how well it was heard, what was said of it, and its pages.
#pragma once

#include <QListWidget>
#include <QPushButton>
#include <QWidget>

#include "qt/window/board_model.h"
#include "qt/window/signal_picture.h"

class QLabel;

namespace brelwin {

class BoardDetails final : public QWidget {
  Q_OBJECT

 public:
  explicit BoardDetails(const BoardDoors& doors);

  void Show(const RowMoment& moment);
  void ShowNothing();

 private:
  QLayout* MakeHeading(const BoardDoors& doors);
  QLayout* MakeParts();

  QLabel* heading_;
  QPushButton* summit_;
  QPushButton* station_;
  QListWidget* story_;
  SignalPicture* signals_;
  QListWidget* comments_;
  StationOnSummit who_;
};

}  // namespace brelwin
