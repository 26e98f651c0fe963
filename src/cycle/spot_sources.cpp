#include "cycle/spot_sources.h"

#include <utility>

#include "core/data_files.h"
#include "core/event_log.h"
#include "core/ini_utilities.h"
#include "radio/web_address.h"

namespace brelwin {
namespace {

// Kept at once, as what the user has said once he is not asked again.
void ConfirmTerms(SpotSources& sources, const std::string& host) {
  sources.Config.Addresses.SotawatchAPITermsConfirmed = host;
  LogEvent(sources.World, "SotawatchAPI - The user has confirmed the terms of " + host);
  if (!sources.SettingsFile.PrepareFile()) return;
  clsINIUtilities file(sources.World);
  file.INIPath = InProgramFolder(sources.World, "Brelwin.INI");
  file.WriteStringKey("General", "SotawatchAPITermsConfirmed", host);
}

void AskForTerms(SpotSources& sources) {
  if (std::exchange(sources.TermsAskedFor, true)) return;
  const auto& address = sources.Config.Addresses.SotawatchAPI;
  const auto confirm = [&sources, host = HostOfAddress(address)] {
    if (!sources.World.ShuttingDown) sources.Ways.Enter([&] { ConfirmTerms(sources, host); });
  };
  sources.World.Messages.Ask(TermsQuestion(address), "Brelwin", confirm);
}

}  // namespace

SpotSources::SpotSources(Host& host, SpotsTab& tab, Configuration& configuration, Settings& settings,
                         Entries& entries, ServiceSchedule::Random chance)
    : World(host),
      Tab(tab),
      Config(configuration),
      SettingsFile(settings),
      Ways(entries),
      Service(host, std::move(chance)) {}

SpotSource SourceInUse(const SpotSources& sources) {
  if (sources.Tab.chkSotawatchJSONService.Value) return SpotSource::Service;
  return sources.Tab.chkSOTAWatchSpotsViaRSS.Value ? SpotSource::RSS : SpotSource::Twitter;
}

ServiceObstacle LookForObstacle(SpotSources& sources) {
  const auto& addresses = sources.Config.Addresses;
  const auto obstacle = ObstacleOfService(addresses.SotawatchAPI, addresses.SotawatchAPITermsConfirmed);
  if (obstacle == ServiceObstacle::TermsNotConfirmed) AskForTerms(sources);
  return obstacle;
}

void ComplainOfMissingAddress(SpotSources& sources) {
  if (SourceInUse(sources) != SpotSource::Service) return;
  if (LookForObstacle(sources) != ServiceObstacle::NoAddress) return;
  sources.World.Messages.ShowMessage(
      ObstacleInWords(ServiceObstacle::NoAddress, sources.Config.Addresses.SotawatchAPI), "Brelwin",
      MessageIcon::Exclamation);
}

void ShowWhichFeedsCount(SpotsTab& tab) {
  tab.chkSOTAWatchSpotsViaRSS.Enabled = !tab.chkSotawatchJSONService.Value;
}

}  // namespace brelwin
