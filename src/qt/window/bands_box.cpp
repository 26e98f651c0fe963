#include "qt/window/bands_box.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "qt/ports/qt_text.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr int Blank = 6;  // pixels
constexpr int MillisecondsBetweenReads = 10'000;
constexpr std::array HoursToChoose = {1, 3, 6, 12, 24};
constexpr int HoursAtFirst = 2;  // the place in the choice

constexpr const char* Keys =
    " Arrow keys go through bands and times. Filled bars are of skimmers, framed ones of Sotawatch.";

// Few spots are seen beside many.
double HeightOf(std::uint32_t count, std::uint32_t most, double room) {
  return count == 0 ? 0
                    : std::max(2.0, room * std::sqrt(static_cast<double>(count) / static_cast<double>(most)));
}

QString TotalsOf(const BandCounts& counts) {
  return QString::number(counts.SkimmersInAll()) + " / " + QString::number(counts.SotawatchInAll());
}

}  // namespace

BandsPicture::BandsPicture() {
  setObjectName("bandsPicture");
  setAccessibleName("Spots per band over time");
  setFrameStyle(StyledPanel | Sunken);
  setFocusPolicy(Qt::StrongFocus);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void BandsPicture::Show(BandTable table) {
  table_ = std::move(table);
  most_ = 1;
  for (const auto& band : table_.Bands)
    most_ = std::max({most_, std::ranges::max(band.Skimmers), std::ranges::max(band.Sotawatch)});
  if (chosen_ && chosen_->Band >= table_.Bands.size()) chosen_.reset();
  setAccessibleDescription(ToQString(BandTableWords(table_)) + "." + Keys);
  setMinimumHeight(Lanes() * LowestLane() + Margins());
  update();
}

int BandsPicture::Lanes() const {
  return std::max(1, static_cast<int>(table_.Bands.size()));
}

int BandsPicture::LowestLane() const {
  return fontMetrics().height() + 1;
}

// Of the time below and of the words above.
int BandsPicture::Margins() const {
  return 2 * fontMetrics().height() + 4 * Blank;
}

// Many bands leave room for the map, few are drawn no higher than they need.
int BandsPicture::LaneHeight() const {
  return std::clamp((height() - Margins()) / Lanes(), LowestLane(), 2 * fontMetrics().height() + Blank);
}

int BandsPicture::NameWidth() const {
  int width = 0;
  for (const auto& band : table_.Bands)
    width = std::max(width, fontMetrics().horizontalAdvance(ToQString(band.Band)));
  return width;
}

QRectF BandsPicture::LanesArea() const {
  const auto metrics = fontMetrics();
  return QRectF(rect()).adjusted(NameWidth() + 2 * Blank, metrics.height() + 2 * Blank,
                                 -metrics.horizontalAdvance("RBN / Sotawatch") - 2 * Blank,
                                 -metrics.height() - 2 * Blank);
}

QRectF BandsPicture::LaneOf(std::size_t band) const {
  const auto area = LanesArea();
  return {area.left(), area.top() + static_cast<double>(band) * LaneHeight(), area.width(),
          static_cast<double>(LaneHeight())};
}

std::optional<BandsPicture::Cell> BandsPicture::CellAt(QPointF point) const {
  const auto area = LanesArea();
  if (point.x() < area.left() || point.x() >= area.right() || point.y() < area.top()) return {};
  const auto band = static_cast<std::size_t>((point.y() - area.top()) / LaneHeight());
  const auto part = static_cast<std::size_t>((point.x() - area.left()) / area.width() * BandParts);
  if (band >= table_.Bands.size() || part >= BandParts) return {};
  return Cell{band, part};
}

QString BandsPicture::WordsOf(const Cell& cell) const {
  return ToQString(BandPartWords(table_, table_.Bands[cell.Band], cell.Part));
}

QString BandsPicture::WordsAt(QPointF point) const {
  const auto cell = CellAt(point);
  return cell ? WordsOf(*cell) : QString();
}

bool BandsPicture::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QFrame::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), WordsAt(help->pos()), this);
  return true;
}

void BandsPicture::keyPressEvent(QKeyEvent* event) {
  const auto now = chosen_.value_or(Cell{0, BandParts - 1});
  const auto band = static_cast<int>(now.Band);
  const auto part = static_cast<int>(now.Part);
  switch (event->key()) {
    case Qt::Key_Left: return Choose(band, chosen_ ? part - 1 : part);
    case Qt::Key_Right: return Choose(band, chosen_ ? part + 1 : part);
    case Qt::Key_Up: return Choose(band - 1, part);
    case Qt::Key_Down: return Choose(chosen_ ? band + 1 : band, part);
    default: QFrame::keyPressEvent(event);
  }
}

void BandsPicture::Choose(int band, int part) {
  if (table_.Bands.empty()) return;
  const auto last = static_cast<int>(table_.Bands.size()) - 1;
  chosen_ = Cell{static_cast<std::size_t>(std::clamp(band, 0, last)),
                 static_cast<std::size_t>(std::clamp(part, 0, static_cast<int>(BandParts) - 1))};
  setAccessibleDescription(WordsOf(*chosen_) + "." + Keys);
  update();
}

void BandsPicture::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  if (table_.Bands.empty()) return painter.drawText(rect(), Qt::AlignCenter, "No spots in this time");
  for (std::size_t band = 0; band < table_.Bands.size(); ++band) PaintLane(painter, band);
  PaintTimes(painter);
  PaintChosen(painter);
  if (!hasFocus()) return;
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

