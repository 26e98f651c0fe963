#include "cycle/main_window.h"

#include "core/data_files.h"
#include "cycle/check_cycle.h"
#include "cycle/entry.h"

namespace brelwin {

MainWindow::MainWindow(Host& host)
    : World(host),
      Commands(host, CommandMemory(host, InProgramFolder(host, "Brelwin.INI"),
                                   [this] { return SettingsFile.PrepareFile(); })),
      TickDriver(host.Time, host.Events, Controls.tmrCheckSpots,
                 [this] { Enter(*this, [this] { tmrCheckSpots_Timer(*this); }); }) {
  // Shown only while they are true.
  Controls.Spots.picDownload.Visible = false;
  Controls.Spots.lblCheckingForSpots.Visible = false;
  Controls.Spots.lblNoConnectionToTwitter.Visible = false;
  Controls.Spots.lblNoSotawatchConnection.Visible = false;
  Controls.Spots.lblNoConnectionToRBN.Visible = false;
  Controls.Spots.lblSpotsHidden.Visible = false;
}

}  // namespace brelwin
