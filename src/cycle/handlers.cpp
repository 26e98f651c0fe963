#include "cycle/handlers.h"

#include <functional>
#include <string>

#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/program_path.h"
#include "core/trap.h"
#include "cycle/callsign_lists.h"
#include "cycle/check_cycle.h"
#include "cycle/entry.h"
#include "cycle/settings_handlers.h"
#include "cycle/sotawatch_spots.h"
#include "cycle/source_status.h"
#include "cycle/spot_details.h"
#include "cycle/spots_source.h"
#include "cycle/streams.h"
#include "gateway/tab_rules.h"
#include "radio/web_address.h"
#include "rbn/stream.h"
#include "ui/alerting.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

using Procedure = void (*)(MainWindow&);

// A handler that only looks at things.
auto Handler(MainWindow& window, std::function<void()> body) {
  return [&window, body = std::move(body)] {
    if (window.FormLoading || window.World.ShuttingDown) return;
    Enter(window, [&] { TrapErrorsSilently(body); });
  };
}

// A box is not ticked while its click cannot be acted on.
auto BoxHandler(MainWindow& window, CheckBox& box, std::function<void()> body) {
  return [&window, &box, handler = Handler(window, std::move(body))] {
    if (window.FormLoading || window.World.ShuttingDown) box.Value = !box.Value;
    handler();
  };
}

// A handler that starts work.
auto WorkHandler(MainWindow& window, Procedure procedure) {
  return Handler(window, [&window, procedure] {
    if (!window.World.FetchInProgress) procedure(window);
  });
}

void ViewFile(MainWindow& window, const std::string& path) {
  if (FileExists(window.World, path)) {
    ViewTextFile(window.World, path);
  } else {
    window.World.Messages.ShowMessage("The file " + path + " does not exist.", "View File",
                                      MessageIcon::Information);
  }
}

void ConnectViewer(MainWindow& window, Button& button, std::string_view fileName) {
  button.Click = Handler(window, [&window, name = std::string(fileName)] {
    ViewFile(window, InProgramFolder(window.World, name));
  });
}

void ConnectLogViewer(MainWindow& window, Button& button, const TextBox& path) {
  button.Click = Handler(window, [&window, &path] {
    const auto name = FullLogName(window.World, path.Text.Get());
    if (!name.empty()) ViewFile(window, name);
  });
}

void ConnectViewers(MainWindow& window) {
  auto& screen = window.Controls;
  ConnectViewer(window, screen.RBN.cmdViewKnownActivators, KnownActivatorsFile);
  ConnectViewer(window, screen.RBN.cmdViewAlerts, AlertsFile);
  ConnectViewer(window, screen.Gateway.cmdViewGatewaySpotLog, GatewaySpotLogFile);
  ConnectViewer(window, screen.Gateway.cmdViewGatewayServerResponseLog, GatewayServerResponseLogFile);
  ConnectViewer(window, screen.Gateway.cmdViewExcludedActivators, ExcludedActivatorsFile);
  ConnectViewer(window, screen.Files.cmdViewEventLog, EventLogFile);
  ConnectViewer(window, screen.Files.cmdViewRawSpots, RawSpotsFile);
  ConnectViewer(window, screen.Files.cmdViewSpotsRSS, FeedCopyFile);
  ConnectViewer(window, screen.Files.cmdViewTrustedSpotters, TrustedSpottersFile);
  ConnectLogViewer(window, screen.Logs.cmdViewLogFile1, screen.Logs.txtLogFile1);
  ConnectLogViewer(window, screen.Logs.cmdViewLogFile2, screen.Logs.txtLogFile2);
  screen.About.cmdViewUserGuide.Click = Handler(
      window, [&window] { OpenDocument(window.World, InProgramFolder(window.World, UserGuideFile)); });
}

// The summit's page when the spot has a summit, else the operator's.
void OpenSpotPage(MainWindow& window, const Spot& spot) {
  const auto& addresses = window.Config.Addresses;
  const auto summit = Trim(spot.SummitDesignator);
  const auto address = summit.empty()
                           ? Replace(addresses.Callsign, "ZZZZ", URLEncode(spot.stationBaseCallsign))
                           : Replace(addresses.Summit, "ZZZZ", URLEncode(summit));
  OpenDocument(window.World, address);
}

void OpenWebsite(MainWindow& window, const Website& website) {
  OpenDocument(window.World, AddressToOpen(window.World, website.Address));
}

CallsignCollection& ListNamed(MainWindow& window, CallsignListName name) {
  switch (name) {
    case CallsignListName::Known: return window.KnownActivators;
    case CallsignListName::Excluded: return window.ExcludedActivators;
    case CallsignListName::Trusted: break;
  }
  return window.TrustedSpotters;
}

void AddToList(MainWindow& window, CallsignListName name, const Spot& spot) {
  window.Controls.Spots.lblStatus.Caption = AddCallsign(window.World, name, ListNamed(window, name), spot);
}

void ConnectDocuments(MainWindow& window) {
  auto& screen = window.Controls;
  screen.Spots.txtSPOTList.DoubleClick = [&window](const Spot& spot) {
    Handler(window, [&] { OpenSpotPage(window, spot); })();
  };
  screen.Spots.txtSPOTList.Select = [&window](const Spot& spot) {
    Handler(window, [&] { window.Controls.Spots.lblSpotDetails.Caption = SpotDetails(window, spot); })();
  };
  screen.Spots.txtSPOTList.AddToList = [&window](CallsignListName name, const Spot& spot) {
    Handler(window, [&] { AddToList(window, name, spot); })();
  };
  screen.Files.lstWebsites.DoubleClick = [&window](std::size_t index) {
    Handler(window, [&window, index] {
      if (index < window.Websites.size()) OpenWebsite(window, window.Websites[index]);
    })();
  };
}

