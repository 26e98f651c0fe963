// The list of the window: putting 10,000 lines into it, and adding 10 to them, until they are painted.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <span>

#include "made_spots.h"
#include "qt/window/spot_list_view.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t LineCount = 10'000;
constexpr std::size_t AddedLines = 10;
constexpr std::size_t Refreshes = 20;

// What the list shows at one moment after the other: each with ten new spots on top of the one before, ten
// old ones having left at the end.
const std::vector<SpotRows>& Moments() {
  static const auto moments = [] {
    SpotRows all;
    for (const auto& entry : MakeSpots(0, LineCount + Refreshes * AddedLines)) all.push_back(entry.Item);
    std::vector<SpotRows> made;
    for (std::size_t later = Refreshes + 1; later-- > 0;) {
      const auto shown = std::span(all).subspan(later * AddedLines, LineCount);
      made.emplace_back(shown.begin(), shown.end());
    }
    return made;
  }();
  return moments;
}

struct ListWindow {
  ListWindow() : Following(View.Follow(Control)) {
    View.resize(1200, 700);
    View.show();
    QCoreApplication::processEvents();
  }

  // As the program does it: cleared, events handled, set.
  void Show(const SpotRows& spots) {
    Control.Contents = std::string();
    QCoreApplication::processEvents();
    Control.Contents = spots;
    QCoreApplication::processEvents();
  }

  void Empty() {
    Control.Contents = std::string("Connecting...");
    QCoreApplication::processEvents();
  }

  ControlList Controls;
  SpotListBox Control{Controls, "txtSPOTList"};
  SpotListView View;
  Watch Following;
};

void PutLines(benchmark::State& state) {
  const auto& contents = Moments().front();
  ListWindow window;
  for (auto _ : state) {
    window.Show(contents);
    state.PauseTiming();
    window.Empty();
    state.ResumeTiming();
  }
}
BENCHMARK(PutLines)->Unit(benchmark::kMillisecond);

void AddLines(benchmark::State& state) {
  ListWindow window;
  std::size_t moment = Refreshes;
  for (auto _ : state) {
    if (moment == Refreshes) {
      state.PauseTiming();
      moment = 0;
      window.Show(Moments()[moment]);
      state.ResumeTiming();
    }
    window.Show(Moments()[++moment]);
  }
}
BENCHMARK(AddLines)->Unit(benchmark::kMillisecond);

// Painting the lines in view, the captions, the frame and the scroll bars, which no list can do without.
void PaintLines(benchmark::State& state) {
  ListWindow window;
  window.Show(Moments().front());
  const auto parts = window.View.findChildren<QWidget*>();
  for (auto _ : state) {
    window.View.update();
    for (auto* part : parts) part->update();
    QCoreApplication::processEvents();
  }
}
BENCHMARK(PaintLines)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
