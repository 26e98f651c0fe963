#include "cycle/start_up.h"

#include <string>

#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "core/version.h"
#include "cycle/callsign_lists.h"
#include "cycle/captions.h"
#include "cycle/command_line.h"
#include "cycle/settings_handlers.h"
#include "cycle/sotawatch_spots.h"
#include "cycle/source_status.h"
#include "cycle/spot_list_display.h"
#include "cycle/spots_source.h"
#include "cycle/streams.h"
#include "radio/dates.h"
#include "radio/numbers.h"
#include "rbn/stream.h"
#include "spots/spot_text.h"

namespace brelwin {
namespace {

constexpr int CountdownInterval = 100;  // milliseconds

void ShowAndLogError(MainWindow& window, const RuntimeError& error) {
  const auto number = std::to_string(error.Number);
  ShowInsteadOfSpots(window, "FormLoad error " + number + ": " + error.Description);
  LogEvent(window.World, "FormLoad Error, Number=" + number + " Error=" + error.Description);
}

template <class Body>
void Step(MainWindow& window, Body&& body) {
  TrapErrors([&] { return body(), true; }, false,
             [&](const RuntimeError& error) { ShowAndLogError(window, error); });
}

void LogLaunch(MainWindow& window) {
  LogEvent(window.World, "");
  LogEvent(window.World, "Brelwin v" + std::string(ProgramVersion()) +
                             " launching, UTC Date/Time=" + GetUTCNowText(window.World.Time));
}

void ShowWhatThereIs(MainWindow& window) {
  auto& screen = window.Controls;
  screen.About.cmdViewUserGuide.Visible =
      FileExists(window.World, InProgramFolder(window.World, UserGuideFile));
  screen.Spots.cmdTest.Visible = window.Config.TestButton;
  screen.Spots.cmdTest.Enabled = window.Config.TestButton;
  screen.Spots.lblSpotListHeader.Caption = SpotListHeader();
}

// The warnings concern the addresses of the settings file too.
void KeepGatewayWords(MainWindow& window) {
  window.GatewayWords.emplace(window.Controls.Gateway, window.Controls.RBN, window.Config);
  window.Watches.push_back(
      window.Controls.Gateway.lblGatewayState.Caption.WhenChanged([&window] { ShowSourceStatus(window); }));
}

void WarnOfTheFile(MainWindow& window) {
  window.Warnings.emplace(window.Controls);
  ShowSettingsNotice(window);
}

void ShowTitles(MainWindow& window) {
  ShowUTCTime(window);
  ShowCaption(window);
  window.Controls.About.lblProgramTitle.Caption = ProgramTitle();
}

void ShowWindow(MainWindow& window) {
  window.Controls.Window.Show.Raise();
  window.World.Events.DoEvents();
}

void LoadWebsites(MainWindow& window) {
  window.Websites = ReadWebsites(window.World, InProgramFolder(window.World, WebsitesFile));
  std::vector<std::string> names;
  names.reserve(window.Websites.size());
  for (const auto& website : window.Websites) names.push_back(website.Name);
  window.Controls.Files.lstWebsites.Items = std::move(names);
}

void BeginOrDelay(MainWindow& window) {
  auto& timer = window.Controls.tmrCheckSpots;
  if (window.StartupDelaySeconds > 0) {
    window.WaitingForStartupDelay = 1;
    ShowStartupDelay(window, SingleText(window.StartupDelaySeconds));
    window.Controls.Spots.cmdReloadSpotList.Enabled = false;
    timer.Interval = CountdownInterval;
    timer.Enabled = true;
    return;
  }
  ShowInsteadOfSpots(window, "Connecting...");
  timer.Interval = window.CheckInterval;
  InitializeInternetConnections(window);
}

}  // namespace

void Form_Load(MainWindow& window, std::string_view commandLine, std::string_view passwordFromEnvironment) {
  auto& world = window.World;
  window.FormLoading = true;
  window.Controls.Window.Hourglass = true;
  Step(window, [&] { LogLaunch(window); });
  Step(window, [&] {
    window.SettingsFile.LoadSettings(InProgramFolder(world, SettingsIniFile), passwordFromEnvironment);
    window.RBN.RBNCallsign = Trim(window.Controls.RBN.txtRBNCallsign.Text.Get());
  });
  Step(window, [&] { window.CheckInterval = TimerInterval(window); });
  Step(window, [&] { ShowWhatThereIs(window); });
  Step(window, [&] { ShowWhichFeedsCount(window); });
  Step(window, [&] { KeepGatewayWords(window); });
  Step(window, [&] { WarnOfTheFile(window); });
  Step(window, [&] { txtSpotCommentTemplate_LostFocus(window); });
  Step(window, [&] { ShowTitles(window); });
  Step(window, [&] { ShowWindow(window); });
  Step(window, [&] { LoadWebsites(window); });
  Step(window, [&] { LoadCallsigns(world, CallsignListName::Known, window.KnownActivators); });
  Step(window, [&] { LoadCallsigns(world, CallsignListName::Excluded, window.ExcludedActivators); });
  Step(window, [&] { LoadCallsigns(world, CallsignListName::Trusted, window.TrustedSpotters); });
  Step(window, [&] {
    window.StartupDelaySeconds = ReadStartupDelay(commandLine);
    window.StartupTime = world.Time.Now();
  });
  Step(window, [&] { BeginOrDelay(window); });
  window.Controls.Window.Hourglass = false;
  window.FormLoading = false;
}

void InitializeInternetConnections(MainWindow& window) {
  if (window.World.ShuttingDown) return;
  auto& timer = window.Controls.tmrCheckSpots;
  timer.Enabled = false;
  Step(window, [&] { ReloadSpotList(window); });
  Step(window, [&] {
    for (auto* stream : StreamsOf(window)) ConnectToRBN(*stream);
  });
  window.CheckInterval = TimerInterval(window);
  timer.Interval = window.CheckInterval;
  window.Controls.Spots.cmdReloadSpotList.Enabled = true;
  timer.Enabled = !window.World.ShuttingDown;
}

void ShowStartupDelay(MainWindow& window, std::string_view secondsLeft) {
  ShowInsteadOfSpots(
      window, "Internet connections will be initialized in " + std::string(secondsLeft) + " seconds...");
}

int TimerInterval(const MainWindow& window) {
  const auto seconds = WholeNumber(window.Controls.Spots.txtSecondsBetweenChecks.Text.Get());
  return seconds >= 1 && seconds <= 64 ? seconds * 1000 : 5000;
}

}  // namespace brelwin
