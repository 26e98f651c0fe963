#include "cycle/start_up.h"

#include <string>

#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "core/version.h"
#include "cycle/callsign_lists.h"
#include "cycle/check_cycle.h"
#include "cycle/settings_handlers.h"
#include "cycle/source_status.h"
#include "radio/dates.h"
#include "radio/numbers.h"
#include "rbn/stream.h"
#include "spots/spot_text.h"

namespace brelwin {
namespace {

constexpr int CountdownInterval = 100;  // milliseconds

void ShowAndLogError(Host& host, SpotListBox& box, const RuntimeError& error) {
  const auto number = std::to_string(error.Number);
  ShowInsteadOfSpots(box, "FormLoad error " + number + ": " + error.Description);
  LogEvent(host, "FormLoad Error, Number=" + number + " Error=" + error.Description);
}

// Runs the steps of start-up: what one fails of is shown and logged, and the next one follows.
auto StepsOf(Host& host, SpotListBox& box) {
  return [&](auto&& body) {
    TrapErrors([&] { return body(), true; }, false,
               [&](const RuntimeError& error) { ShowAndLogError(host, box, error); });
  };
}

void LogLaunch(Host& host) {
  LogEvent(host, "");
  LogEvent(host, "Brelwin v" + std::string(ProgramVersion()) +
                     " launching, UTC Date/Time=" + GetUTCNowText(host.Time));
}

void ShowWhatThereIs(const Host& host, Screen& screen, bool testButton) {
  screen.About.cmdViewUserGuide.Visible = FileExists(host, InProgramFolder(host, UserGuideFile));
  screen.Spots.cmdTest.Visible = testButton;
  screen.Spots.cmdTest.Enabled = testButton;
  screen.Spots.lblSpotListHeader.Caption = SpotListHeader();
}

// The warnings concern the addresses of the settings file too.
void KeepGatewayWords(MainWindow& window) {
  window.GatewayWords.emplace(window.Controls.Gateway, window.Controls.RBN, window.Config);
  window.Watches.push_back(
      window.Controls.Gateway.lblGatewayState.Caption.WhenChanged([&window] { ShowSourceStatus(window); }));
}

void ShowTitles(const SourceStatus& status) {
  ShowUTCTime(status.Controls.Spots.lblUTCTime, status.Time);
  ShowCaption(status);
  status.Controls.About.lblProgramTitle.Caption = ProgramTitle();
}

void ShowWindow(Host& host, Form& form) {
  form.Show.Raise();
  host.Events.DoEvents();
}

void LoadWebsites(Host& host, FilesTab& tab, std::vector<Website>& websites) {
  websites = ReadWebsites(host, InProgramFolder(host, WebsitesFile));
  std::vector<std::string> names;
  names.reserve(websites.size());
  for (const auto& website : websites) names.push_back(website.Name);
  tab.lstWebsites.Items = std::move(names);
}

// The timer's interval in milliseconds: the box's whole number of seconds when it is 1 to 64, else 5 s. This
// is wider on purpose than what the settings screen lets the user type.
int TimerInterval(const SpotsTab& tab) {
  const auto seconds = WholeNumber(tab.txtSecondsBetweenChecks.Text.Get());
  return seconds >= 1 && seconds <= 64 ? seconds * 1000 : 5000;
}

void DelayConnections(Activities& going, Screen& screen, StartupDelay& delay) {
  delay.Running.emplace(going, Activity::StartupDelay);
  ShowStartupDelay(screen.Spots.txtSPOTList, delay.Seconds);
  screen.Spots.cmdReloadSpotList.Enabled = false;
  screen.tmrCheckSpots.Interval = CountdownInterval;
  screen.tmrCheckSpots.Enabled = true;
}

void BeginOrDelay(MainWindow& window) {
  if (window.Delay.Seconds > 0) return DelayConnections(window.World.Going, window.Controls, window.Delay);
  ShowInsteadOfSpots(window.Controls.Spots.txtSPOTList, "Connecting...");
  window.Controls.tmrCheckSpots.Interval = window.Pace.CheckInterval;
  InitializeInternetConnections(window);
}

}  // namespace

void Form_Load(MainWindow& window, std::string_view commandLine, std::string_view passwordFromEnvironment) {
  auto& world = window.World;
  auto& screen = window.Controls;
  auto& callsigns = window.Callsigns;
  const auto step = StepsOf(world, screen.Spots.txtSPOTList);
  screen.Window.Hourglass = true;
  step([&] { LogLaunch(world); });
  step([&] {
    window.SettingsFile.LoadSettings(InProgramFolder(world, SettingsIniFile), passwordFromEnvironment);
    window.Streams.First.RBNCallsign = Trim(screen.RBN.txtRBNCallsign.Text.Get());
  });
  step([&] { window.Pace.CheckInterval = TimerInterval(screen.Spots); });
  step([&] { ShowWhatThereIs(world, screen, window.Config.TestButton); });
  step([&] { ShowWhichFeedsCount(screen.Spots); });
  step([&] { KeepGatewayWords(window); });
  step([&] { window.Warnings.emplace(screen); });
  step([&] { ShowSettingsNotice(screen.Spots.lblSettingsNotice, window.SettingsFile); });
  step([&] { txtSpotCommentTemplate_LostFocus(world, screen.Gateway, window.TemplateLookedAt); });
  step([&] { ShowTitles(window.Status); });
  step([&] { ShowWindow(world, screen.Window); });
  step([&] { LoadWebsites(world, screen.Files, window.Websites); });
  for (const auto name : {CallsignListName::Known, CallsignListName::Excluded, CallsignListName::Trusted})
    step([&] { LoadCallsigns(world, name, callsigns.Named(name)); });
  step([&] { window.Activations.Restore(); });
  step([&] { window.Around.Start(window.Activations.Board()); });
  step([&] {
    window.Delay.Seconds = ReadStartupDelay(commandLine);
    window.Delay.Since = world.Time.Now();
  });
  step([&] { BeginOrDelay(window); });
  screen.Window.Hourglass = false;
  window.FormLoading.reset();
}

void InitializeInternetConnections(MainWindow& window) {
  if (window.World.ShuttingDown) return;
  auto& screen = window.Controls;
  auto& timer = screen.tmrCheckSpots;
  const auto step = StepsOf(window.World, screen.Spots.txtSPOTList);
  timer.Enabled = false;
  step([&] { ReloadSpotList(window); });
  step([&] {
    for (auto* stream : window.Streams.InUse()) ConnectToRBN(*stream);
  });
  window.Pace.CheckInterval = TimerInterval(screen.Spots);
  timer.Interval = window.Pace.CheckInterval;
  screen.Spots.cmdReloadSpotList.Enabled = true;
  timer.Enabled = !window.World.ShuttingDown;
}

void ShowStartupDelay(SpotListBox& box, float secondsLeft) {
  ShowInsteadOfSpots(
      box, "Internet connections will be initialized in " + SingleText(secondsLeft) + " seconds...");
}

float ReadStartupDelay(std::string_view commandLine) {
  constexpr std::string_view Keyword = "DELAY=";
  const auto text = UpperCase(Trim(commandLine));
  std::string_view seconds = text;
  if (seconds.starts_with(Keyword)) seconds.remove_prefix(Keyword.size());
  return ToSingle(ToDouble(Trim(seconds)));
}

}  // namespace brelwin
