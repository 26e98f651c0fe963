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
#include "qt/window/bands_box.h"
#include "qt/window/map_page.h"
#include "qt/window/map_view.h"
#include "qt/window/pages.h"
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
  return {keeper.Board(),       keeper.Changed, [&host] { return UTCNow(host.Time); },
          test::AroundOnTheDay, nothing,        nothing};
}

// As it is before anything is announced, with the Reverse Beacon Network off.
bool PaintEmptyBoard(test::TestHost& host, BoardKeeper& keeper, const QString& folder) {
  Screen screen;
  Surroundings around(host.World, screen.Places);
  ProgramWindow window(
      screen, [] {}, ActivationDoors{DoorsOf(host, keeper), keeper, around, host.World});
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

// What the user would have imported and named, for the activations of the day.
void FillPlaces(test::TestHost& host, Screen& screen, Surroundings& around, BoardKeeper& keeper) {
  std::string summits = "SummitCode,SummitName,Longitude,Latitude,Points,ActivationCount\n";
  for (const auto& [number, row] : keeper.Board().Rows())
    summits += row.Who.Summit + ",," + std::to_string(-4.5 + static_cast<double>(number % 7) * 0.3) + "," +
               std::to_string(51.5 + static_cast<double>(number % 11) * 0.2) + ",4,12\n";
  summits += "OE/TI-123,,11.2,47.1,8,40\nW6/CT-011,,-118.1,34.2,6,9\nHB/VS-077,,7.5,46.1,10,5\n";
  host.Disk.Put("/summitslist.csv", summits);
  host.Disk.Put(
      "/cty.dat",
      "Germany: 14: 28: EU: 51.0: -10.0: -1.0: DL:\n DK;\nUnited States: 5: 8: NA: 37.6: 91.9: 5.0: "
      "K:\n W;\nEngland: 14: 27: EU: 52.8: 1.5: 0.0: G:\n G;\nFinland: 15: 18: EU: 63.8: -27.0: "
      "-2.0: OH:\n OH;\nSpain: 14: 37: EU: 40.3: 4.0: -1.0: EA:\n EA;\nJapan: 25: 45: AS: 36.4: "
      "-138.4: -9.0: JA:\n JH;\n");
  host.Disk.Put("/log.csv", "V2,G4XYZ,,01/02/26,1012,14MHz,CW,G4ABC/P,G/LD-003\nV2,broken\n");
  screen.Places.txtMyPlace.Text = std::string("IN80dk");
  screen.Places.txtCountryFile.Text = std::string("/cty.dat");
  screen.Places.txtLogFilesToWatch.Text = std::string("/log.csv");
  around.Start(keeper.Board());
  around.ImportSummits("/summitslist.csv");
}

MapDoors MapDoorsOf(test::TestHost& host, BoardKeeper& keeper, Surroundings& around) {
  return {keeper, around, host.Store, [&host] { return UTCNow(host.Time); }, [](RowNumber) {}, [] {}};
}

bool Paint(QWidget& page, const QString& file) {
  page.resize(1000, 760);
  page.show();
  for (int i = 0; i < 60; ++i) QApplication::processEvents(QEventLoop::AllEvents, 10);
  return page.grab().save(file);
}

bool PaintPlaces(test::TestHost& host, Screen& screen, Surroundings& around, BoardKeeper& keeper,
                 const QString& prefix) {
  MapPage map(MapDoorsOf(host, keeper, around));
  bool done = Paint(map, prefix + "map-folded.png");
  map.Select(1);
  map.findChild<BandsBox*>()->Unfold(true);
  done = Paint(map, prefix + "map-bands.png") && done;
  const std::unique_ptr<QWidget> places(MakePlacesPage(screen.Places, [](const std::string&) {}));
  ControlBindings bindings(*places, [](QWidget&) {});
  bindings.Add(screen.Places.Controls);
  return Paint(*places, prefix + "places.png") && done;
}

bool PaintMaps(const QString& prefix) {
  const bool done = PaintMap(prefix + "map-40N-4W.png", {40, -4});
  return PaintMap(prefix + "map-wellington.png", {-41.3, 174.8}) && done;
}

}  // namespace

int main(int argumentCount, char** arguments) {  // NOLINT(bugprone-exception-escape): a tool may end by one
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
  bool done = PaintEmptyBoard(host, nothing, folder);
  Surroundings around(host.World, screen.Places);
  ProgramWindow window(
      screen, [] {}, ActivationDoors{DoorsOf(host, keeper), keeper, around, host.World});
  Fill(screen);
  screen.Window.Show.Raise();
  ChooseFirst(window);
  done = PaintTabs(window, folder + "/light-") && done;
  done = PaintMaps(folder + "/light-") && done;
  {
    MapPage withoutPlace(MapDoorsOf(host, keeper, around));
    done = Paint(withoutPlace, folder + "/light-map-without-place.png") && done;
  }
  FillPlaces(host, screen, around, keeper);
  keeper.Save();
  done = PaintPlaces(host, screen, around, keeper, folder + "/light-") && done;
  QApplication::setPalette(DarkPalette());
  done = PaintTabs(window, folder + "/dark-") && done;
  done = PaintMaps(folder + "/dark-") && done;
  done = PaintPlaces(host, screen, around, keeper, folder + "/dark-") && done;
  return done ? 0 : 1;
}
