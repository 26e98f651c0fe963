// The board in the window with 10,000 rows: sorting, searching and following it, each until it is painted. A
// frame has 16 ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>

#include "board_day.h"
#include "qt/window/board_page.h"

namespace brelwin::benchmarks {
namespace {

constexpr int RowCount = 10'000;

struct BoardWindow {
  BoardWindow() {
    test::TakeDay(Host, Keeper, RowCount);
    Page.resize(1200, 700);
    Page.show();
    QCoreApplication::processEvents();
  }

  void Paint() { Table->viewport()->repaint(); }

  test::TestHost Host;
  BoardKeeper Keeper{Host.World};
  Screen Controls;
  BoardPage Page{Controls,
                 {Keeper.Board(), Keeper.Changed, [this] { return UTCNow(Host.Time); }, test::AroundOnTheDay,
                  [](const std::string&) {}, [](const std::string&) {}}};
  BoardTable* Table = Page.findChild<BoardTable*>("board");
  QLineEdit* Search = Page.findChild<QLineEdit*>("boardSearch");
};

void SortBoard(benchmark::State& state) {
  BoardWindow window;
  const std::array<std::string, 3> sortings{"sorted by Name", "sorted down by Distance", "sorted by Window"};
  std::size_t turn = 0;
  for ([[maybe_unused]] auto once : state) {
    window.Controls.Window.BoardColumns.Text = sortings[turn++ % sortings.size()];
    window.Paint();
  }
  window.Controls.Window.BoardColumns.Text = std::string();
}
BENCHMARK(SortBoard)->Unit(benchmark::kMillisecond);

void SearchBoard(benchmark::State& state) {
  BoardWindow window;
  const std::array<const char*, 4> texts{"m", "m1", "m1a gw/nw", ""};
  std::size_t turn = 0;
  for ([[maybe_unused]] auto once : state) {
    window.Search->setText(texts[turn++ % texts.size()]);
    window.Paint();
  }
  window.Search->clear();
}
BENCHMARK(SearchBoard)->Unit(benchmark::kMillisecond);

void FollowBoard(benchmark::State& state) {
  BoardWindow window;
  int number = 100;
  for ([[maybe_unused]] auto once : state) {
    window.Keeper.Take(test::HeardOnTheDay(number++ % RowCount, test::LookMinute, 14.062F));
    window.Page.Follow();
    window.Paint();
  }
}
BENCHMARK(FollowBoard)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
