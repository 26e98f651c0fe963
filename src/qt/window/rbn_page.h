// The Reverse Beacon Network tab: the connection, which of its spots are of interest, and the alerts.
#pragma once

class QWidget;

namespace brelwin {

QWidget* MakeRBNPage();

}  // namespace brelwin
