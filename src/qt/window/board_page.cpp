#include "qt/window/board_page.h"

#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/text.h"
#include "qt/ports/qt_text.h"
#include "qt/window/board_export.h"
#include "qt/window/page_parts.h"

namespace brelwin {
namespace {

constexpr int MillisecondsUntilALook = 200;
constexpr int MillisecondsBetweenLooks = 5000;

// At first, in pixels; what the window has more is the table's.
constexpr int TableHeight = 420;
constexpr int DetailsHeight = 170;

constexpr std::string_view Others = "others";
constexpr std::string_view Worked = "worked";

}  // namespace

BoardPage::BoardPage(Screen& screen, BoardDoors doors)
    : screen_(screen),
      doors_(std::move(doors)),
      model_(doors_, this),
      table_(new BoardTable(model_, screen.Window.BoardColumns)),
      details_(new BoardDetails(doors_)) {
  auto* column = new QVBoxLayout(this);
  column->addLayout(MakeTop());
  column->addWidget(MakeMiddle(), 1);
  setFocusProxy(table_);
  soon_.setSingleShot(true);
  soon_.setInterval(MillisecondsUntilALook);
  again_.setInterval(MillisecondsBetweenLooks);
  ReadBoxes();
  Connect();
}

QLayout* BoardPage::MakeTop() {
  auto* row = new QHBoxLayout;
  search_ = MakeTextBox({"boardSearch", "",
                         "Words that a row must all have: callsign, summit, association, "
                         "region, name, band (20m), mode or state"});
  search_->setClearButtonEnabled(true);
  search_->setPlaceholderText("callsign, summit, band, mode, state");
  onlyNeeded_ = MakeCheckBox("boardOnlyNeeded", "Only &needed", "Activations that you need, by your log");
  hideWorked_ = MakeCheckBox("boardHideWorked", "Hide &worked today",
                             "Hides those that you have worked today (UTC) on this summit");
  columns_ = MakeButton("boardColumns", "&Columns...", "Hides, shows and sorts by columns");
  auto* replay =
      MakeButton("boardReplay", "Re&play...", "Plays a day of the board again, faster than it was");
  replay->setVisible(static_cast<bool>(doors_.OpenReplay));
  auto* save = MakeButton("boardExport", "&Export...", "Writes the rows, finished ones too, to a CSV file");
  row->addWidget(MakeCaption("Sea&rch", search_));
  row->addWidget(search_, 1);
  for (auto* widget : std::initializer_list<QWidget*>{onlyNeeded_, hideWorked_, columns_, replay, save})
    row->addWidget(widget);
  connect(columns_, &QPushButton::clicked, this, &BoardPage::OpenColumnMenu);
  connect(replay, &QPushButton::clicked, this, [this] { doors_.OpenReplay(); });
  connect(save, &QPushButton::clicked, this, &BoardPage::Export);
  return row;
}

QWidget* BoardPage::MakeMiddle() {
  stack_ = new QStackedWidget;
  stack_->addWidget(table_);
  stack_->addWidget(MakeEmpty());
  auto* upper = new QWidget;
  auto* column = new QVBoxLayout(upper);
  column->setContentsMargins({});
  column->addWidget(stack_, 1);
  column->addLayout(MakeBottom());
  auto* middle = new QSplitter(Qt::Vertical);
  middle->addWidget(upper);
  middle->addWidget(details_);
  middle->setSizes({TableHeight, DetailsHeight});
  middle->setStretchFactor(0, 1);
  middle->setStretchFactor(1, 0);
  middle->setCollapsible(0, false);
  return middle;
}

QWidget* BoardPage::MakeEmpty() {
  auto* empty = new QWidget;
  auto* column = new QVBoxLayout(empty);
  why_ = MakeWords("boardEmpty");
  why_->setAlignment(Qt::AlignCenter);
  switchOn_ = MakeButton("boardSwitchOn", "Switch the Reverse Beacon Network on",
                         "Then announcements are read and skimmers heard");
  column->addStretch();
  column->addWidget(why_);
  column->addWidget(switchOn_, 0, Qt::AlignHCenter);
  column->addStretch();
  connect(switchOn_, &QPushButton::clicked, this, &BoardPage::SwitchRBNOn);
  return empty;
}

QLayout* BoardPage::MakeBottom() {
  auto* row = new QHBoxLayout;
  finished_ = MakeLine("boardFinished", "Shows or hides the activations that are over");
  waiting_ = MakeLine("boardWaiting", "Rows hold still while you look at one; this brings what is new");
  count_ = new QLabel;
  count_->setObjectName("boardCount");
  row->addWidget(finished_);
  row->addWidget(waiting_);
  row->addStretch();
  row->addWidget(count_);
  connect(waiting_, &QPushButton::clicked, this, &BoardPage::TakeUp);
  connect(finished_, &QPushButton::clicked, this, [this] {
    view_.ShowsFinished = !view_.ShowsFinished;
    TakeUp();
  });
  return row;
}

void BoardPage::Connect() {
  const auto look = [this] { Follow(); };
  connect(&soon_, &QTimer::timeout, this, look);
  connect(&again_, &QTimer::timeout, this, [this] {
    if (!isVisible()) return;
    model_.RefreshAll();
    Follow();
  });
  again_.start();
  connect(search_, &QLineEdit::textChanged, this, &BoardPage::ViewChanged);
  for (auto* box : {onlyNeeded_, hideWorked_}) connect(box, &QCheckBox::clicked, this, &BoardPage::KeepBoxes);
  connect(table_, &BoardTable::SortingChanged, this, &BoardPage::ViewChanged);
  connect(table_, &BoardTable::LookedAway, &soon_, qOverload<>(&QTimer::start));
  connect(table_, &BoardTable::RowSelected, this, [this] {
    ShowDetails();
    const auto* row = table_->Selected();
    Q_EMIT Selected(row == nullptr ? 0 : row->Number);
  });
  connect(table_, &BoardTable::MenuWanted, this, &BoardPage::OpenMenu);
  AddShortcut(QKeySequence::Find, [this] { search_->setFocus(); });
  watches_.push_back(doors_.Changed.WhenRaised([this] {
    if (!soon_.isActive()) soon_.start();
  }));
  watches_.push_back(screen_.Window.BoardHides.Text.WhenChanged([this] { ReadBoxes(); }));
  watches_.push_back(screen_.RBN.chkReverseBeaconSpotsEnabled.Value.WhenChanged([this] { soon_.start(); }));
}

void BoardPage::AddShortcut(const QKeySequence& keys, std::function<void()> run) {
  auto* shortcut = new QShortcut(keys, this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  connect(shortcut, &QShortcut::activated, this, std::move(run));
}

void BoardPage::ReadBoxes() {
  const auto& hides = screen_.Window.BoardHides.Text.Get();
  onlyNeeded_->setChecked(Contains(hides, Others));
  hideWorked_->setChecked(Contains(hides, Worked));
  ViewChanged();
}

void BoardPage::KeepBoxes() {
  std::string hides(onlyNeeded_->isChecked() ? Others : "");
  if (hideWorked_->isChecked()) hides.append(hides.empty() ? "" : ", ").append(Worked);
  screen_.Window.BoardHides.Text = hides;
}

// Whoever asks for another view wants to see it at once.
void BoardPage::ViewChanged() {
  view_.Search = search_->text().toStdString();
  view_.OnlyNeeded = onlyNeeded_->isChecked();
  view_.HidesWorkedToday = hideWorked_->isChecked();
  view_.SortedBy = table_->Layout().SortedBy;
  view_.IsDescending = table_->Layout().IsDescending;
  TakeUp();
}

void BoardPage::Follow() {
  if (!isVisible()) return;
  model_.RefreshChanged();
  const auto order = OrderOf(doors_.Rows, view_, doors_.Surroundings, doors_.UTCNow());
  if (model_.rowCount() > 0 && table_->IsLookedAt())
    TellWaiting(order);
  else
    Apply(order);
  ShowDetails();
}

void BoardPage::TakeUp() {
  Apply(OrderOf(doors_.Rows, view_, doors_.Surroundings, doors_.UTCNow()));
}

void BoardPage::Apply(const BoardOrder& order) {
  model_.Show(order.Rows);
  TellWaiting(order);
  TellFinished(order);
  TellEmpty(order);
  const auto shown = order.Rows.size();
  count_->setText(QString::number(shown) + (shown == 1 ? " activation" : " activations"));
}

void BoardPage::TellWaiting(const BoardOrder& order) {
  const auto isNew = [this](RowNumber row) { return model_.PlaceOf(row) < 0; };
  const auto fresh = std::ranges::count_if(order.Rows, isNew);
  waiting_->setText(fresh > 0 ? QString::number(fresh) + " new, show" : QString("Order has changed, show"));
  if (order.Rows == model_.Rows() && waiting_->hasFocus()) table_->setFocus();
  waiting_->setVisible(order.Rows != model_.Rows());
}

void BoardPage::TellFinished(const BoardOrder& order) {
  finished_->setText(QString::number(order.FinishedCount) + " finished, " +
                     (view_.ShowsFinished ? "hide" : "show"));
  finished_->setVisible(order.FinishedCount > 0);
}

void BoardPage::TellEmpty(const BoardOrder& order) {
  const bool hasRows = !doors_.Rows.Rows().empty();
  const bool isOff = !screen_.RBN.chkReverseBeaconSpotsEnabled.Value;
  if (hasRows)
    why_->setText(order.FinishedCount > 0 ? "Every activation that fits is finished."
                                          : "No activation has all of this.");
  else
    why_->setText(isOff ? "The Reverse Beacon Network is off, and no announcements are read without it."
                        : "No activations yet: they show as soon as one is announced, heard or spotted.");
  switchOn_->setVisible(isOff && !hasRows);
  stack_->setCurrentIndex(order.Rows.empty() ? 1 : 0);
}

void BoardPage::Select(RowNumber row) {
  if (const auto place = model_.PlaceOf(row); place >= 0) table_->selectRow(place);
}

void BoardPage::ShowDetails() {
  const auto* row = table_->Selected();
  if (row == nullptr)
    details_->ShowNothing();
  else
    details_->Show(model_.MomentOfRow(*row));
}

void BoardPage::SwitchRBNOn() {
  auto& box = screen_.RBN.chkReverseBeaconSpotsEnabled;
  box.Value = true;
  if (box.Click) box.Click();
}

void BoardPage::OpenMenu(const QPoint& place) {
  const auto* row = table_->Selected();
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const char* text, bool isEnabled, std::function<void()> run) {
    menu->addAction(text, this, std::move(run))->setEnabled(isEnabled);
  };
  const auto who = row != nullptr ? row->Who : StationOnSummit();
  add("&Copy row\tCtrl+C", row != nullptr, [this] { table_->CopyRow(); });
  add("Open &summit page", !who.Summit.empty(), [this, who] { doors_.OpenSummit(who.Summit); });
  add("Open station &page", row != nullptr, [this, who] { doors_.OpenStation(who.BaseCallsign); });
  menu->addSeparator();
  table_->FillColumnMenu(*menu->addMenu("C&olumns"));
  add("&Export...", true, [this] { Export(); });
  menu->popup(place);
}

void BoardPage::OpenColumnMenu() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  table_->FillColumnMenu(*menu);
  menu->popup(columns_->mapToGlobal(QPoint(0, columns_->height())));
}

void BoardPage::Export() {
  AskForExportFile(*this, [this] {
    auto all = view_;
    all.ShowsFinished = true;
    return BoardAsCsv(doors_, all);
  });
}

void BoardPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  model_.RefreshAll();
  TakeUp();
}

}  // namespace brelwin
