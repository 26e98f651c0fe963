#include "qt/window/pages.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "qt/window/page_parts.h"
#include "qt/window/window_dialogs.h"

namespace brelwin {
namespace {

constexpr TextRow MyPlace{"txtMyPlace", "My &place",
                          "A locator, such as IN80dk, or latitude and longitude, such as 40.4, -3.7"};
constexpr TextRow Countries{"txtCountryFile", "Coun&try file",
                            "The file cty.dat that contest programs share; empty: that of hamradio-files"};
constexpr TextRow Logs{"txtLogFilesToWatch", "My &logs",
                       "ADIF or SOTA CSV files, with ; between; they are read again while they grow"};

QGroupBox* MakePlaces(PlacesTab& controls, std::function<void(const std::string&)> importSummits) {
  auto* frame = MakeFrame("", "Places");
  auto* form = new QFormLayout(frame);
  AddTextRow(*form, MyPlace);
  form->addRow("", MakeWords("lblMyPlace"));
  auto* import = MakeButton("cmdImportSummits", "&Import summit list...",
                            "The file summitslist.csv, as the SOTA database hands it out");
  PickFile(*import, {"Summit list", {"Summit lists (*.csv)", "All files (*)"}}, std::move(importSummits));
  auto* row = new QHBoxLayout;
  row->addWidget(import);
  row->addStretch();
  form->addRow("Summits", row);
  form->addRow("", MakeWords("lblSummits"));
  auto* choose = MakeButton("cmdCountryFile", "&Choose...", "Choose a country file");
  PickFile(*choose, {"Country file", {"Country files (*.dat)", "All files (*)"}},
           [&box = controls.txtCountryFile](const std::string& path) { box.Text = path; });
  AddTextRow(*form, Countries, {choose});
  form->addRow("", MakeWords("lblCountries"));
  return frame;
}

QGroupBox* MakeLog(PlacesTab& controls) {
  auto* frame = MakeFrame("", "My log");
  auto* form = new QFormLayout(frame);
  auto* add = MakeButton("cmdLogFilesToWatch", "A&dd...", "Choose a log that is to be watched as well");
  PickFile(*add, {"Log", {"Logs (*.adi *.adif *.csv)", "All files (*)"}},
           [&box = controls.txtLogFilesToWatch](const std::string& path) {
             box.Text = box.Text.Get().empty() ? path : box.Text.Get() + "; " + path;
           });
  AddTextRow(*form, Logs, {add});
  form->addRow("", MakeWords("lblLogFilesToWatch"));
  form->addRow(MakeCheckBox("chkAlarmOnlyNeeded", "Sound only for what I &need",
                            "A new spot sounds only when your log says that you need its summit"));
  return frame;
}

}  // namespace

QWidget* MakePlacesPage(PlacesTab& controls, std::function<void(const std::string& path)> importSummits) {
  return MakePage({MakeColumn({MakePlaces(controls, std::move(importSummits)), MakeLog(controls)})});
}

}  // namespace brelwin
