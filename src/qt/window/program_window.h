// The program's window: the tabs, the row under them, and what the program asks of the window itself.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "controls/screen.h"
#include "qt/window/bind_controls.h"
#include "qt/window/board_model.h"
#include "ui/window_place.h"

class QTabWidget;

namespace brelwin {

class ProgramWindow final : public QWidget {
  Q_OBJECT

 public:
  // Shown when the program asks for it. Closing it calls `quit` and leaves it open: the program ends first.
  // With a board that is the first tab.
  ProgramWindow(Screen& screen, std::function<void()> quit, std::optional<BoardDoors> board = {});

  // Complete once the window was painted for the first time.
  const ControlBindings& Bindings() const { return bindings_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddPages(std::optional<BoardDoors> board);
  void AddLater(const char* title, const ControlList& controls, std::function<QWidget*()> makePage);
  void MakeWhatWaits();
  void FollowForm();
  void ShowFitting();
  void FitFrame();
  void KeepPlace();
  void ApplyState();
  void ApplyHourglass();
  void BringToView(QWidget& widget);

  Screen& screen_;
  std::function<void()> quit_;
  QTabWidget* tabs_;
  int pagesBefore_ = 0;  // tabs on the left of the Spots tab
  ControlBindings bindings_;
  std::vector<std::function<void()>> waiting_;  // for the first painting: it comes sooner without them
  std::vector<Watch> watches_;
  WindowPlace place_;
  QTimer placeSettles_;  // a window that is being maximised is large before it says so
};

}  // namespace brelwin
