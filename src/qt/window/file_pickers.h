// Asking for a file name. The dialogs do not hold up the program behind them.
#pragma once

#include "controls/control.h"

class QAbstractButton;

namespace brelwin {

// Makes the button ask for a log file, which need not exist, and put its path into the box.
void PickLogFile(QAbstractButton& button, TextBox& box);

// The same for a wave file that exists.
void PickSoundFile(QAbstractButton& button, TextBox& box);

}  // namespace brelwin
