// The Websites and files tab.
#pragma once

#include "controls/files_tab.h"

class QWidget;

namespace brelwin {

QWidget* MakeFilesPage(FilesTab& controls);

}  // namespace brelwin
