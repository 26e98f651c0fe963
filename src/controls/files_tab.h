// The Websites and files tab, and the About tab.
#pragma once

#include "controls/control.h"

namespace brelwin {

struct FilesTab {
  ControlList Controls;

  ListBox lstWebsites{Controls, "lstWebsites"};
  Button cmdOpenWebsite{Controls,
                        "cmdOpenWebsite"};  // the skin turns it into a double click on the chosen line
  Button cmdViewEventLog{Controls, "cmdViewEventLog"};
  Button cmdViewRawSpots{Controls, "cmdViewRawSpots"};
  Button cmdViewSpotsRSS{Controls, "cmdViewSpotsRSS"};
  Button cmdViewTrustedSpotters{Controls, "cmdViewTrustedSpotters"};
  Button cmdSaveSettings{Controls, "cmdSaveSettings"};
};

struct AboutTab {
  ControlList Controls;

  Label lblProgramTitle{Controls, "lblProgramTitle"};
  Button cmdViewUserGuide{Controls, "cmdViewUserGuide"};
};

}  // namespace brelwin
