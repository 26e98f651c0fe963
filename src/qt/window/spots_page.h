// The Spots tab: the list, and how often and what the program looks for.
#pragma once

class QWidget;

namespace brelwin {

QWidget* MakeSpotsPage();

}  // namespace brelwin
