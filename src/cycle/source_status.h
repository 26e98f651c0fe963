// What the three sources of spots and alerts are doing, in words for the status line.
#pragma once

#include "cycle/main_window.h"

namespace brelwin {

// Says for Sotawatch, the alerts and the Reverse Beacon Network what each is doing, since when, and how much
// it has brought. With it go the words on what the filter hides and on the settings file.
void ShowSourceStatus(MainWindow& window);

// Says what the user should know of the settings file; nothing when that is mended.
void ShowSettingsNotice(MainWindow& window);

// Shows the window's title as it is to be now.
void ShowCaption(MainWindow& window);

// Says what the stream has begun to do, and shows the status line anew.
void ShowStreamStage(MainWindow& window);

// Sets the label of the present UTC time.
void ShowUTCTime(MainWindow& window);

}  // namespace brelwin
