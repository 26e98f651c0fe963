#include "cycle/spots_source.h"

#include <utility>

#include "core/data_files.h"
#include "core/event_log.h"
#include "core/ini_utilities.h"
#include "cycle/entry.h"
#include "radio/web_address.h"

namespace brelwin {
namespace {

// Kept at once, as what the user has said once he is not asked again.
void ConfirmTerms(MainWindow& window, const std::string& host) {
  window.Config.Addresses.SotawatchAPITermsConfirmed = host;
  LogEvent(window.World, "SotawatchAPI - The user has confirmed the terms of " + host);
  if (!window.SettingsFile.PrepareFile()) return;
  clsINIUtilities file(window.World);
  file.INIPath = InProgramFolder(window.World, "Brelwin.INI");
  file.WriteStringKey("General", "SotawatchAPITermsConfirmed", host);
}

void AskForTerms(MainWindow& window) {
  if (std::exchange(window.TermsAskedFor, true)) return;
  const auto& address = window.Config.Addresses.SotawatchAPI;
  window.World.Messages.Ask(TermsQuestion(address), "Brelwin", [&window, host = HostOfAddress(address)] {
    if (!window.World.ShuttingDown) Enter(window, [&] { ConfirmTerms(window, host); });
  });
}

}  // namespace

SpotSource SourceInUse(const MainWindow& window) {
  const auto& tab = window.Controls.Spots;
  if (tab.chkSotawatchJSONService.Value) return SpotSource::Service;
  return tab.chkSOTAWatchSpotsViaRSS.Value ? SpotSource::RSS : SpotSource::Twitter;
}

ServiceObstacle LookForObstacle(MainWindow& window) {
  const auto& addresses = window.Config.Addresses;
  const auto obstacle = ObstacleOfService(addresses.SotawatchAPI, addresses.SotawatchAPITermsConfirmed);
  if (obstacle == ServiceObstacle::TermsNotConfirmed) AskForTerms(window);
  return obstacle;
}

void chkSotawatchJSONService_Click(MainWindow& window) {
  ShowWhichFeedsCount(window);
  window.LastAlertsRefreshTime.reset();
  if (SourceInUse(window) != SpotSource::Service) return;
  if (LookForObstacle(window) != ServiceObstacle::NoAddress) return;
  window.World.Messages.ShowMessage(
      ObstacleInWords(ServiceObstacle::NoAddress, window.Config.Addresses.SotawatchAPI), "Brelwin",
      MessageIcon::Exclamation);
}

void ShowWhichFeedsCount(MainWindow& window) {
  auto& tab = window.Controls.Spots;
  tab.chkSOTAWatchSpotsViaRSS.Enabled = !tab.chkSotawatchJSONService.Value;
}

}  // namespace brelwin
