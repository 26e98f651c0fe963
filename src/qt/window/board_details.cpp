#include "qt/window/board_details.h"

#include <QLabel>
#include <QVBoxLayout>

#include "qt/ports/qt_text.h"
#include "qt/window/page_parts.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

// With its date unless that is today's.
QString TimeOf(DateTime time, DateTime now) {
  constexpr std::int64_t secondsOfADay = 86400;
  const bool isToday = time.Seconds / secondsOfADay == now.Seconds / secondsOfADay;
  return ToQString(isToday ? ClockText(time) : DateTimeText(time).substr(5, 11));
}

// Most words speak for themselves.
QString WhoseWords(StoryKind kind) {
  switch (kind) {
    case StoryKind::Posted: return "posted by the gateway: ";
    case StoryKind::HeldBack: return "held back by the gateway: ";
    case StoryKind::QRT: return "QRT: ";
    default: return {};
  }
}

// Newest on top.
QStringList StoryLines(const ActivationRow& row, DateTime now) {
  QStringList lines;
  for (const auto& event : row.Story)
    lines.prepend(TimeOf(event.When, now) + "  " + WhoseWords(event.Kind) + ToQString(event.Words));
  return lines;
}

QStringList CommentLines(const ActivationFacts& facts, DateTime now) {
  QStringList lines;
  for (const auto& report : facts.Reports)
    if (!report.Comment.empty())
      lines.prepend(TimeOf(report.When, now) + "  " + ToQString(report.Spotter + ": " + report.Comment));
  for (const auto& announcement : facts.Announcements)
    if (!announcement.Comment.empty())
      lines << "for " + TimeOf(announcement.Planned, now) + "  " + ToQString(announcement.Comment);
  return lines;
}

// Whoever reads in a list keeps his place while nothing is added.
void Put(QListWidget& list, const QStringList& lines) {
  QStringList before;
  for (int line = 0; line < list.count(); ++line) before << list.item(line)->text();
  if (before == lines) return;
  list.clear();
  list.addItems(lines);
}

QListWidget* MakeLines(const char* objectName, const char* name) {
  auto* list = new QListWidget;
  list->setObjectName(objectName);
  list->setAccessibleName(name);
  list->setWordWrap(true);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setMinimumHeight(60);
  return list;
}

std::string HeadingOf(const RowMoment& moment) {
  const auto& who = moment.Row.Who;
  auto text = who.Station;
  if (!who.Summit.empty()) text += " on " + who.Summit;
  if (!who.SummitName.empty()) text += " " + who.SummitName;
  return text + " · " + std::string(StateWord(moment.Verdict.State)) + ": " +
         ReasonInWords(moment.Verdict, moment.Row.Facts, moment.Now);
}

QLayout* Captioned(const char* caption, QWidget* part) {
  auto* column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(MakeCaption(caption, part));
  column->addWidget(part, 1);
  return column;
}

}  // namespace

BoardDetails::BoardDetails(const BoardDoors& doors)
    : heading_(new ElidedLabel),
      summit_(MakeButton("summitPage", "Summit page", "Opens the page of the summit")),
      station_(MakeButton("stationPage", "Station page", "Opens the page of the operator")),
      story_(MakeLines("story", "Story of the activation, newest first")),
      signals_(new SignalPicture),
      comments_(MakeLines("comments", "Comments, newest first")) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addLayout(MakeHeading(doors));
  column->addLayout(MakeParts(), 1);
  ShowNothing();
}

QLayout* BoardDetails::MakeHeading(const BoardDoors& doors) {
  heading_->setObjectName("detailsHeading");
  heading_->setTextFormat(Qt::PlainText);
  auto font = heading_->font();
  font.setBold(true);
  heading_->setFont(font);
  connect(summit_, &QPushButton::clicked, this, [this, &doors] { doors.OpenSummit(who_.Summit); });
  connect(station_, &QPushButton::clicked, this, [this, &doors] { doors.OpenStation(who_.BaseCallsign); });
  auto* row = new QHBoxLayout;
  row->addWidget(heading_, 1);
  row->addWidget(summit_);
  row->addWidget(station_);
  return row;
}

QLayout* BoardDetails::MakeParts() {
  auto* row = new QHBoxLayout;
  row->addLayout(Captioned("Story", story_), 4);
  row->addLayout(Captioned("Signal over noise", signals_), 3);
  row->addLayout(Captioned("Comments", comments_), 3);
  return row;
}

void BoardDetails::Show(const RowMoment& moment) {
  const auto& row = moment.Row;
  who_ = row.Who;
  heading_->setText(ToQString(HeadingOf(moment)));
  summit_->setEnabled(!who_.Summit.empty());
  station_->setEnabled(!who_.BaseCallsign.empty());
  Put(*story_, StoryLines(row, moment.Now));
  Put(*comments_, CommentLines(row.Facts, moment.Now));
  signals_->Show(row.Signals);
}

void BoardDetails::ShowNothing() {
  who_ = {};
  heading_->setText("Select an activation to see its story");
  summit_->setEnabled(false);
  station_->setEnabled(false);
  story_->clear();
  comments_->clear();
  signals_->ShowNothing();
}

}  // namespace brelwin
