#include "qt/window/program_window.h"

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "qt/ports/qt_text.h"
#include "qt/window/board_page.h"
#include "qt/window/map_page.h"
#include "qt/window/pages.h"
#include "qt/window/program_icon.h"
#include "qt/window/replay_window.h"
#include "qt/window/status_row.h"

namespace brelwin {
namespace {

// Room for all columns of the list.
constexpr QSize WantedSize{1320, 740};

constexpr int MillisecondsToSettle = 300;

// Those of the screens that the desktop's own bars leave free; the main screen's first.
std::vector<Rectangle> FreeScreens() {
  std::vector<Rectangle> free;
  for (const auto* screen : QGuiApplication::screens()) {
    const auto area = screen->availableGeometry();
    const bool isMain = screen == QGuiApplication::primaryScreen();
    free.insert(isMain ? free.begin() : free.end(), {area.x(), area.y(), area.width(), area.height()});
  }
  return free;
}

WindowState StateOf(Qt::WindowStates states) {
  if (states.testFlag(Qt::WindowMinimized)) return WindowState::Minimised;
  return states.testFlag(Qt::WindowMaximized) ? WindowState::Maximised : WindowState::Normal;
}

// The focus stays in the page, and a screen reader would only hear of what has it there: it is led over the
// tab.
void TellTab(QTabBar& tabs) {
  if (tabs.hasFocus()) return;  // then the tabs tell it themselves
  QAccessibleEvent tab(&tabs, QAccessible::Focus);
  tab.setChild(tabs.currentIndex());
  QAccessible::updateAccessibility(&tab);
  if (auto* focused = QApplication::focusWidget()) {
    QAccessibleEvent back(focused, QAccessible::Focus);
    QAccessible::updateAccessibility(&back);
  }
}

}  // namespace

ProgramWindow::ProgramWindow(Screen& screen, std::function<void()> quit,
                             std::optional<ActivationDoors> activations)
    : screen_(screen),
      quit_(std::move(quit)),
      tabs_(new QTabWidget),
      activations_(std::move(activations)),
      bindings_(*this, [this](QWidget& widget) { BringToView(widget); }) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(tabs_, 1);
  column->addWidget(MakeStatusRow());
  tabs_->setObjectName("SSTab1");
  AddPages();
  bindings_.Add(screen.Spots.Controls);
  waiting_.push_back([this] {
    QApplication::setWindowIcon(ProgramIcon());
    ApplyHourglass();
  });
  FollowForm();
  placeSettles_.setSingleShot(true);
  placeSettles_.setInterval(MillisecondsToSettle);
  connect(&placeSettles_, &QTimer::timeout, this, &ProgramWindow::KeepPlace);
}

void ProgramWindow::AddActivations() {
  activations_->Board.OpenReplay = [this] { OpenReplay(); };
  board_ = new BoardPage(screen_, activations_->Board);
  map_ = new MapPage({activations_->Keeper, activations_->Around, activations_->World.Store,
                      activations_->Board.UTCNow, [this](RowNumber row) { board_->Select(row); },
                      [this] { tabs_->setCurrentIndex(placesTab_); }});
  connect(board_, &BoardPage::Selected, map_, &MapPage::Select);
  tabs_->addTab(board_, "Board");
  tabs_->addTab(map_, "Map");
  pagesBefore_ = tabs_->count();
}

void ProgramWindow::OpenReplay() {
  auto* replay = new ReplayWindow(screen_, activations_->Board, activations_->World, this);
  replay->setAttribute(Qt::WA_DeleteOnClose);
  replay->resize(size() * 9 / 10);
  replay->show();
}

void ProgramWindow::AddPages() {
  if (activations_) AddActivations();
  tabs_->addTab(MakeSpotsPage(), "Spots");
  AddLater("Filters and sounds", screen_.Filters.Controls,
           [this] { return MakeFiltersPage(screen_.Filters); });
  AddLater("Logs", screen_.Logs.Controls, [this] { return MakeLogsPage(screen_.Logs); });
  placesTab_ = tabs_->count();
  AddLater("Places and log", screen_.Places.Controls, [this] {
    return MakePlacesPage(screen_.Places, [this](const std::string& path) {
      if (activations_) activations_->Around.ImportSummits(path);
    });
  });
  AddLater("Reverse Beacon Network", screen_.RBN.Controls, MakeRBNPage);
  AddLater("Gateway", screen_.Gateway.Controls, [this] { return MakeGatewayPage(screen_.Gateway); });
  AddLater("Websites and files", screen_.Files.Controls, [this] { return MakeFilesPage(screen_.Files); });
  AddLater("About", screen_.About.Controls, MakeAboutPage);
}

