// The Map tab: the live activations around the user's place, and under it the bands over time.
#pragma once

#include <QStackedWidget>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

#include "around/surroundings.h"
#include "board/board_keeper.h"
#include "qt/window/map_view.h"

class QLabel;

namespace brelwin {

// What the page rests on, and what it asks of the window. All of it outlives the page.
struct MapDoors {
  BoardKeeper& Keeper;
  Surroundings& Around;
  ActivationStore& Store;
  std::function<DateTime()> UTCNow;
  std::function<void(RowNumber)> Selected;  // the user chose this activation on the map
  std::function<void()> OpenPlaces;         // the user wants to set his place
};

class MapPage final : public QWidget {
  Q_OBJECT

 public:
  explicit MapPage(MapDoors doors);

  // Marks this activation, such as the one that was chosen on the board; 0 for none.
  void Select(RowNumber row);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeWithoutPlace();
  void Follow();

  MapDoors doors_;
  QStackedWidget* stack_;
  MapView* map_;
  QLabel* words_;
  RowNumber selected_ = 0;
  QTimer soon_;   // many events are one look
  QTimer again_;  // the night moves, and states change by time alone
  std::vector<Watch> watches_;
};

}  // namespace brelwin
