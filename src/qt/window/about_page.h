// The About tab.
#pragma once

class QWidget;

namespace brelwin {

QWidget* MakeAboutPage();

}  // namespace brelwin
