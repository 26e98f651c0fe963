#include "cycle/main_window.h"

#include "core/data_files.h"
#include "cycle/check_cycle.h"
#include "cycle/entry.h"

namespace brelwin {
namespace {

// This version sends nothing; what would switch the sending on must not pretend to.
void DisableGateway(GatewayTab& tab) {
  tab.lblGatewayState.Caption = std::string("This version does not send spots to Sotawatch yet.");
  for (auto* box :
       {&tab.chkRBNSendAllSpotsToSotawatch, &tab.chkRBNSendMySpotsToSotawatch, &tab.chkGatewayDryRun})
    box->Enabled = false;
  tab.cmdTestSotawatchLogin.Enabled = false;
}

}  // namespace

MainWindow::MainWindow(Host& host)
    : World(host),
      Commands(host, CommandMemory(host, InProgramFolder(host, "Brelwin.INI"),
                                   [this] { SettingsFile.SaveSettings(); })),
      TickDriver(host.Events, Controls.tmrCheckSpots,
                 [this] { Enter(*this, [this] { tmrCheckSpots_Timer(*this); }); }) {
  // Shown only while they are true.
  Controls.Spots.picDownload.Visible = false;
  Controls.Spots.lblCheckingForSpots.Visible = false;
  Controls.Spots.lblNoConnectionToTwitter.Visible = false;
  Controls.Spots.lblNoSotawatchConnection.Visible = false;
  Controls.Spots.lblNoConnectionToRBN.Visible = false;
  DisableGateway(Controls.Gateway);
}

}  // namespace brelwin
