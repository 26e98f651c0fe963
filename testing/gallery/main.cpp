// Paints every tab of the window, and the map from two centres, into picture files, so that people can look
// at them: in the light and the dark palette, at the scale that QT_SCALE_FACTOR sets.
//
// Usage: brelwin_window_gallery FOLDER
#include <QApplication>
#include <QPixmap>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTableView>
#include <cstdio>
#include <memory>

#include "board_day.h"
#include "qt/window/map_view.h"
#include "qt/window/program_window.h"
#include "radio/dates.h"
#include "spots/spot_text.h"

namespace {

using namespace brelwin;

QPalette DarkPalette() {
  QPalette palette(QColor(53, 53, 53), QColor(42, 42, 42));
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::AlternateBase, QColor(38, 38, 38));
  palette.setColor(QPalette::Highlight, QColor(42, 110, 180));
  return palette;
}

std::shared_ptr<Spot> MakeSpot(int number) {
  auto spot = std::make_shared<Spot>();
  spot->UTCTime = "12:" + std::to_string(10 + number % 50);
  spot->Station = number % 3 == 0 ? "OE/DL1ABC/P" : "W6XYZ/P";
  spot->SummitDesignator = number % 3 == 0 ? "OE/TI-123" : "W6/CT-0" + std::to_string(10 + number % 80);
  spot->SummitName = number % 2 == 0 ? "Große Klammspitze" : "Mount Wilson, San Gabriel Mountains";
  spot->SummitPoints = static_cast<std::int16_t>(1 + number % 10);
  spot->FormattedFrequencyString = number % 2 == 0 ? "14.0625" : "145.525";
  spot->ModeString = number % 2 == 0 ? "CW" : "FM";
  spot->OperatorName = "Wolfgang";
  spot->Comment = "CQ CQ now, then going to the next summit";
  spot->Spotter = "K6ABC";
  spot->IsMatchedToAlert = number % 7 == 2;
  return spot;
}

void Fill(Screen& screen) {
  SpotRows spots;
  for (int number = 0; number < 200; ++number) spots.push_back(MakeSpot(number));
  screen.Window.Caption = "Brelwin";
  screen.Spots.lblSpotListHeader.Caption = SpotListHeader();
  screen.Spots.txtSPOTList.Contents = spots;
  screen.Spots.lblUTCTime.Caption = "Current Time: 12:34 UTC";
  screen.Spots.lblStatus.Caption = "Sotawatch answered 200 OK";
  screen.Spots.lblSources.Caption = "Sotawatch: connected | Alerts: off | Reverse Beacon Network: off";
  screen.Spots.lblSpotDetails.Caption = "W6XYZ/P on W6/CT-011, 145.525 MHz FM: CQ CQ now [K6ABC]";
  screen.Spots.txtSecondsBetweenChecks.Text = "30";
  screen.Spots.txtMaximumSpotsInList.Text = "200";
  screen.Filters.txtAlertSound.Text = "chimes.wav";
  screen.Filters.txtFilterStation.Text = "W6*,K6ABC";
  screen.Gateway.lblGatewayState.Caption = "The gateway is off.";
  screen.Files.lstWebsites.Items =
      std::vector<std::string>{"Sotawatch", "SOTA Maps", "Reverse Beacon Network"};
  screen.About.lblProgramTitle.Caption = "Brelwin v1.0.0";
}

bool PaintTabs(ProgramWindow& window, const QString& prefix) {
  auto& tabs = *window.findChild<QTabWidget*>("SSTab1");
  bool done = true;
  for (int tab = 0; tab < tabs.count(); ++tab) {
    tabs.setCurrentIndex(tab);
    QApplication::processEvents();
    done = window.grab().save(prefix + QString::number(tab) + ".png") && done;
  }
  return done;
}

BoardDoors DoorsOf(test::TestHost& host, BoardKeeper& keeper) {
  const auto nothing = [](const std::string&) {};
  return {keeper, [&host] { return UTCNow(host.Time); }, test::AroundOnTheDay, nothing, nothing};
}

// As it is before anything is announced, with the Reverse Beacon Network off.
bool PaintEmptyBoard(const BoardDoors& doors, const QString& folder) {
  Screen screen;
  ProgramWindow window(
      screen, [] {}, doors);
  screen.Window.Show.Raise();
  QApplication::processEvents();
  return window.grab().save(folder + "/light-empty.png");
}

void ChooseFirst(ProgramWindow& window) {
  QApplication::processEvents();
  window.findChild<QTableView*>("board")->selectRow(0);
}

// In the evening of Europe: night, its edge and the other side of the earth are all in the picture.
MapContents MakeMap(GeoPoint center) {
  return {.Center = center,
          .UtcNow = ReadDateTime("2026-06-21 20:00:00").value_or(DateTime{}),
          .Activations = {{"1", {54.53, -3.02}, "●", "heard", "G4ABC/P on G/LD-003"},
                          {"2", {47.4, 11.3}, "◐", "spotted", "OE/DL1ABC/P on OE/TI-123"},
                          {"3", {47.1, 11.0}, "○", "due", "OE7XYZ on OE/TI-124"},
                          {"4", {39.6, -105.6}, "○", "due", "W0ABC on W0C/FR-001"},
                          {"5", {-43.6, 170.2}, "●", "heard", "ZL3ABC/P on ZL3/CB-001"},
                          {"6", {35.4, 138.7}, "◌", "quiet", "JA1ABC on JA/YN-001"}},
          .SelectedId = "1",
          .Skimmers = {{"RBN1AA", {51.2, 6.8}}, {"RBN2BB", {42.4, -71.1}}, {"RBN3CC", {-33.9, 151.2}}}};
}

bool PaintMap(const QString& file, GeoPoint center) {
  MapView map;
  map.resize(560, 560);
  map.Show(MakeMap(center));
  map.show();
  QApplication::processEvents();
  return map.grab().save(file);
}

bool PaintMaps(const QString& prefix) {
  const bool done = PaintMap(prefix + "map-40N-4W.png", {40, -4});
  return PaintMap(prefix + "map-wellington.png", {-41.3, 174.8}) && done;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  QApplication application(argumentCount, arguments);
  if (argumentCount != 2) {
    std::fprintf(stderr, "Usage: brelwin_window_gallery FOLDER\n");
    return 2;
  }
  Screen screen;
  test::TestHost host;
  BoardKeeper keeper(host.World);
  BoardKeeper nothing(host.World);
  test::TakeDay(host, keeper, 40);
  const QString folder = arguments[1];
  bool done = PaintEmptyBoard(DoorsOf(host, nothing), folder);
  ProgramWindow window(
      screen, [] {}, DoorsOf(host, keeper));
  Fill(screen);
  screen.Window.Show.Raise();
  ChooseFirst(window);
  done = PaintTabs(window, folder + "/light-") && done;
  done = PaintMaps(folder + "/light-") && done;
  QApplication::setPalette(DarkPalette());
  done = PaintTabs(window, folder + "/dark-") && done;
  done = PaintMaps(folder + "/dark-") && done;
  return done ? 0 : 1;
}
