// The Logs tab: the two spot logs.
#pragma once

#include "controls/control.h"

namespace brelwin {

struct LogsTab {
  ControlList Controls;

  CheckBox chkEnableLogging1{Controls, "chkEnableLogging1"};
  TextBox txtLogFile1{Controls, "txtLogFile1"};
  Button cmdLogFile1{Controls, "cmdLogFile1"};  // the skin asks for a file name and sets the box
  OptionGroup optLogFormat1{Controls, "optLogFormat1", 4};
  CheckBox chkFilterLog1{Controls, "chkFilterLog1"};
  Button cmdViewLogFile1{Controls, "cmdViewLogFile1"};

  CheckBox chkEnableLogging2{Controls, "chkEnableLogging2"};
  TextBox txtLogFile2{Controls, "txtLogFile2"};
  Button cmdLogFile2{Controls, "cmdLogFile2"};
  OptionGroup optLogFormat2{Controls, "optLogFormat2", 4};
  CheckBox chkFilterLog2{Controls, "chkFilterLog2"};
  Button cmdViewLogFile2{Controls, "cmdViewLogFile2"};
};

}  // namespace brelwin
