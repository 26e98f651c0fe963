#include "qt/window/program_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "qt/ports/qt_text.h"
#include "qt/window/about_page.h"
#include "qt/window/files_page.h"
#include "qt/window/filters_page.h"
#include "qt/window/gateway_page.h"
#include "qt/window/logs_page.h"
#include "qt/window/program_icon.h"
#include "qt/window/rbn_page.h"
#include "qt/window/spots_page.h"
#include "qt/window/status_row.h"

namespace brelwin {
namespace {

// Room for all columns of the list.
constexpr QSize WantedSize{1320, 740};

WindowState StateOf(Qt::WindowStates states) {
  if (states.testFlag(Qt::WindowMinimized)) return WindowState::Minimised;
  return states.testFlag(Qt::WindowMaximized) ? WindowState::Maximised : WindowState::Normal;
}

}  // namespace

ProgramWindow::ProgramWindow(Screen& screen, std::function<void()> quit)
    : screen_(screen), quit_(std::move(quit)), tabs_(new QTabWidget) {
  setWindowIcon(ProgramIcon());
  auto* column = new QVBoxLayout(this);
  column->addWidget(tabs_, 1);
  column->addWidget(MakeStatusRow());
  AddPages();
  bindings_ =
      std::make_unique<ControlBindings>(screen, *this, [this](QWidget& widget) { BringToView(widget); });
  FollowForm();
}

ProgramWindow::~ProgramWindow() = default;

void ProgramWindow::AddPages() {
  tabs_->setObjectName("SSTab1");
  tabs_->addTab(MakeSpotsPage(), "Spots");
  tabs_->addTab(MakeFiltersPage(screen_.Filters), "Filters and sounds");
  tabs_->addTab(MakeLogsPage(screen_.Logs), "Logs");
  tabs_->addTab(MakeRBNPage(), "Reverse Beacon Network");
  tabs_->addTab(MakeGatewayPage(screen_.Gateway), "Gateway");
  tabs_->addTab(MakeFilesPage(screen_.Files), "Websites and files");
  tabs_->addTab(MakeAboutPage(), "About");
}

void ProgramWindow::FollowForm() {
  auto& form = screen_.Window;
  const auto caption = [this] { setWindowTitle(ToQString(screen_.Window.Caption.Get())); };
  caption();
  watches_.push_back(form.Caption.WhenChanged(caption));
  watches_.push_back(
      form.CurrentTab.WhenChanged([this] { tabs_->setCurrentIndex(screen_.Window.CurrentTab); }));
  watches_.push_back(form.State.WhenChanged([this] { ApplyState(); }));
  watches_.push_back(form.Hourglass.WhenChanged([this] { ApplyHourglass(); }));
  watches_.push_back(form.Show.WhenRaised([this] { ShowFitting(); }));
  watches_.push_back(form.SetFocus.WhenRaised([this] {
    raise();
    activateWindow();
  }));
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { screen_.Window.CurrentTab = tab; });
}

// Inside what the desktop's own bars leave free.
void ProgramWindow::ShowFitting() {
  const auto free = screen()->availableGeometry();
  QRect place(QPoint(0, 0), WantedSize.boundedTo(free.size()));
  place.moveCenter(free.center());
  setGeometry(place);
  show();
  tabs_->currentWidget()->setFocus();
}

void ProgramWindow::ApplyState() {
  const auto wanted = screen_.Window.State.Get();
  if (StateOf(windowState()) == wanted) return;
  auto states = windowState() & ~Qt::WindowMinimized;
  if (wanted == WindowState::Minimised) states |= Qt::WindowMinimized;
  if (wanted == WindowState::Maximised) states |= Qt::WindowMaximized;
  setWindowState(states);
}

void ProgramWindow::ApplyHourglass() {
  if (screen_.Window.Hourglass)
    setCursor(Qt::WaitCursor);
  else
    unsetCursor();
}

void ProgramWindow::BringToView(QWidget& widget) {
  for (int tab = 0; tab < tabs_->count(); ++tab)
    if (tabs_->widget(tab)->isAncestorOf(&widget)) tabs_->setCurrentIndex(tab);
}

void ProgramWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  quit_();
}

void ProgramWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) screen_.Window.State = StateOf(windowState());
}

}  // namespace brelwin