void BandsPicture::PaintLane(QPainter& painter, std::size_t band) const {
  const auto lane = LaneOf(band);
  const auto& counts = table_.Bands[band];
  auto faint = palette().color(QPalette::Text);
  faint.setAlphaF(0.25F);
  painter.setPen(faint);
  painter.drawLine(lane.bottomLeft(), lane.bottomRight());
  painter.setPen(palette().color(QPalette::Text));
  const QRectF name(Blank, lane.top(), lane.left() - 2 * Blank, lane.height());
  painter.drawText(name, Qt::AlignRight | Qt::AlignVCenter, ToQString(counts.Band));
  const QRectF totals(lane.right(), lane.top(), rect().right() - lane.right() - Blank, lane.height());
  painter.drawText(totals, Qt::AlignRight | Qt::AlignVCenter, TotalsOf(counts));
  PaintBars(painter, lane, counts);
}

// Sotawatch has the upper half of the lane.
void BandsPicture::PaintBars(QPainter& painter, const QRectF& lane, const BandCounts& counts) const {
  const auto half = lane.height() / 2;
  const auto width = lane.width() / BandParts;
  const auto bar = [&](std::size_t part, double bottom, std::uint32_t count) {
    const auto height = HeightOf(count, most_, half - 3);
    return QRectF(lane.left() + static_cast<double>(part) * width + 1, bottom - height, width - 2, height);
  };
  const auto color = palette().color(QPalette::Highlight);
  for (std::size_t part = 0; part < BandParts; ++part) {
    if (counts.Skimmers[part] > 0) painter.fillRect(bar(part, lane.bottom(), counts.Skimmers[part]), color);
    if (counts.Sotawatch[part] == 0) continue;
    painter.setPen(palette().color(QPalette::Text));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bar(part, lane.top() + half, counts.Sotawatch[part]));
  }
}

void BandsPicture::PaintTimes(QPainter& painter) const {
  const auto area = LanesArea();
  const auto height = fontMetrics().height();
  painter.setPen(palette().color(QPalette::Text));
  const QRectF above(Blank, Blank, rect().width() - 3.0 * Blank, height);
  painter.drawText(above, Qt::AlignRight, "RBN / Sotawatch");
  const auto bottom = LaneOf(table_.Bands.size() - 1).bottom() + 2;
  for (std::size_t part = 0; part <= BandParts; part += BandParts / 4) {
    const auto x = area.left() + area.width() * static_cast<double>(part) / BandParts;
    const QRectF room(x - 40, bottom, 80, height);
    painter.drawText(room, Qt::AlignHCenter, ToQString(ClockText(table_.BeginOf(part))));
  }
}

void BandsPicture::PaintChosen(QPainter& painter) const {
  if (!chosen_) return;
  const auto lane = LaneOf(chosen_->Band);
  const auto width = lane.width() / BandParts;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DotLine));
  painter.drawRect(
      QRectF(lane.left() + static_cast<double>(chosen_->Part) * width, lane.top(), width, lane.height()));
  const QRectF above(Blank, Blank, rect().width() - 2.0 * Blank, fontMetrics().height());
  painter.drawText(above, Qt::AlignLeft, WordsOf(*chosen_));
}

BandsBox::BandsBox(ActivationStore& store, std::function<DateTime()> utcNow)
    : store_(store),
      utcNow_(std::move(utcNow)),
      fold_(new QToolButton),
      hours_(new QComboBox),
      picture_(new BandsPicture),
      inside_(new QWidget) {
  fold_->setObjectName("bandsFold");
  fold_->setText("&Bands over time");
  fold_->setCheckable(true);
  fold_->setAutoRaise(true);
  fold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  hours_->setObjectName("bandsHours");
  hours_->setAccessibleName("How far back");
  for (const int hours : HoursToChoose)
    hours_->addItem("last " + QString::number(hours) + (hours == 1 ? " hour" : " hours"), hours);
  hours_->setCurrentIndex(HoursAtFirst);
  auto* head = new QHBoxLayout;
  head->addWidget(fold_);
  head->addWidget(hours_);
  head->addStretch();
  auto* inside = new QVBoxLayout(inside_);
  inside->setContentsMargins({});
  inside->addWidget(picture_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addLayout(head);
  column->addWidget(inside_);
  next_.setSingleShot(true);
  connect(fold_, &QToolButton::toggled, this, &BandsBox::Unfold);
  connect(hours_, &QComboBox::currentIndexChanged, this, &BandsBox::Show);
  connect(&next_, &QTimer::timeout, this, &BandsBox::Read);
  Unfold(false);
}

void BandsBox::Unfold(bool isUnfolded) {
  fold_->setChecked(isUnfolded);
  fold_->setArrowType(isUnfolded ? Qt::DownArrow : Qt::RightArrow);
  hours_->setVisible(isUnfolded);
  inside_->setVisible(isUnfolded);
  if (isUnfolded)
    next_.start(0);
  else
    next_.stop();
}

// An hour of events at a time, so that the window is served in between.
void BandsBox::Read() {
  const bool isMore = activity_.ReadOn(store_, utcNow_());
  if (!isMore) Show();
  next_.start(isMore ? 0 : MillisecondsBetweenReads);
}

void BandsBox::Show() {
  picture_->Show(activity_.Count(hours_->currentData().toInt()));
}

}  // namespace brelwin
