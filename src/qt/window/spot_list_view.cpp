#include "qt/window/spot_list_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QScrollBar>
#include <algorithm>

#include "qt/window/spot_line_delegate.h"

namespace brelwin {
namespace {

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
    model_.ShowSpots(std::get<SpotRows>(contents));
  doItemsLayout();
  place.Restore();
  setAutoScroll(true);
  refreshing_ = false;
}

void SpotListView::AddActions() {
  auto* copy = new QAction("&Copy lines", this);
  copy->setShortcut(QKeySequence::Copy);
  connect(copy, &QAction::triggered, this, [this] { CopySelection(); });
  auto* all = new QAction("Select &all", this);
  all->setShortcut(QKeySequence::SelectAll);
  connect(all, &QAction::triggered, this, &QListView::selectAll);
  for (auto* action : {copy, all}) {
    action->setShortcutContext(Qt::WidgetShortcut);
    addAction(action);
  }
  setContextMenuPolicy(Qt::ActionsContextMenu);
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

void SpotListView::PlaceHeader() {
  const auto size = header_->sizeHint();
  if (viewportMargins().top() != size.height()) setViewportMargins(0, size.height(), 0, 0);
  const auto lines = viewport()->geometry();
  headerArea_->setGeometry(lines.left(), lines.top() - size.height(), lines.width(), size.height());
  header_->setGeometry(-horizontalScrollBar()->value(), 0, std::max(size.width(), lines.width()),
                       size.height());
}

}  // namespace brelwin
