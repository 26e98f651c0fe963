// The program's window: the tabs, the row under them, and what the program asks of the window itself.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "controls/screen.h"
#include "qt/window/bind_controls.h"

class QTabWidget;

namespace brelwin {

class ProgramWindow final : public QWidget {
  Q_OBJECT

 public:
  // Shown when the program asks for it. Closing it calls `quit` and leaves it open: the program ends first.
  ProgramWindow(Screen& screen, std::function<void()> quit);
  ~ProgramWindow() override;

  const ControlBindings& Bindings() const { return *bindings_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void AddPages();
  void FollowForm();
  void ShowFitting();
  void ApplyState();
  void ApplyHourglass();
  void BringToView(QWidget& widget);

  Screen& screen_;
  std::function<void()> quit_;
  QTabWidget* tabs_;
  std::unique_ptr<ControlBindings> bindings_;
  std::vector<Watch> watches_;
};

}  // namespace brelwin
