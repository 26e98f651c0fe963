#include "cycle/handlers.h"

#include "cycle/check_cycle.h"
#include "cycle/documents.h"
#include "cycle/settings_handlers.h"
#include "cycle/shut_down.h"
#include "cycle/tick.h"
#include "gateway/tab_rules.h"
#include "rbn/stream.h"
#include "ui/alerting.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

void SwitchFeed(SpotSources& sources) {
  sources.TwitterSinceID.clear();
  sources.Tab.lblNoConnectionToTwitter.Visible = false;
  ShowSettingsNotice(sources.Tab.lblSettingsNotice, sources.SettingsFile);
}

// The alerts come from another place from here on, so they are due.
void chkSotawatchJSONService_Click(SpotSources& sources, Announcements& announced) {
  ShowWhichFeedsCount(sources.Tab);
  announced.LastRefreshTime.reset();
  ComplainOfMissingAddress(sources);
}

void ConnectFeeds(SpotSources& sources, Announcements& announced) {
  auto& ways = sources.Ways;
  auto& viaRSS = sources.Tab.chkSOTAWatchSpotsViaRSS;
  viaRSS.Click = ways.BoxHandler(viaRSS, [&sources] { SwitchFeed(sources); });
  auto& service = sources.Tab.chkSotawatchJSONService;
  service.Click =
      ways.BoxHandler(service, [&sources, &announced] { chkSotawatchJSONService_Click(sources, announced); });
}

// Treats the newest spot of the list as newly received, with the test switches of the settings file.
void cmdTest_Click(SpotLists& lists, const Screen& screen) {
  SpotCollection newest = lists.SpotList;
  newest.Trim(1);
  SpotFilter filter;
  FillFilterFromScreen(screen, lists.Config, filter);
  AlertOnNewSpots(lists.World, newest, filter, lists.SpotList, &lists.Config.Test, &lists.Window, true, {});
}

void ConnectCommands(MainWindow& window) {
  auto& ways = window.Ways;
  auto& tab = window.Controls.Spots;
  tab.cmdGetSPOTS.Click = ways.Command([&window] { CheckForSpots(window); });
  tab.cmdReloadSpotList.Click = ways.Command([&window] { ReloadSpotList(window); });
  tab.cmdTest.Click = ways.Command([&window] { cmdTest_Click(window.Lists, window.Controls); });
}

void ConnectSettings(MainWindow& window) {
  auto& host = window.World;
  auto& ways = window.Ways;
  auto& screen = window.Controls;
  screen.Spots.txtSecondsBetweenChecks.LostFocus =
      ways.Handler([&] { txtSecondsBetweenChecks_LostFocus(host, screen, window.Pace); });
  screen.Spots.txtMaximumSpotsInList.LostFocus =
      ways.Handler([&] { txtMaximumSpotsInList_LostFocus(window.Lists); });
  screen.RBN.txtDuplicateSpotFilteringPeriod.LostFocus =
      ways.Handler([&] { txtDuplicateSpotFilteringPeriod_LostFocus(host, screen.RBN); });
  screen.Gateway.txtSpotCommentTemplate.LostFocus =
      ways.Handler([&] { txtSpotCommentTemplate_LostFocus(host, screen.Gateway, window.TemplateLookedAt); });
  screen.Files.cmdSaveSettings.Click =
      ways.Handler([&] { cmdSaveSettings_Click(host, screen.Spots, window.SettingsFile, window.Streams); });
}

void ConnectSounds(Host& host, Screen& screen, Entries& ways) {
  screen.Filters.cmdPlayAlertSound.Click =
      ways.Handler([&] { cmdPlayAlertSound_Click(host, screen.Filters); });
  screen.Gateway.cmdPlayGatewaySound.Click =
      ways.Handler([&] { cmdPlayGatewaySound_Click(host, screen.Gateway); });
}

// Alerts that are not wanted are not missed.
void ForgetAlertsConnection(Screen& screen) {
  if (!screen.RBN.chkReverseBeaconSpotsEnabled.Value) screen.Spots.lblNoSotawatchConnection.Visible = false;
}

void ConnectStreams(SkimmerStreams& streams, const SourceStatus& status, Entries& ways,
                    std::vector<Watch>& watches) {
  auto& enabled = streams.Tab.chkReverseBeaconSpotsEnabled;
  enabled.Click = ways.BoxHandler(enabled, [&streams] {
    for (auto* stream : streams.InUse()) chkReverseBeaconSpotsEnabled_Click(*stream);
  });
  watches.push_back(enabled.Value.WhenChanged([&status] { ForgetAlertsConnection(status.Controls); }));
  for (auto* stream : {&streams.First, &streams.Second})
    watches.push_back(stream->StatusChanged.WhenRaised([&status] { ShowStreamStage(status); }));
}

// While a form is being submitted the test is refused in words; beside the reading of a page it is dropped.
void TestLogin(Gateway& gateway) {
  const auto& going = gateway.World.Going;
  if (going.LetStart(Work::LoginTest) || going.Includes(Activity::SendInProgress))
    cmdTestSotawatchLogin_Click(gateway);
}

void ConnectGateway(Gateway& gateway, const SourceStatus& status, Entries& ways) {
  auto& host = gateway.World;
  auto& tab = gateway.Tab;
  auto& all = tab.chkRBNSendAllSpotsToSotawatch;
  auto& mine = tab.chkRBNSendMySpotsToSotawatch;
  all.Click = ways.BoxHandler(all, [&host, &tab, &status] {
    chkRBNSendAllSpotsToSotawatch_Click(host, tab);
    ShowCaption(status);
  });
  mine.Click = ways.BoxHandler(mine, [&host, &tab] { chkRBNSendMySpotsToSotawatch_Click(host, tab); });
  tab.cmdTestSotawatchLogin.Click = ways.Handler([&gateway] { TestLogin(gateway); });
}

// The board hears at once what waits for the check.
void ConnectBoard(BoardKeeper& activations, SkimmerStreams& streams, Gateway& gateway) {
  for (auto* stream : {&streams.First, &streams.Second})
    stream->Listener = [&activations](std::string_view lines) { activations.Hear(lines); };
  gateway.Decided = [&activations](const Spot& spot, bool wasSent, std::string_view words) {
    activations.TakeDecision(spot, wasSent, words);
  };
}

}  // namespace

void ConnectHandlers(MainWindow& window) {
  auto& ways = window.Ways;
  auto& screen = window.Controls;
  ways.WhenNoneIsLeft = [&window] { UnloadWhenDue(window); };
  window.OnTick = [&window, &ways] { ways.Enter([&window] { tmrCheckSpots_Timer(window); }); };
  ConnectFeeds(window.Sources, window.Announced);
  ConnectCommands(window);
  ConnectSettings(window);
  ConnectSounds(window.World, screen, ways);
  ConnectViewers(window.World, screen, ways);
  ConnectLists(
      {window.World, screen, window.Config, window.Announced.Alerts, window.Callsigns, window.Websites},
      ways);
  ConnectStreams(window.Streams, window.Status, ways, window.Watches);
  ConnectGateway(window.SpotGateway, window.Status, ways);
  ConnectBoard(window.Activations, window.Streams, window.SpotGateway);
}

}  // namespace brelwin
