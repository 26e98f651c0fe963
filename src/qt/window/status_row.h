// The row under the tabs: what the program is doing, whether it reaches the network, the time, and the Save
// button.
#pragma once

class QWidget;

namespace brelwin {

QWidget* MakeStatusRow();

}  // namespace brelwin
