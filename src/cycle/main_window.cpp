#include "cycle/main_window.h"

#include <random>

#include "core/data_files.h"
#include "core/file_names.h"

namespace brelwin {

namespace {

// What many programs do at the same moment they do not do together again.
ServiceSchedule::Random ChanceOf(const Host& host) {
  std::minstd_rand engine(
      static_cast<std::minstd_rand::result_type>(host.Time.Now().time_since_epoch().count()));
  return [engine]() mutable { return std::generate_canonical<double, 32>(engine); };
}

}  // namespace

MainWindow::MainWindow(Host& host)
    : World(host),
      Sources(host, Controls.Spots, Config, SettingsFile, Ways, ChanceOf(host)),
      Announced(host, Controls, Config,
                CommandMemory(host, InProgramFolder(host, SettingsIniFile),
                              [this] { return SettingsFile.PrepareFile(); }),
                ChanceOf(host)),
      Pace{.TickDriver =
               CheckTimerDriver(host.Time, host.Events, Controls.tmrCheckSpots, [this] { OnTick(); })} {
  // Shown only while they are true.
  Controls.Spots.picDownload.Visible = false;
  Controls.Spots.lblCheckingForSpots.Visible = false;
  Controls.Spots.lblNoConnectionToTwitter.Visible = false;
  Controls.Spots.lblNoSotawatchConnection.Visible = false;
  Controls.Spots.lblNoConnectionToRBN.Visible = false;
  Controls.Spots.lblSpotsHidden.Visible = false;
  Controls.Spots.lblNoConnectionToRBN2.Visible = false;
}

}  // namespace brelwin
