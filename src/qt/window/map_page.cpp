#include "qt/window/map_page.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "around/board_map.h"
#include "qt/window/bands_box.h"
#include "qt/window/page_parts.h"

namespace brelwin {
namespace {

constexpr int MillisecondsUntilALook = 500;
constexpr int MillisecondsBetweenLooks = 15'000;

QString Counted(std::size_t count, const QString& noun) {
  return QString::number(count) + " " + noun + (count == 1 ? "" : "s");
}

QString WordsOf(const BoardMap& map) {
  auto words = Counted(map.Contents.Activations.size(), "activation");
  if (map.WithoutPlace > 0)
    words += ", and " + QString::number(map.WithoutPlace) +
             " more without a place: their summits are on no list that was imported";
  return words;
}

}  // namespace

MapPage::MapPage(MapDoors doors)
    : doors_(std::move(doors)), stack_(new QStackedWidget), map_(new MapView), words_(MakeWords("mapWords")) {
  stack_->addWidget(map_);
  stack_->addWidget(MakeWithoutPlace());
  auto* column = new QVBoxLayout(this);
  column->addWidget(stack_, 1);
  column->addWidget(words_);
  column->addWidget(new BandsBox(doors_.Store, doors_.UTCNow));
  setFocusProxy(map_);
  soon_.setSingleShot(true);
  soon_.setInterval(MillisecondsUntilALook);
  again_.setInterval(MillisecondsBetweenLooks);
  again_.start();
  for (auto* timer : {&soon_, &again_}) connect(timer, &QTimer::timeout, this, &MapPage::Follow);
  connect(map_, &MapView::ActivationChosen, this, [this](const QString& id) {
    Select(id.toLongLong());
    doors_.Selected(selected_);
  });
  const auto look = [this] {
    if (!soon_.isActive()) soon_.start();
  };
  watches_.push_back(doors_.Keeper.Changed.WhenRaised(look));
  watches_.push_back(doors_.Around.Changed.WhenRaised(look));
}

QWidget* MapPage::MakeWithoutPlace() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  auto* words = MakeWords("mapWithoutPlace");
  words->setText("The map is drawn around your place, which is not set.");
  words->setAlignment(Qt::AlignCenter);
  auto* open = MakeButton("mapSetPlace", "&Set my place...", "Opens the tab Places and log");
  column->addStretch();
  column->addWidget(words);
  column->addWidget(open, 0, Qt::AlignHCenter);
  column->addStretch();
  connect(open, &QPushButton::clicked, this, [this] { doors_.OpenPlaces(); });
  return page;
}

void MapPage::Select(RowNumber row) {
  selected_ = row;
  Follow();
}

void MapPage::Follow() {
  if (!isVisible()) return;
  const auto map = MapOf(doors_.Keeper.Board(), doors_.Around, doors_.UTCNow(), selected_);
  stack_->setCurrentIndex(map ? 0 : 1);
  words_->setVisible(map.has_value());
  if (!map) return;
  map_->Show(map->Contents);
  words_->setText(WordsOf(*map));
}

void MapPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Follow();
}

}  // namespace brelwin
