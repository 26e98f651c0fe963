// The Websites and files tab.
#pragma once

#include "controls/screen.h"

class QWidget;

namespace brelwin {

QWidget* MakeFilesPage(FilesTab& controls);

}  // namespace brelwin
