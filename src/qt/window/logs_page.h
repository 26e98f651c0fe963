// The Logs tab: the two spot logs.
#pragma once

#include "controls/logs_tab.h"

class QWidget;

namespace brelwin {

QWidget* MakeLogsPage(LogsTab& controls);

}  // namespace brelwin
