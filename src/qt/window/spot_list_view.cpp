#include "qt/window/spot_list_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QEvent>
#include <QFontDatabase>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "qt/ports/qt_text.h"
#include "qt/window/spot_line_delegate.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

// Of the size that the system has for such text, in percent.
constexpr int SmallestZoom = 50;
constexpr int NormalZoom = 100;
constexpr int LargestZoom = 300;
constexpr int ZoomStep = 10;

int ZoomOf(const SpotListBox& control) {
  const auto percent = WholeNumber(control.Zoom.Text.Get());
  return percent < 1 ? NormalZoom : std::clamp(percent, SmallestZoom, LargestZoom);
}

// Finds the line on top of the view again after the lines around it have changed.
class KeptPlace {
 public:
  explicit KeptPlace(QListView& view) : view_(view), sideways_(view.horizontalScrollBar()->value()) {
    if (view.verticalScrollBar()->value() == 0) return;  // at the very top, new lines are to be seen
    const auto height = view.viewport()->height();
    for (auto index = view.indexAt({0, 0}); index.isValid(); index = index.siblingAtRow(index.row() + 1)) {
      const auto top = view.visualRect(index).top();
      if (top >= height) break;
      lines_.push_back({index, top});
    }
  }

  void Restore() const {
    const auto stillThere = [](const Line& line) { return line.Index.isValid(); };
    const auto line = std::find_if(lines_.begin(), lines_.end(), stillThere);
    if (line != lines_.end()) {
      auto* bar = view_.verticalScrollBar();
      bar->setValue(bar->value() + view_.visualRect(line->Index).top() - line->Top);
    }
    view_.horizontalScrollBar()->setValue(sideways_);
  }

 private:
  struct Line {
    QPersistentModelIndex Index;
    int Top;
  };

  QListView& view_;
  int sideways_;
  std::vector<Line> lines_;  // the visible ones, top down
};

}  // namespace

SpotListView::SpotListView(QWidget* parent)
    : QListView(parent), headerArea_(new QWidget(this)), header_(new QLabel(headerArea_)) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setModel(&model_);
  setItemDelegate(new SpotLineDelegate(model_, this));
  setUniformItemSizes(true);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  setAlternatingRowColors(true);
  headerArea_->setAutoFillBackground(true);
  header_->setFont(font());
  header_->setContentsMargins(SpotLineDelegate::Margin, 2, SpotLineDelegate::Margin, 0);
  headerArea_->installEventFilter(this);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { PlaceHeader(); });
  AddActions();
}

Watch SpotListView::Follow(SpotListBox& control) {
  connect(this, &QListView::doubleClicked, this, [this, &control](const QModelIndex& index) {
    const auto spot = model_.SpotAt(index.row());  // kept: the list may change meanwhile
    if (spot && control.DoubleClick) control.DoubleClick(*spot);
  });
  // Not when the current line changes: the mouse selects it only afterwards.
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this, &control] { TellChoice(control); });
  control_ = &control;
  zoomWatch_ = control.Zoom.Text.WhenChanged([this] { ApplyZoom(); });
  ApplyZoom();
  Show(control.Contents);
  return control.Contents.WhenChanged([this, &control] { Show(control.Contents); });
}

void SpotListView::TellChoice(const SpotListBox& control) const {
  // Qt marks a line by itself when the list takes the focus or loses the marked one.
  if (refreshing_ || !selectionModel()->isSelected(currentIndex())) return;
  const auto spot = model_.SpotAt(currentIndex().row());
  if (spot && control.Select) control.Select(*spot);
}

void SpotListView::Show(const ListContents& contents) {
  const auto* text = std::get_if<std::string>(&contents);
  if (text != nullptr && text->empty()) return;  // the next contents are on their way
  const KeptPlace place(*this);
  refreshing_ = true;
  setAutoScroll(false);
  if (text != nullptr)
    model_.ShowText(*text);
  else
    ShowSpots(std::get<SpotRows>(contents));
  doItemsLayout();
  place.Restore();
  setAutoScroll(true);
  refreshing_ = false;
  Q_EMIT Refreshed(narrowed_);
}

void SpotListView::ShowSpots(const SpotRows& spots) {
  narrowed_.clear();
  if (!narrowing_) return model_.ShowSpots(spots);
  SpotRows within;
  std::copy_if(spots.begin(), spots.end(), std::back_inserter(within),
               [this](const auto& spot) { return IsWithin(*narrowing_, *spot); });
  model_.ShowSpots(within);
  narrowed_ = QString("Only %1 is shown: %2 of %3 spots.")
                  .arg(ToQString(NarrowingWords(*narrowing_)))
                  .arg(within.size())
                  .arg(spots.size());
}

void SpotListView::NarrowTo(std::optional<Narrowing> narrowing) {
  narrowing_ = std::move(narrowing);
  if (control_ != nullptr) Show(control_->Contents);
}

