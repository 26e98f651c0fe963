#include "qt/window/pages.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/window/page_parts.h"
#include "qt/window/window_dialogs.h"

namespace brelwin {
namespace {

constexpr TextRow Login{"txtSotawatchLogin", "Sotawatch &login", "Your user name at Sotawatch"};
constexpr TextRow Password{"txtSotawatchPassword", "Sotawatch &password", "Your password at Sotawatch"};

constexpr TextRow Limits[] = {
    {"txtSotawatchDupeSpotMaxAgeInMinutes", "A spot is a &duplicate for",
     "Minutes for which a spot at Sotawatch counts; below 1: 30 minutes", "minutes"},
    {"txtGatewayDelayBeforeFinalDupeCheckAndSend", "&Wait before sending",
     "Seconds between the two checks for duplicates, in which somebody else may send the spot", "seconds"},
    {"txtGatewayMinimumSecondsBetweenSpotsOfSameStation", "Same station again &after",
     "Seconds between two spots of one station, at least 5", "seconds"},
};

constexpr TextRow Template{
    "txtSpotCommentTemplate", "&Comment",
    "Comment of the spots. XXX becomes the speed, YYY the signal-to-noise ratio in dB, ZZZ the skimmer."};
constexpr TextRow Sound{"txtGatewaySound", "Sound f&ile",
                        "Wave file; a name without a folder is looked up in the program's folder"};

QGroupBox* MakeSending() {
  auto* frame = MakeFrame("fraSendSpotsToSotawatch", "Send spots to Sotawatch");
  auto* form = new QFormLayout(frame);
  form->addRow(MakeWords("lblGatewayState"));
  form->addRow(MakeWords("lblGatewayAddressWarning"));
  AddTextRow(*form, Login);
  auto* test = MakeButton("cmdTestSotawatchLogin", "&Test login");
  AddTextRow(*form, Password, {test})->setEchoMode(QLineEdit::Password);
  form->addRow(MakeWords("lblGatewayLoginWarning"));
  form->addRow(
      MakeCheckBox("chkRBNSendMySpotsToSotawatch", "Enable Gateway: Only Send Alert-matched Spots of &Me"));
  form->addRow(
      MakeCheckBox("chkRBNSendAllSpotsToSotawatch", "Enable Gateway: Send Alert-matched Spots of &Everyone"));
  form->addRow(MakeCheckBox("chkGatewayDryRun", "Dry run: d&o everything but send",
                            "The journal shows what would have been sent"));
  for (const auto& row : Limits) AddTextRow(*form, row);
  AddTextRow(*form, Template);
  form->addRow(MakeWords("lblGatewayTemplateWarning"));
  return frame;
}

QGroupBox* MakeSound(GatewayTab& controls) {
  auto* frame = MakeFrame("", "Gateway sound");
  auto* form = new QFormLayout(frame);
  auto* choose = MakeButton("", "C&hoose...", "Choose a wave file");
  auto* play = MakeButton("cmdPlayGatewaySound", "Pla&y", "Play the gateway sound");
  AddTextRow(*form, Sound, {choose, play});
  PickSoundFile(*choose, controls.txtGatewaySound);
  form->addRow(MakeCheckBox("chkGatewayPlaySoundSpotSentSuccessfully", "When a spot has been se&nt"));
  form->addRow(MakeCheckBox("chkGatewayPlaySoundSpotIsDupe", "When a spot is a d&uplicate"));
  return frame;
}

QLayout* MakeViewers() {
  auto* row = new QHBoxLayout;
  row->addWidget(MakeButton("cmdViewGatewaySpotLog", "&Gateway spot log"));
  row->addWidget(MakeButton("cmdViewGatewayServerResponseLog", "Server &response log"));
  row->addWidget(MakeButton("cmdViewExcludedActivators", "E&xcluded activators",
                            "Stations whose spots are never sent, one callsign a line"));
  row->addStretch();
  return row;
}

// Its lines have columns.
QListWidget* MakeJournal() {
  auto* journal = new QListWidget;
  journal->setObjectName("lstGatewayJournal");
  journal->setAccessibleName("Journal");
  journal->setToolTip("What was sent and what was refused, newest first");
  journal->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  journal->setAlternatingRowColors(true);
  journal->setWordWrap(true);  // reasons are longer than the room beside the settings
  journal->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  journal->setResizeMode(QListView::Adjust);
  return journal;
}

QGroupBox* MakeLogging() {
  auto* frame = MakeFrame("fraGatewayLogging", "Gateway logging");
  auto* journal = MakeJournal();
  auto* column = new QVBoxLayout(frame);
  column->addWidget(MakeWords("lblGatewayLastFailure"));
  column->addWidget(MakeCaption("&Journal", journal));
  column->addWidget(journal, 1);
  column->addLayout(MakeViewers());
  return frame;
}

}  // namespace

QWidget* MakeGatewayPage(GatewayTab& controls) {
  auto* sending = MakeSending();
  auto* sound = MakeSound(controls);
  auto* logging = MakeLogging();
  auto* right = MakeColumn({sound, logging});
  right->setStretchFactor(logging, 1);  // as much room as there is for the journal
  return MakePage({MakeColumn({sending}), right});
}

}  // namespace brelwin
