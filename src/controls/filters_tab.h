// The Filters and sounds tab: which Sotawatch spots are shown, and when and how the program is heard.
#pragma once

#include "controls/control.h"

namespace brelwin {

struct FiltersTab {
  ControlList Controls;

  CheckBox chkFilterSpotDisplay{Controls, "chkFilterSpotDisplay"};
  CheckBox chkFilterAlertSounds{Controls, "chkFilterAlertSounds"};
  TextBox txtFilterStation{Controls, "txtFilterStation"};
  TextBox txtFilterSummitReference{Controls, "txtFilterSummitReference"};
  TextBox txtFilterPoints{Controls, "txtFilterPoints"};
  TextBox txtFilterBand{Controls, "txtFilterBand"};
  TextBox txtFilterMode{Controls, "txtFilterMode"};
  TextBox txtFilterSpotter{Controls, "txtFilterSpotter"};

  OptionGroup optPlaySoundWhen{Controls, "optPlaySoundWhen", 7};
  TextBox txtAlertSound{Controls, "txtAlertSound"};
  Button cmdPlayAlertSound{Controls, "cmdPlayAlertSound"};
  CheckBox chkAlertSoundsOnStartup{Controls, "chkAlertSoundsOnStartup"};
  CheckBox chkAlertSpotSourceSotawatch{Controls, "chkAlertSpotSourceSotawatch"};
  CheckBox chkAlertSpotSourceRBNMatched{Controls, "chkAlertSpotSourceRBNMatched"};
  CheckBox chkAlertSpotSourceRBNUnmatched{Controls, "chkAlertSpotSourceRBNUnmatched"};
  CheckBox chkShowWindowOnAlert{Controls, "chkShowWindowOnAlert"};
};

}  // namespace brelwin