void SwitchFeed(MainWindow& window) {
  window.TwitterSinceID.clear();
  window.Controls.Spots.lblNoConnectionToTwitter.Visible = false;
  ShowSettingsNotice(window);
}

// Treats the newest spot of the list as newly received, with the test switches of the settings file.
void cmdTest_Click(MainWindow& window) {
  SpotCollection newest = window.SpotList;
  newest.Trim(1);
  SpotFilter filter;
  FillFilterFromScreen(window.Controls, window.Config, filter);
  AlertOnNewSpots(window.World, newest, filter, window.SpotList, &window.Config.Test, &window.Controls.Window,
                  true);
}

void ConnectWork(MainWindow& window) {
  auto& screen = window.Controls;
  screen.Spots.cmdGetSPOTS.Click = WorkHandler(window, CheckForSpots);
  screen.Spots.cmdReloadSpotList.Click = WorkHandler(window, ReloadSpotList);
  screen.Spots.cmdTest.Click = WorkHandler(window, cmdTest_Click);
  auto& viaRSS = screen.Spots.chkSOTAWatchSpotsViaRSS;
  viaRSS.Click = BoxHandler(window, viaRSS, [&window] { SwitchFeed(window); });
  auto& service = screen.Spots.chkSotawatchJSONService;
  service.Click = BoxHandler(window, service, [&window] { chkSotawatchJSONService_Click(window); });
}

void ConnectSettings(MainWindow& window) {
  auto& screen = window.Controls;
  const auto handle = [&window](Procedure procedure) {
    return Handler(window, [&window, procedure] { procedure(window); });
  };
  screen.Spots.txtSecondsBetweenChecks.LostFocus = handle(txtSecondsBetweenChecks_LostFocus);
  screen.Spots.txtMaximumSpotsInList.LostFocus = handle(txtMaximumSpotsInList_LostFocus);
  screen.RBN.txtDuplicateSpotFilteringPeriod.LostFocus = handle(txtDuplicateSpotFilteringPeriod_LostFocus);
  screen.Gateway.txtSpotCommentTemplate.LostFocus = handle(txtSpotCommentTemplate_LostFocus);
  screen.Files.cmdSaveSettings.Click = handle(cmdSaveSettings_Click);
  screen.Filters.cmdPlayAlertSound.Click =
      Handler(window, [&window] { cmdPlayAlertSound_Click(window.World, window.Controls.Filters); });
  screen.Gateway.cmdPlayGatewaySound.Click =
      Handler(window, [&window] { cmdPlayGatewaySound_Click(window.World, window.Controls.Gateway); });
}

// Alerts that are not wanted are not missed.
void ForgetAlertsConnection(MainWindow& window) {
  if (!window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value)
    window.Controls.Spots.lblNoSotawatchConnection.Visible = false;
}

void ConnectStream(MainWindow& window) {
  auto& enabled = window.Controls.RBN.chkReverseBeaconSpotsEnabled;
  enabled.Click = BoxHandler(window, enabled, [&window] {
    for (auto* stream : StreamsOf(window)) chkReverseBeaconSpotsEnabled_Click(*stream);
  });
  window.Watches.push_back(enabled.Value.WhenChanged([&window] { ForgetAlertsConnection(window); }));
  for (auto* stream : {&window.RBN, &window.RBN2})
    window.Watches.push_back(stream->StatusChanged.WhenRaised([&window] { ShowStreamStage(window); }));
}

void SwitchGatewayForAll(MainWindow& window) {
  auto& tab = window.Controls.Gateway;
  chkRBNSendAllSpotsToSotawatch_Click(window.World, tab);
  ShowCaption(window);
}

// While a spot is being sent the test is refused in words, whatever else is going on.
void TestLoginUnlessFetching(MainWindow& window) {
  if (window.World.FetchInProgress && !window.SpotGateway.Transfer.SendInProgress()) return;
  cmdTestSotawatchLogin_Click(window.SpotGateway);
}

void ConnectGateway(MainWindow& window) {
  auto& tab = window.Controls.Gateway;
  auto& all = tab.chkRBNSendAllSpotsToSotawatch;
  auto& mine = tab.chkRBNSendMySpotsToSotawatch;
  all.Click = BoxHandler(window, all, [&window] { SwitchGatewayForAll(window); });
  mine.Click = BoxHandler(
      window, mine, [&window] { chkRBNSendMySpotsToSotawatch_Click(window.World, window.Controls.Gateway); });
  tab.cmdTestSotawatchLogin.Click = Handler(window, [&window] { TestLoginUnlessFetching(window); });
}

}  // namespace

void ConnectHandlers(MainWindow& window) {
  window.OnTick = [&window] { Enter(window, [&window] { tmrCheckSpots_Timer(window); }); };
  ConnectWork(window);
  ConnectSettings(window);
  ConnectViewers(window);
  ConnectDocuments(window);
  ConnectStream(window);
  ConnectGateway(window);
}

}  // namespace brelwin
