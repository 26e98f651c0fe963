// The program's window: the tabs, the row under them, and what the program asks of the window itself.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "around/surroundings.h"
#include "board/board_keeper.h"
#include "controls/screen.h"
#include "platform/host.h"
#include "qt/window/bind_controls.h"
#include "qt/window/board_model.h"
#include "ui/window_place.h"

class QTabWidget;

namespace brelwin {

class BoardPage;
class MapPage;

// What the tabs of the activations rest on: board, map, and places and log. All of it outlives the window.
struct ActivationDoors {
  BoardDoors Board;
  BoardKeeper& Keeper;
  Surroundings& Around;
  Host& World;
};

class ProgramWindow final : public QWidget {
  Q_OBJECT

 public:
  // Shown when the program asks for it. Closing it calls `quit` and leaves it open: the program ends first.
  // With activations the board is the first tab, and the map the second one.
  ProgramWindow(Screen& screen, std::function<void()> quit, std::optional<ActivationDoors> activations = {});

  // Complete once the window was painted for the first time.
  const ControlBindings& Bindings() const { return bindings_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddPages();
  void AddActivations();
  void OpenReplay();
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
  std::optional<ActivationDoors> activations_;
  BoardPage* board_ = nullptr;
  MapPage* map_ = nullptr;
  int placesTab_ = -1;
  int pagesBefore_ = 0;  // tabs on the left of the Spots tab
  ControlBindings bindings_;
  std::vector<std::function<void()>> waiting_;  // for the first painting: it comes sooner without them
  std::vector<Watch> watches_;
  WindowPlace place_;
  QTimer placeSettles_;  // a window that is being maximised is large before it says so
};

}  // namespace brelwin
