#include "qt/window/pages.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "qt/window/page_parts.h"
#include "qt/window/window_dialogs.h"

namespace brelwin {
namespace {

struct Option {
  const char* Name;
  const char* Caption;
};

// What one log's frame holds; the two differ in names and mnemonics only.
struct LogFrame {
  const char* Caption;
  Option Enable;
  TextRow File;
  Option Choose;
  Option Formats[4];
  Option Filter;
  Option View;
};

constexpr const char* FileTip =
    "Spots are added at its end; a name without a folder is in the program's folder";

constexpr LogFrame Log1{
    "Log 1",
    {"chkEnableLogging1", "&Write spots to this log"},
    {"txtLogFile1", "&File", FileTip},
    {"cmdLogFile1", "&Choose..."},
    {{"optLogFormat10", "&Text in columns, as in the list"},
     {"optLogFormat11", "Values separated by co&mmas"},
     {"optLogFormat12", "Values separated by ta&bs"},
     {"optLogFormat13", "Values se&parated by bars |"}},
    {"chkFilterLog1", "&Only spots that pass the filters"},
    {"cmdViewLogFile1", "&View log"},
};

constexpr LogFrame Log2{
    "Log 2",
    {"chkEnableLogging2", "W&rite spots to this log"},
    {"txtLogFile2", "F&ile", FileTip},
    {"cmdLogFile2", "C&hoose..."},
    {{"optLogFormat20", "T&ext in columns, as in the list"},
     {"optLogFormat21", "Values separated by comm&as"},
     {"optLogFormat22", "Values separated b&y tabs"},
     {"optLogFormat23", "Val&ues separated by bars |"}},
    {"chkFilterLog2", "O&nly spots that pass the filters"},
    {"cmdViewLogFile2", "View &log"},
};

QGroupBox* MakeLog(const LogFrame& log, TextBox& path) {
  auto* frame = MakeFrame("", log.Caption);
  auto* form = new QFormLayout(frame);
  form->addRow(MakeCheckBox(log.Enable.Name, log.Enable.Caption));
  auto* choose = MakeButton(log.Choose.Name, log.Choose.Caption, "Choose a log file");
  auto* view = MakeButton(log.View.Name, log.View.Caption, "Show the log in the text viewer");
  AddTextRow(*form, log.File, {choose, view});
  PickLogFile(*choose, path);
  for (const auto& format : log.Formats) form->addRow(MakeOption(format.Name, format.Caption));
  form->addRow(
      MakeCheckBox(log.Filter.Name, log.Filter.Caption, "The filters of the Filters and sounds tab"));
  return frame;
}

}  // namespace

QWidget* MakeLogsPage(LogsTab& controls) {
  auto* first = MakeLog(Log1, controls.txtLogFile1);
  auto* second = MakeLog(Log2, controls.txtLogFile2);
  return MakePage({MakeColumn({first, second})});
}

}  // namespace brelwin
