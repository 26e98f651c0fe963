#include "qt/window/list_bars.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

#include "qt/ports/qt_text.h"
#include "qt/window/page_parts.h"

namespace brelwin {
namespace {

QHBoxLayout* MakeRow(QWidget& bar) {
  auto* row = new QHBoxLayout(&bar);
  row->setContentsMargins({});
  return row;
}

}  // namespace

QWidget* MakeNarrowingBar(SpotListView& list) {
  auto* bar = new QWidget;
  auto* row = MakeRow(*bar);
  auto* words = new ElidedLabel;
  words->setObjectName("narrowedTo");
  words->setTextFormat(Qt::PlainText);
  row->addWidget(words, 1);
  auto* all = MakeButton("showAll", "Show all again");
  row->addWidget(all);
  QObject::connect(all, &QPushButton::clicked, &list, [&list] {
    list.setFocus();  // before the button is gone
    list.NarrowTo({});
  });
  QObject::connect(&list, &SpotListView::Refreshed, bar, [bar, words](const QString& narrowed) {
    words->setText(narrowed);
    bar->setVisible(!narrowed.isEmpty());
  });
  bar->hide();
  return bar;
}

SearchBar::SearchBar(QWidget& page, SpotListView& list)
    : list_(list),
      text_(MakeTextBox({"searchText", "", "Text in the lines of the list; Enter for the next one"})),
      count_(new QLabel) {
  auto* row = MakeRow(*this);
  row->addWidget(MakeCaption("Find", text_));
  row->addWidget(text_, 1);
  count_->setObjectName("searchCount");
  row->addWidget(count_);
  const auto add = [&](const char* name, const char* caption, const char* tip, std::function<void()> run) {
    auto* button = MakeButton(name, caption, tip);
    connect(button, &QPushButton::clicked, this, std::move(run));
    row->addWidget(button);
  };
  add("searchPrevious", "Previous", "Shift+F3", [this] { Search(SearchStep::Previous); });
  add("searchNext", "Next", "F3", [this] { Search(SearchStep::Next); });
  add("searchClose", "Close", "Escape", [this] { Close(); });
  connect(text_, &QLineEdit::textEdited, this, [this] { Search(SearchStep::Stay); });
  connect(&list, &SpotListView::Refreshed, this, [this] { Count(); });
  connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { Count(); });
  text_->installEventFilter(this);
  list.addAction(AddKeys(page, "&Find...", {QKeySequence::Find}, [this] { Open(); }));
  AddKeys(page, "", {Qt::Key_F3}, [this] { Search(SearchStep::Next); });
  AddKeys(page, "", {Qt::SHIFT | Qt::Key_F3}, [this] { Search(SearchStep::Previous); });
  hide();
}

QAction* SearchBar::AddKeys(QWidget& page, const char* caption, const QList<QKeySequence>& keys,
                            std::function<void()> run) {
  auto* action = new QAction(caption, this);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, std::move(run));
  page.addAction(action);
  return action;
}

bool SearchBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
  if (key->key() == Qt::Key_Escape)
    Close();
  else if (isEnter)
    Search(key->modifiers().testFlag(Qt::ShiftModifier) ? SearchStep::Previous : SearchStep::Next);
  else
    return QWidget::eventFilter(watched, event);
  return true;
}

void SearchBar::Open() {
  show();
  text_->setFocus();
  text_->selectAll();
  Count();
}

void SearchBar::Close() {
  list_.setFocus();  // before the box is gone
  hide();
}

std::vector<std::size_t> SearchBar::Found() const {
  return LinesWith(text_->text().toStdString(), list_.LineCount(),
                   [this](std::size_t line) { return list_.LineAt(line); });
}

// A search without a text asks for one.
void SearchBar::Search(SearchStep step) {
  if (text_->text().isEmpty() && step != SearchStep::Stay) return Open();
  const auto found = Found();
  const auto chosen = list_.ChosenLine();
  const auto place = StepTo(found, chosen.value_or(0), chosen ? step : SearchStep::Stay);
  if (place) list_.Choose(found[*place]);
  Tell(found);
}

void SearchBar::Count() {
  if (isVisible()) Tell(Found());
}

// The box says it too, for a screen reader.
void SearchBar::Tell(const std::vector<std::size_t>& found) {
  const auto words = text_->text().isEmpty() ? std::string() : SearchWords(found, list_.ChosenLine());
  count_->setText(ToQString(words));
  text_->setAccessibleDescription(ToQString(words));
}

}  // namespace brelwin
