#include "qt/window/pages.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "qt/window/page_parts.h"
#include "qt/window/window_dialogs.h"

namespace brelwin {
namespace {

constexpr TextRow FilterLists[] = {
    {"txtFilterStation", "St&ation", "Base callsigns of activators, such as W6*,K6ABC."},
    {"txtFilterSummitReference", "Summit &reference", "Summit references, such as W6/CT-001,G/LD*."},
    {"txtFilterPoints", "P&oints",
     "Points of the summit, such as 8,10. The RSS and Twitter feeds give no points and "
     "skimmer spots have them only with an alert: add 0 to the list for spots without known points, or they "
     "all fail."},
    {"txtFilterBand", "&Band", "Bands by their lower edge in MHz, such as 7,14,144."},
    {"txtFilterMode", "&Mode", "Modes, such as CW,SSB."},
    {"txtFilterSpotter", "Spo&tter", "Base callsigns of spotters, such as K6*,W1AW."},
};

struct SoundOption {
  const char* Name;
  const char* Caption;
};

constexpr SoundOption SoundOptions[] = {
    {"optPlaySoundWhen0", "ne&ver"},
    {"optPlaySoundWhen1", "for the first spot of a s&ummit"},
    {"optPlaySoundWhen2", "for the &first spot of a station on a summit"},
    {"optPlaySoundWhen3", "also when a station there comes to a new ban&d"},
    {"optPlaySoundWhen4", "also for a new mod&e"},
    {"optPlaySoundWhen5", "also for a new fre&quency"},
    {"optPlaySoundWhen6", "for ever&y spot"},
};

constexpr TextRow AlertSound{"txtAlertSound", "Sou&nd file",
                             "Wave file; a name without a folder is looked up in the program's folder"};

QGroupBox* MakeFilters() {
  auto* frame = MakeFrame("", "Filters for spots");
  auto* form = new QFormLayout(frame);
  for (const auto& list : FilterLists)
    AddTextRow(*form, list)->setToolTip(QString(list.Tip) + "\n" + FilterListTip);
  form->addRow(MakeCheckBox("chkFilterSpotDisplay", "F&ilter the list of spots",
                            "Only spots that pass all of these filters are shown"));
  form->addRow(MakeCheckBox("chkFilterAlertSounds", "Filter the alert sounds",
                            "Only spots that pass all of these filters, and the sources, are sounded"));
  return frame;
}

QGroupBox* MakeSoundOptions() {
  auto* frame = MakeFrame("", "Play the alert sound");
  auto* column = new QVBoxLayout(frame);
  for (const auto& option : SoundOptions) column->addWidget(MakeOption(option.Name, option.Caption));
  return frame;
}

QGroupBox* MakeSound(FiltersTab& controls) {
  auto* frame = MakeFrame("", "Alert sound");
  auto* form = new QFormLayout(frame);
  auto* choose = MakeButton("", "&Choose...", "Choose a wave file");
  auto* play = MakeButton("cmdPlayAlertSound", "&Play", "Play the alert sound");
  AddTextRow(*form, AlertSound, {choose, play});
  PickSoundFile(*choose, controls.txtAlertSound);
  form->addRow(MakeCheckBox("chkAlertSoundsOnStartup", "Sound a&lso at start-up",
                            "Also when the list is loaded for the first time"));
  form->addRow(MakeCheckBox("chkShowWindowOnAlert", "Bring the &window back with the sound",
                            "A minimised window is shown again when the alert sound plays"));
  return frame;
}

QGroupBox* MakeSources() {
  const char* tip = "Used when the alert sounds are filtered";
  auto* frame = MakeFrame("", "Sound for spots from");
  auto* column = new QVBoxLayout(frame);
  column->addWidget(MakeCheckBox("chkAlertSpotSourceSotawatch", "Sotawatc&h", tip));
  column->addWidget(
      MakeCheckBox("chkAlertSpotSourceRBNMatched", "Reverse Beacon Network, matched to an alert", tip));
  column->addWidget(
      MakeCheckBox("chkAlertSpotSourceRBNUnmatched", "Reverse Beacon Network, without an alert", tip));
  return frame;
}

}  // namespace

QWidget* MakeFiltersPage(FiltersTab& controls) {
  auto* filters = MakeFilters();
  auto* options = MakeSoundOptions();
  auto* sound = MakeSound(controls);
  auto* sources = MakeSources();
  return MakePage({MakeColumn({filters, sources}), MakeColumn({options, sound})});
}

}  // namespace brelwin
