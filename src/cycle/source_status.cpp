#include "cycle/source_status.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "base/text.h"
#include "cycle/captions.h"
#include "cycle/spot_outputs.h"
#include "cycle/spots_source.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr Milliseconds HalfASecond{500};  // to round
constexpr std::string_view FirstName = "Reverse Beacon Network";
constexpr std::string_view SecondName = "Reverse Beacon Network, second stream";

std::string SotawatchText(const MainWindow& window) {
  const auto& state = window.Sotawatch;
  if (!state.Since) return "Sotawatch: not read yet";
  const auto text =
      state.Text + " since " + ClockText(*state.Since) + ", " + std::to_string(state.Spots) + " spots";
  return state.Age.empty() ? text : text + "; " + state.Age;
}

// When the next check, and with it the next attempt at what failed in this one, is due.
std::optional<DateTime> NextCheck(const MainWindow& window) {
  if (!window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) return {};
  const auto& time = window.World.Time;
  const auto due = window.TickDriver.Due();
  const auto seconds = due ? SecondsBetween(time.Now(), *due + HalfASecond) : window.CheckInterval / 1000;
  return AddSeconds(time.LocalNow(), seconds);
}

// Without a callsign there is no attempt.
std::optional<DateTime> NextAttempt(const MainWindow& window) {
  return Trim(window.Controls.RBN.txtRBNCallsign.Text.Get()).empty() ? std::nullopt : NextCheck(window);
}

// How many alerts there are, by whom, and how old they are, down to so many minutes.
std::string DataText(const MainWindow& window, std::int64_t step) {
  const auto readAt = window.Alerts.ReadAt();
  if (!readAt) return "not read yet";
  const auto minutes = std::max<std::int64_t>(0, MinutesBetween(*readAt, window.World.Time.LocalNow()));
  const auto age = minutes - minutes % step;
  return std::to_string(window.Alerts.Count()) + " by " + window.AlertsSource + ", announcements of " +
         ClockText(*readAt) + ", " + std::to_string(age) + " min old";
}

std::string AlertsText(const MainWindow& window) {
  if (!window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) return "Alerts: off";
  std::string text = "Alerts: " + DataText(window, 1);
  const auto& failure = window.AlertsNotRead;
  if (!failure.Since) return text;
  text.append("; failing since ").append(ClockText(*failure.Since)).append(" (" + failure.Text + ")");
  const bool isTriedAgain = window.Controls.Spots.lblNoSotawatchConnection.Visible;
  if (const auto next = NextCheck(window); next && isTriedAgain)
    text.append(", next attempt at ").append(DateTimeText(*next).substr(11));
  return text;
}

std::string StreamTexts(const MainWindow& window) {
  const auto first = StreamStatusText(window.RBN.Status, NextAttempt(window));
  if (!window.RBN2.IsConfigured()) return first;
  return first + " | " + StreamStatusText(window.RBN2.Status, NextAttempt(window), SecondName);
}

// What the stream has begun to do; the counts are on the status line.
std::string StageText(const RBNConnection& stream, std::optional<DateTime> nextAttempt,
                      std::string_view name) {
  auto stage = stream.Status;
  stage.Lines = 0;
  stage.LastLine.reset();
  return StreamStatusText(stage, nextAttempt, name);
}

// Where every change is told, the age grows in steps.
void ShowAnnouncements(MainWindow& window) {
  constexpr std::int64_t Step = 10;  // minutes
  const bool areRead = window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value && window.Alerts.WereRead();
  window.Controls.RBN.lblAnnouncements.Caption = areRead ? "Alerts: " + DataText(window, Step) : "";
}

// First of all, since others are told of what it does; nothing while it is off.
std::string GatewayText(const GatewayTab& tab, const RBNTab& rbn) {
  return IsGatewayOn(tab) ? GatewayStateText(tab, rbn) + " | " : std::string();
}

}  // namespace

void ShowSourceStatus(MainWindow& window) {
  window.Controls.Spots.lblSources.Caption = GatewayText(window.Controls.Gateway, window.Controls.RBN) +
                                             SotawatchText(window) + " | " + AlertsText(window) + " | " +
                                             StreamTexts(window);
  ShowAnnouncements(window);
  ShowCaption(window);
  ShowHiddenSpots(window);
  ShowSettingsNotice(window);
}

void ShowCaption(MainWindow& window) {
  const bool isGone = SourceInUse(window) == SpotSource::Service &&
                      (window.Intake.IsFeedGone() || window.AnnouncedByService.IsGone());
  window.Controls.Window.Caption =
      WindowCaption(window.Controls.Gateway.chkRBNSendAllSpotsToSotawatch.Value, isGone);
}

void ShowSettingsNotice(MainWindow& window) {
  std::string text;
  for (const auto& notice : window.SettingsFile.Notices())
    text.append(text.empty() ? "" : LineEnd).append(notice);
  window.Controls.Spots.lblSettingsNotice.Caption = text;
}

void ShowStreamStage(MainWindow& window) {
  auto& tab = window.Controls.RBN;
  tab.lblRBNStatus.Caption = StageText(window.RBN, NextAttempt(window), FirstName);
  if (window.RBN2.IsConfigured())
    tab.lblRBNStatus2.Caption = StageText(window.RBN2, NextAttempt(window), SecondName);
  ShowSourceStatus(window);
}

void ShowUTCTime(MainWindow& window) {
  window.Controls.Spots.lblUTCTime.Caption = "Current Time: " + ClockText(UTCNow(window.World.Time)) + " UTC";
}

}  // namespace brelwin
