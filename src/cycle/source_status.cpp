#include "cycle/source_status.h"

#include <chrono>
#include <string>

#include "base/text.h"
#include "cycle/spot_outputs.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr Milliseconds HalfASecond{500};  // to round

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

std::string AlertsText(const MainWindow& window) {
  if (!window.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) return "Alerts: off";
  const auto readAt = window.Alerts.ReadAt();
  const auto count = std::to_string(window.Alerts.Count());
  std::string text = "Alerts: " + (readAt ? count + ", read at " + ClockText(*readAt) : "not read yet");
  const auto& failure = window.AlertsNotRead;
  if (!failure.Since) return text;
  text.append("; failing since ").append(ClockText(*failure.Since)).append(" (" + failure.Text + ")");
  const bool isTriedAgain = window.Controls.Spots.lblNoSotawatchConnection.Visible;
  if (const auto next = NextCheck(window); next && isTriedAgain)
    text.append(", next attempt at ").append(DateTimeText(*next).substr(11));
  return text;
}

// First of all, since others are told of what it does; nothing while it is off.
std::string GatewayText(const GatewayTab& tab, const RBNTab& rbn) {
  return IsGatewayOn(tab) ? GatewayStateText(tab, rbn) + " | " : std::string();
}

}  // namespace

void ShowSourceStatus(MainWindow& window) {
  window.Controls.Spots.lblSources.Caption = GatewayText(window.Controls.Gateway, window.Controls.RBN) +
                                             SotawatchText(window) + " | " + AlertsText(window) + " | " +
                                             StreamStatusText(window.RBN.Status, NextAttempt(window));
  ShowHiddenSpots(window);
  ShowSettingsNotice(window);
}

void ShowSettingsNotice(MainWindow& window) {
  std::string text;
  for (const auto& notice : window.SettingsFile.Notices())
    text.append(text.empty() ? "" : LineEnd).append(notice);
  window.Controls.Spots.lblSettingsNotice.Caption = text;
}

void ShowStreamStage(MainWindow& window) {
  auto stage = window.RBN.Status;
  stage.Lines = 0;  // this line is about the stage; the counts are on the status line
  stage.LastLine.reset();
  window.Controls.RBN.lblRBNStatus.Caption = StreamStatusText(stage, NextAttempt(window));
  ShowSourceStatus(window);
}

}  // namespace brelwin