void ProgramWindow::AddLater(const char* title, const ControlList& controls,
                             std::function<QWidget*()> makePage) {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  tabs_->addTab(page, title);
  waiting_.push_back([this, column, title, &controls, makePage = std::move(makePage)] {
    auto* content = makePage();
    content->setAccessibleName(title);  // one that scrolls takes the focus
    column->addWidget(content);
    bindings_.Add(controls);
  });
}

void ProgramWindow::MakeWhatWaits() {
  for (const auto& make : std::exchange(waiting_, {})) make();
  if (auto* save = findChild<QWidget*>("cmdSaveSettings")) setTabOrder(previousInFocusChain(), save);
}

void ProgramWindow::FollowForm() {
  auto& form = screen_.Window;
  const auto caption = [this] { setWindowTitle(ToQString(screen_.Window.Caption.Get())); };
  caption();
  watches_.push_back(form.Caption.WhenChanged(caption));
  watches_.push_back(form.CurrentTab.WhenChanged(
      [this] { tabs_->setCurrentIndex(screen_.Window.CurrentTab + pagesBefore_); }));
  watches_.push_back(form.State.WhenChanged([this] { ApplyState(); }));
  watches_.push_back(form.Hourglass.WhenChanged([this] { ApplyHourglass(); }));
  watches_.push_back(form.Show.WhenRaised([this] { ShowFitting(); }));
  watches_.push_back(form.SetFocus.WhenRaised([this] {
    raise();
    activateWindow();
  }));
  form.CurrentTab = tabs_->currentIndex() - pagesBefore_;
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
    MakeWhatWaits();
    screen_.Window.CurrentTab = tab - pagesBefore_;
    TellTab(*tabs_->tabBar());
  });
}

// Where it was, or else in the middle; inside what the desktop's own bars leave free.
void ProgramWindow::ShowFitting() {
  const auto free = screen()->availableGeometry();
  QRect middle(QPoint(0, 0), WantedSize.boundedTo(free.size()));
  middle.moveCenter(free.center());
  const auto kept = ReadWindowPlace(screen_.Window.Place.Text.Get());
  place_ = kept.value_or(WindowPlace{{middle.x(), middle.y(), middle.width(), middle.height()}});
  place_.Bounds = FitOntoScreens(place_.Bounds, FreeScreens());
  resize(place_.Bounds.Width, place_.Bounds.Height);
  move(place_.Bounds.Left, place_.Bounds.Top);
  if (place_.IsMaximised) setWindowState(Qt::WindowMaximized);
  show();
  tabs_->currentWidget()->setFocus();
  QTimer::singleShot(MillisecondsToSettle, this, &ProgramWindow::FitFrame);
}

// How wide the desktop's frame is shows only when it is there.
void ProgramWindow::FitFrame() {
  if (windowState() != Qt::WindowNoState) return;
  const auto frame = frameGeometry();
  const Rectangle whole{frame.x(), frame.y(), frame.width(), frame.height()};
  const auto fitting = FitOntoScreens(whole, FreeScreens());
  if (fitting == whole) return;
  resize(width() - whole.Width + fitting.Width, height() - whole.Height + fitting.Height);
  move(fitting.Left, fitting.Top);
}

void ProgramWindow::KeepPlace() {
  if (!isVisible() || isMinimized()) return;
  place_.IsMaximised = isMaximized();
  if (!place_.IsMaximised) place_.Bounds = {x(), y(), width(), height()};
  screen_.Window.Place.Text = WindowPlaceText(place_);
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
  if (!waiting_.empty()) return;
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
  KeepPlace();
  quit_();
}

void ProgramWindow::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (!waiting_.empty()) QTimer::singleShot(0, this, [this] { MakeWhatWaits(); });
}

void ProgramWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  screen_.Window.State = StateOf(windowState());
  placeSettles_.start();
}

void ProgramWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  placeSettles_.start();
}

void ProgramWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeSettles_.start();
}

}  // namespace brelwin
