// What the three sources of spots and alerts are doing, in words for the status line, and the titles that say
// it in short.
#pragma once

#include <string>

#include "controls/screen.h"
#include "cycle/alerts_refresh.h"
#include "cycle/skimmer_spots.h"
#include "cycle/spot_lists.h"
#include "cycle/spot_sources.h"
#include "cycle/timers.h"
#include "settings/settings.h"

namespace brelwin {

// What is looked at; it is shown on the screen.
struct SourceStatus {
  Screen& Controls;
  const Clock& Time;
  const SpotSources& Sources;
  const Announcements& Announced;
  const SkimmerStreams& Streams;
  const CheckPace& Pace;
};

// Says for Sotawatch, the alerts and the Reverse Beacon Network what each is doing, since when, and how much
// it has brought.
void ShowSources(const SourceStatus& status);

// Says what the streams have begun to do.
void ShowStreamStage(const SourceStatus& status);

// Shows the window's title as it is to be: it says so while the gateway is on, and while the service is gone
// from which the spots or alerts are to come.
void ShowCaption(const SourceStatus& status);

// Says what the user should know of the settings file; nothing when that is mended.
void ShowSettingsNotice(Label& notice, Settings& settings);

// Sets the label of the present UTC time.
void ShowUTCTime(Label& label, const Clock& time);

// Name and version.
std::string ProgramTitle();

}  // namespace brelwin
