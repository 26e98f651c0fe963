#include "qt/window/pages.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/window/page_parts.h"

namespace brelwin {
namespace {

constexpr TextRow Callsign{"txtRBNCallsign", "&Login callsign", "Your callsign, sent to the server at login"};
constexpr TextRow Watchdog{"txtRBNMaxMinutesSinceLastRawSpotReceived", "Reconnect when &quiet for",
                           "Minutes without a spot after which the connection is made anew; 0: never",
                           "minutes"};
constexpr TextRow DuplicatePeriod{"txtDuplicateSpotFilteringPeriod", "Repeated wit&hin",
                                  "Minutes during which a spot counts as a repeat, at least 1", "minutes"};

constexpr TextRow FilterLists[] = {
    {"txtRBNFilterStation", "St&ation", "Base callsigns of activators, such as W6*,K6ABC."},
    {"txtRBNFilterBand", "&Band", "Bands by their lower edge in MHz, such as 7,14."},
    {"txtRBNFilterMode", "&Mode", "Modes, such as CW."},
    {"txtRBNFilterSpotter", "Skimm&ers", "Callsigns of skimmers that are listened to."},
    {"txtRBNFilterSpotterExclude", "E&xcept skimmers", "Callsigns of skimmers that are not listened to."},
};

constexpr TextRow Windows[] = {
    {"txtRBNMaxMinutesBeforeAlertTime", "Fr&om",
     "Minutes before the alert's time from which a spot matches it", "minutes before its time"},
    {"txtRBNMaxMinutesAfterAlertTime", "&Until",
     "Minutes after the alert's time until which a spot matches it", "minutes after its time"},
};

constexpr TextRow Intervals[] = {
    {"txtSOTAAlertsRefreshInterval", "&Refresh every", "Minutes between two reads of the alerts page",
     "minutes"},
    {"txtSOTAWatchAlertArchivingIntervalInHours", "Arch&ive every",
     "Hours between two archive copies of the alerts; 0: none", "hours"},
};

QGroupBox* MakeConnection() {
  auto* frame = MakeFrame("fraReverseBeaconNetwork", "Reverse Beacon Network");
  auto* form = new QFormLayout(frame);
  form->addRow(MakeCheckBox("chkReverseBeaconSpotsEnabled", "S&pots from the Reverse Beacon Network"));
  AddTextRow(*form, Callsign);
  form->addRow(MakeWords("lblRBNStatus"));
  form->addRow(MakeWords("lblRBNStatus2"));
  AddTextRow(*form, Watchdog);
  for (const auto& list : FilterLists)
    AddTextRow(*form, list)->setToolTip(QString(list.Tip) + "\n" + FilterListTip);
  form->addRow(MakeCheckBox("chkRBNFilterKnownActivators", "Only of &known activators",
                            "Stations in the list of known activators"));
  form->addRow(MakeCheckBox("chkRBNFilterDuplicateSpots", "&Drop repeated spots"));
  AddTextRow(*form, DuplicatePeriod);
  return frame;
}

QGroupBox* MakeMatching() {
  auto* frame = MakeFrame("", "Matching with alerts");
  auto* form = new QFormLayout(frame);
  form->addRow(MakeCheckBox("chkRBNFilterSotawatchMatchingAlert", "Only spots that match an aler&t",
                            "An announced activation of the station around this time"));
  for (const auto& row : Windows) AddTextRow(*form, row);
  form->addRow(MakeWords("lblUnmatchedSpot"));
  return frame;
}

QGroupBox* MakeAlerts() {
  auto* frame = MakeFrame("", "Alerts");
  auto* form = new QFormLayout(frame);
  for (const auto& row : Intervals) AddTextRow(*form, row);
  form->addRow(MakeWords("lblAnnouncements"));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(MakeButton("cmdViewAlerts", "&View alerts"));
  buttons->addWidget(MakeButton("cmdViewKnownActivators", "View known activators"));
  buttons->addStretch();
  form->addRow(buttons);
  return frame;
}

}  // namespace

QWidget* MakeRBNPage() {
  auto* connection = MakeConnection();
  auto* matching = MakeMatching();
  auto* alerts = MakeAlerts();
  return MakePage({MakeColumn({connection}), MakeColumn({matching, alerts})});
}

}  // namespace brelwin
