// The Logs tab: the two spot logs.
#pragma once

#include "controls/screen.h"

class QWidget;

namespace brelwin {

QWidget* MakeLogsPage(LogsTab& controls);

}  // namespace brelwin