std::shared_ptr<const Spot> SpotListView::ChosenSpot() const {
  const auto line = ChosenLine();
  return line ? model_.SpotAt(static_cast<int>(*line)) : nullptr;
}

void SpotListView::AddToList(CallsignListName name, const Spot& spot) const {
  if (control_ != nullptr && control_->AddToList) control_->AddToList(name, spot);
}

std::string SpotListView::LineAt(std::size_t line) const {
  return model_.index(static_cast<int>(line)).data().toString().toStdString();
}

std::optional<std::size_t> SpotListView::ChosenLine() const {
  if (!selectionModel()->isSelected(currentIndex())) return {};
  return static_cast<std::size_t>(currentIndex().row());
}

void SpotListView::Choose(std::size_t line) {
  const auto sideways = horizontalScrollBar()->value();
  setCurrentIndex(model_.index(static_cast<int>(line)));
  horizontalScrollBar()->setValue(sideways);
}

QAction* SpotListView::AddShortcut(const char* caption, const QList<QKeySequence>& keys,
                                   std::function<void()> run) {
  auto* action = new QAction(caption, this);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, std::move(run));
  return action;
}

void SpotListView::AddActions() {
  using Keys = QList<QKeySequence>;
  auto* larger =
      AddShortcut("&Larger", Keys{QKeySequence::ZoomIn, QKeySequence("Ctrl+=")}, [this] { Zoom(1); });
  auto* smaller = AddShortcut("S&maller", Keys{QKeySequence::ZoomOut}, [this] { Zoom(-1); });
  auto* separator = new QAction(this);
  separator->setSeparator(true);
  addActions({AddShortcut("&Copy lines", Keys{QKeySequence::Copy}, [this] { CopySelection(); }),
              AddShortcut("Select &all", Keys{QKeySequence::SelectAll}, [this] { selectAll(); }), separator,
              larger, smaller,
              AddShortcut("&Normal size", Keys{QKeySequence("Ctrl+0")}, [this] { SetZoom(NormalZoom); })});
  // Qt opens menus by the menu key alone.
  new QShortcut(QKeySequence("Shift+F10"), this, this, &SpotListView::AskForMenu, Qt::WidgetShortcut);
}

void SpotListView::CopySelection() const {
  auto selected = selectedIndexes();
  std::sort(selected.begin(), selected.end());
  QStringList lines;
  for (const auto& index : selected) lines << index.data().toString();
  if (!lines.isEmpty()) QApplication::clipboard()->setText(lines.join('\n'));
}

bool SpotListView::eventFilter(QObject* watched, QEvent* event) {
  const bool captionsChanged = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show;
  if (watched == headerArea_ && captionsChanged) PlaceHeader();
  return QListView::eventFilter(watched, event);
}

void SpotListView::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  PlaceHeader();
}

void SpotListView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QListView::wheelEvent(event);
  turned_ += event->angleDelta().y();
  Zoom(turned_ / QWheelEvent::DefaultDeltasPerStep);
  turned_ %= QWheelEvent::DefaultDeltasPerStep;
}

void SpotListView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard)
    AskForMenu();
  else
    Q_EMIT MenuWanted(event->globalPos());
}

// By keyboard: beside the chosen line, or in the corner when that is not in view.
void SpotListView::AskForMenu() {
  const auto line = visualRect(currentIndex()) & viewport()->rect();
  Q_EMIT MenuWanted(viewport()->mapToGlobal(line.isEmpty() ? QPoint() : line.bottomLeft()));
}

void SpotListView::PlaceHeader() {
  const auto size = header_->sizeHint();
  if (viewportMargins().top() != size.height()) setViewportMargins(0, size.height(), 0, 0);
  const auto lines = viewport()->geometry();
  headerArea_->setGeometry(lines.left(), lines.top() - size.height(), lines.width(), size.height());
  header_->setGeometry(-horizontalScrollBar()->value(), 0, std::max(size.width(), lines.width()),
                       size.height());
}

void SpotListView::Zoom(int steps) {
  if (control_ != nullptr) SetZoom(ZoomOf(*control_) + steps * ZoomStep);
}

void SpotListView::SetZoom(int percent) {
  if (control_ != nullptr)
    control_->Zoom.Text = std::to_string(std::clamp(percent, SmallestZoom, LargestZoom));
}

void SpotListView::ApplyZoom() {
  const KeptPlace place(*this);
  auto sized = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (sized.pointSizeF() > 0)
    sized.setPointSizeF(sized.pointSizeF() * ZoomOf(*control_) / 100);
  else
    sized.setPixelSize(std::max(1, sized.pixelSize() * ZoomOf(*control_) / 100));
  setFont(sized);
  header_->setFont(sized);
  PlaceHeader();
  doItemsLayout();
  place.Restore();
}

}  // namespace brelwin
