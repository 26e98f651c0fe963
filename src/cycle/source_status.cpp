#include "cycle/source_status.h"
#include "gateway/tab_rules.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "base/text.h"
#include "core/version.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr Milliseconds HalfASecond{500};  // to round
constexpr std::string_view FirstName = "Reverse Beacon Network";
constexpr std::string_view SecondName = "Reverse Beacon Network, second stream";

std::string SotawatchText(const SourceStatus& status) {
  const auto& state = status.Sources.Sotawatch;
  if (!state.Since) return "Sotawatch: not read yet";
  const auto text =
      state.Text + " since " + ClockText(*state.Since) + ", " + std::to_string(state.Spots) + " spots";
  return state.Age.empty() ? text : text + "; " + state.Age;
}

// When the next check, and with it the next attempt at what failed in this one, is due.
std::optional<DateTime> NextCheck(const SourceStatus& status) {
  if (!status.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) return {};
  const auto& time = status.Time;
  const auto due = status.Pace.TickDriver.Due();
  const auto seconds =
      due ? SecondsBetween(time.Now(), *due + HalfASecond) : status.Pace.CheckInterval / 1000;
  return AddSeconds(time.LocalNow(), seconds);
}

// Without a callsign there is no attempt.
std::optional<DateTime> NextAttempt(const SourceStatus& status) {
  return Trim(status.Controls.RBN.txtRBNCallsign.Text.Get()).empty() ? std::nullopt : NextCheck(status);
}

// How many alerts there are, by whom, and how old they are, down to so many minutes.
std::string DataText(const SourceStatus& status, std::int64_t step) {
  const auto readAt = status.Announced.Alerts.ReadAt();
  if (!readAt) return "not read yet";
  const auto minutes = std::max<std::int64_t>(0, MinutesBetween(*readAt, status.Time.LocalNow()));
  const auto age = minutes - minutes % step;
  return std::to_string(status.Announced.Alerts.Count()) + " by " + status.Announced.Source +
         ", announcements of " + ClockText(*readAt) + ", " + std::to_string(age) + " min old";
}

std::string AlertsText(const SourceStatus& status) {
  if (!status.Controls.RBN.chkReverseBeaconSpotsEnabled.Value) return "Alerts: off";
  std::string text = "Alerts: " + DataText(status, 1);
  const auto& failure = status.Announced.NotRead;
  if (!failure.Since) return text;
  text.append("; failing since ").append(ClockText(*failure.Since)).append(" (" + failure.Text + ")");
  const bool isTriedAgain = status.Controls.Spots.lblNoSotawatchConnection.Visible;
  if (const auto next = NextCheck(status); next && isTriedAgain)
    text.append(", next attempt at ").append(DateTimeText(*next).substr(11));
  return text;
}

std::string StreamTexts(const SourceStatus& status) {
  auto texts = StreamStatusText(status.Streams.First.Status, NextAttempt(status));
  if (!status.Streams.Second.IsConfigured()) return texts;
  return texts + " | " + StreamStatusText(status.Streams.Second.Status, NextAttempt(status), SecondName);
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
void ShowAnnouncements(const SourceStatus& status) {
  constexpr std::int64_t Step = 10;  // minutes
  const bool areRead =
      status.Controls.RBN.chkReverseBeaconSpotsEnabled.Value && status.Announced.Alerts.WereRead();
  status.Controls.RBN.lblAnnouncements.Caption = areRead ? "Alerts: " + DataText(status, Step) : "";
}

// First of all, since others are told of what it does; nothing while it is off.
std::string GatewayText(const GatewayTab& tab, const RBNTab& rbn) {
  return IsGatewayOn(tab) ? GatewayStateText(tab, rbn) + " | " : std::string();
}

std::string WindowCaption(bool gatewayEnabled, bool feedGone) {
  return ProgramTitle() + " --- by Q0ZZ" + (gatewayEnabled ? " --- Gateway Mode Enabled" : "") +
         (feedGone ? " --- Sotawatch feed gone" : "");
}

}  // namespace

void ShowSources(const SourceStatus& status) {
  auto& screen = status.Controls;
  screen.Spots.lblSources.Caption = GatewayText(screen.Gateway, screen.RBN) + SotawatchText(status) + " | " +
                                    AlertsText(status) + " | " + StreamTexts(status);
  ShowAnnouncements(status);
}

void ShowStreamStage(const SourceStatus& status) {
  auto& tab = status.Controls.RBN;
  const auto& streams = status.Streams;
  tab.lblRBNStatus.Caption = StageText(streams.First, NextAttempt(status), FirstName);
  if (streams.Second.IsConfigured())
    tab.lblRBNStatus2.Caption = StageText(streams.Second, NextAttempt(status), SecondName);
}

void ShowCaption(const SourceStatus& status) {
  const bool isGone = SourceInUse(status.Sources) == SpotSource::Service &&
                      (status.Sources.Intake.IsFeedGone() || status.Announced.ByService.IsGone());
  status.Controls.Window.Caption =
      WindowCaption(status.Controls.Gateway.chkRBNSendAllSpotsToSotawatch.Value, isGone);
}

void ShowSettingsNotice(Label& notice, Settings& settings) {
  std::string text;
  for (const auto& line : settings.Notices()) text.append(text.empty() ? "" : LineEnd).append(line);
  notice.Caption = text;
}

void ShowUTCTime(Label& label, const Clock& time) {
  label.Caption = "Current Time: " + ClockText(UTCNow(time)) + " UTC";
}

std::string ProgramTitle() {
  return "Brelwin v" + std::string(ProgramVersion());
}

}  // namespace brelwin
