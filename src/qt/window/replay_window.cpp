#include "qt/window/replay_window.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

#include "qt/ports/qt_text.h"
#include "qt/window/page_parts.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr int MillisecondsBetweenSteps = 250;
constexpr int DaysKept = 30;
constexpr int HighestSpeed = 100;
constexpr int FirstSpeed = 60;
constexpr std::int64_t SecondsOfHour = 3600;
constexpr std::int64_t SecondsOfDay = 86'400;

DateTime DayOf(DateTime time) {
  return {time.Seconds - time.Seconds % SecondsOfDay};
}

DateTime FromQt(const QDateTime& time) {
  const auto date = time.date();
  const auto clock = time.time();
  return DateTimeFromCalendar(
             {date.year(), date.month(), date.day(), clock.hour(), clock.minute(), clock.second()})
      .value_or(DateTime());
}

QDateTime ToQt(DateTime time) {
  return QDateTime::fromString(ToQString(DateTimeText(time)), "yyyy-MM-dd HH:mm:ss");
}

}  // namespace

ReplayWindow::ReplayWindow(Screen& screen, const BoardDoors& doors, Host& world, QWidget* parent)
    : QDialog(parent), screen_(screen), live_(doors), world_(world) {
  setWindowTitle("Replay of a day");
  auto* column = new QVBoxLayout(this);
  column->addLayout(MakeTop());
  next_.setInterval(MillisecondsBetweenSteps);
  connect(&next_, &QTimer::timeout, this, &ReplayWindow::Advance);
  ShowEmptyBoard();
}

// The page looks at the board, which goes before the window's children.
ReplayWindow::~ReplayWindow() {
  delete page_;
}

QLayout* ReplayWindow::MakeTop() {
  const auto now = live_.UTCNow();
  const auto today = ToQt(DayOf(now));
  begin_ = new QDateTimeEdit(ToQt(AddSeconds(now, -SecondsOfHour)));
  begin_->setObjectName("replayBegin");
  begin_->setDisplayFormat("yyyy-MM-dd HH:mm");
  begin_->setDateTimeRange(today.addDays(-DaysKept), today.addDays(1).addSecs(-1));
  begin_->setToolTip("UTC; what is kept of the last 30 days can be played");
  speed_ = new QSpinBox;
  speed_->setObjectName("replaySpeed");
  speed_->setRange(1, HighestSpeed);
  speed_->setValue(FirstSpeed);
  speed_->setSuffix(" times");
  play_ = MakeButton("replayPlay", "Pl&ay", "Plays from this moment to the end of its day");
  state_ = MakeWords("replayState");
  auto* row = new QHBoxLayout;
  for (auto* widget : std::initializer_list<QWidget*>{MakeCaption("Beg&in", begin_), begin_,
                                                      MakeCaption("Spee&d", speed_), speed_, play_})
    row->addWidget(widget);
  row->addWidget(state_, 1);
  connect(play_, &QPushButton::clicked, this, &ReplayWindow::Play);
  connect(speed_, &QSpinBox::valueChanged, this, [this](int speed) {
    if (replay_) replay_->SetSpeed(speed, world_.Time.Now());
  });
  return row;
}

DateTime ReplayWindow::Now() const {
  return replay_ ? replay_->TimeAt(world_.Time.Now()) : live_.UTCNow();
}

BoardDoors ReplayWindow::OwnDoors() {
  return {
      board_, changed_,     [this] { return Now(); }, live_.Surroundings, live_.OpenSummit, live_.OpenStation,
      {},     live_.Missing};
}

void ReplayWindow::ShowEmptyBoard() {
  delete page_;
  board_ = Board();
  page_ = new BoardPage(screen_, OwnDoors());
  layout()->addWidget(page_);
}

// The window may be closed while the day is read.
void ReplayWindow::Play() {
  const auto begin = FromQt(begin_->dateTime());
  const auto day = DayOf(begin);
  next_.stop();
  replay_.reset();
  ShowEmptyBoard();
  play_->setEnabled(false);
  state_->setText("Reading the day...");
  std::vector<TimedEvent> events;
  const QPointer<ReplayWindow> self = this;
  const auto result = EventsOfDay(
      world_.Store, day,
      [this, self] {
        world_.Events.DoEvents();
        return self && isVisible() && !world_.ShuttingDown;
      },
      events);
  if (!self) return;
  play_->setEnabled(true);
  if (!result.Words.empty())
    state_->setText(ToQString(result.Words));
  else if (events.empty())
    state_->setText("Nothing was kept of this day.");
  else
    Begin(begin, AddSeconds(day, SecondsOfDay), std::move(events));
}

void ReplayWindow::Begin(DateTime begin, DateTime end, std::vector<TimedEvent> events) {
  replay_.emplace(std::move(events), begin, end, speed_->value(), world_.Time.Now());
  next_.start();
  Advance();
}

void ReplayWindow::Advance() {
  const auto now = world_.Time.Now();
  const auto due = replay_->Due(now);
  for (const auto& event : due) board_.Take(event);
  if (!due.empty()) changed_.Raise();
  const bool isOver = replay_->IsOver(now);
  if (isOver) next_.stop();
  state_->setText(ToQString(DateTimeText(replay_->TimeAt(now))) +
                  (isOver ? " UTC, the end of the day" : " UTC"));
}

}  // namespace brelwin
