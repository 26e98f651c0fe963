#include "alerts/alert_commands.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "alerts/alert_window.h"
#include "alerts/alerts_report.h"
#include "alerts/matching.h"
#include "alerts/modifications.h"
#include "alerts/page_markup.h"
#include "alerts/sota_alert.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "radio/callsign.h"
#include "radio/dates.h"

namespace brelwin {

namespace {

std::string OneLine(const std::string& text) {
  const auto line = WithBlanks(text);
  return std::string(Trim(line));
}

}  // namespace

SOTAAlert AlertOfSpot(const Spot& spot, const Clock& clock) {
  SOTAAlert alert;
  SetAlertDateAndTime(alert, spot.UTCDateTime.value_or(UTCNow(clock)));
  alert.UTCAlertTimeStr = ClockText(*alert.UTCAlertDateAndTime);
  alert.IsSelfSpotAlert = true;
  alert.Comment = OneLine(spot.Comment);
  alert.FrequencyModes = OneLine(spot.FrequencyString + " " + spot.ModeString);
  alert.OperatorName = OneLine(spot.OperatorName);
  alert.Spotter = OneLine(spot.Spotter);
  alert.Station = OneLine(spot.Station);
  alert.stationBaseCallsign = OneLine(spot.stationBaseCallsign);
  alert.SummitDesignator = OneLine(spot.SummitDesignator);
  alert.SummitName = OneLine(spot.SummitName);
  alert.SummitElevationInMeters = spot.SummitElevationInMeters;
  alert.SummitElevationInFeet = spot.SummitElevationInFeet;
  alert.SummitPoints = spot.SummitPoints;
  alert.SummitDescription = OneLine(spot.SummitDescription);
  alert.AlertKey = alert.ID = SpotAlertKey(alert);
  return alert;
}

namespace {

constexpr std::string_view Procedure = "GetSotawatchSpots";

using Stations = std::set<std::string>;  // base callsigns

void LogMessage(Host& host, const std::string& message) {
  LogEvent(host, std::string(Procedure).append(" - ").append(message));
}

std::string Received(const Spot& spot) {
  const auto comment = " with this comment: {" + spot.Comment + "}";
  if (spot.IsSelfSpot) return "Self-spot of " + spot.Station + " received" + comment;
  return "Spot of " + spot.Station + " received from trusted chaser " + spot.Spotter + comment;
}

// Of two stations that are announced together, each answers to its own part of the text.
bool MayBeOf(const SOTAAlert& alert, std::string_view callsign) {
  const auto& announced = alert.AnnouncedCallsign.empty() ? alert.Station : alert.AnnouncedCallsign;
  std::string second;
  GetBaseCallsign(announced, second);
  if (second.empty()) return MayBeSameStation(callsign, announced);
  const auto names = Replace(announced, "&", " ");
  return std::ranges::any_of(Split(names, " "), [&](const auto name) {
    return GetBaseCallsign(name) == alert.stationBaseCallsign && MayBeSameStation(callsign, name);
  });
}

}  // namespace

bool IsAlertCommand(const Spot& spot) {
  if (spot.Kind == SpotKind::Test) return false;
  return (spot.IsSelfSpot || spot.SpotterIsTrustedSpotter) && !Contains(spot.Comment, "{Via Tarnlink}");
}

// The commands of one call.
class AlertCommands::Batch {
 public:
  Batch(AlertCommands& commands, const AlertCommandScene& scene)
      : commands_(commands),
        host_(commands.host_),
        scene_(scene),
        overrides_(DurationOverrides::Load(commands.host_)) {}

  void TakeUnlessOwnPost(const Spot& spot) {
    if (!scene_.IsOwnPost(spot)) return Take(spot);
    LogMessage(host_,
               "This gateway's own post of " + spot.Station + " is no command: {" + spot.Comment + "}");
    commands_.memory_.Remember(spot);
  }

  void TakeWaiting() {
    for (const auto& command : commands_.waiting_.TakeAll()) Do(command);
  }

  // Writes what the commands have changed, and then that they were acted on. What cannot be written waits for
  // the next reading of the page, which undoes it. The memory knows the newest command only, so one that
  // waits and is not on the disk would be lost by the next start.
  void Finish() {
    if (!AppendModifications(host_, "", entries_)) {
      LogMessage(host_, "The alert modifications could not be written to SOTAAlertModifications.txt.");
      for (const auto& command : done_) commands_.waiting_.Add(command);
    }
    if (commands_.waiting_.Save()) commands_.memory_.Save();
    ReportAdditions();
  }

 private:
  void ReportAdditions() const {
    if (!hasAdded_ || !scene_.LogAlertsAfterSelfSpots) return;
    const auto name =
        std::string(AlertsAfterSelfSpotsStem) + CompactMinutesText(host_.Time.LocalNow()) + ".txt";
    WriteAlertsReport(host_, InProgramFolder(host_, name), scene_.Alerts);
  }

  void Take(const Spot& spot) {
    LogMessage(host_, Received(spot));
    const auto command = AlertOfSpot(spot, host_.Time);
    if (scene_.Alerts.WereRead()) {
      Do(command);
    } else {
      Wait(command);
    }
    commands_.memory_.Remember(spot);
  }

  void Wait(const SOTAAlert& command) {
    LogMessage(host_, "The command waits until the alerts have been read.");
    commands_.waiting_.Add(command);
  }

  void Do(const SOTAAlert& command) {
    const auto change = [&] {
      Change(command);
      return true;
    };
    if (LogErrors(host_, Procedure, false, change)) {
      done_.push_back(command);
    } else {
      commands_.waiting_.Add(command);
    }
  }

  // Removes the station's alerts around the time of the spot and adds one for it.
  void Change(const SOTAAlert& command) {
    const bool optsOut = HoldsOptOutWord(command.Comment);
    Remove(optsOut ? StationsThatMayBe(command) : Stations{command.stationBaseCallsign},
           *command.UTCAlertDateAndTime);
    if (!optsOut) Add(command);
  }

  // An opt-out reaches the activator under whatever callsign the activation was announced.
  Stations StationsThatMayBe(const SOTAAlert& command) const {
    Stations stations;
    for (const auto& entry : scene_.Alerts.All()) {
      const auto& alert = *entry.Item.Alert;
      if (alert.stationBaseCallsign == command.stationBaseCallsign || MayBeOf(alert, command.Station))
        stations.insert(alert.stationBaseCallsign);
    }
    return stations;
  }

  void Remove(const Stations& stations, DateTime time) {
    std::vector<AlertPointer> alerts;
    for (const auto& station : stations) {
      const auto found = GetMatchedAlerts(host_, station, time, false, scene_.Alerts, scene_.Filter).Alerts;
      alerts.insert(alerts.end(), found.begin(), found.end());
    }
    if (alerts.empty()) return;
    LogMessage(host_, "Removing alerts:");
    for (const auto& alert : alerts) {
      LogEvent(host_, DelimitedData(*alert));
      scene_.Alerts.Remove(alert->ID);
      scene_.Alerts.NoteWithdrawn(alert, Withdrawal::RemovedByEntry);
      entries_.push_back(ModificationLine(ModificationCommand::Delete, *alert));
    }
  }

  void Add(const SOTAAlert& command) {
    const auto window = overrides_.Of(command.stationBaseCallsign);
    auto alert = std::make_shared<SOTAAlert>(command);
    alert->LocalDateAndTimeRetrieved = host_.Time.LocalNow();
    alert->MaxMinutesBeforeAlertTime = window.MinutesBefore;
    alert->MaxMinutesAfterAlertTime = window.MinutesAfter;
    if (!scene_.Alerts.AddInFront(alert)) return;
    hasAdded_ = true;
    LogMessage(host_, "Adding alert:");
    LogEvent(host_, DelimitedData(*alert));
    entries_.push_back(ModificationLine(ModificationCommand::Add, *alert));
  }

  AlertCommands& commands_;
  Host& host_;
  const AlertCommandScene& scene_;
  DurationOverrides overrides_;
  std::vector<std::string> entries_;  // for the modifications file
  std::vector<SOTAAlert> done_;       // the commands that they come from
  bool hasAdded_ = false;
};

AlertCommands::AlertCommands(Host& host, CommandMemory memory)
    : host_(host), memory_(std::move(memory)), waiting_(host) {}

void AlertCommands::CarryOut(const SpotCollection& newSpots, const AlertCommandScene& scene) {
  std::vector<SpotPointer> commands;
  for (const auto& [key, spot] : newSpots) {
    if (IsAlertCommand(*spot)) commands.push_back(spot);
  }
  if (commands.empty()) return;
  std::ranges::reverse(commands);
  Batch batch(*this, scene);
  for (const auto& command : commands) {
    if (host_.ShuttingDown) break;
    LogErrors(host_, Procedure, false, [&] {
      if (memory_.IsNew(*command)) batch.TakeUnlessOwnPost(*command);
      return true;
    });
  }
  LogErrors(host_, Procedure, false, [&] {
    batch.Finish();
    return true;
  });
}

void AlertCommands::CarryOutWaiting(const AlertCommandScene& scene) {
  if (waiting_.Empty() || !scene.Alerts.WereRead()) return;
  LogErrors(host_, Procedure, false, [&] {
    Batch batch(*this, scene);
    batch.TakeWaiting();
    batch.Finish();
    return true;
  });
}

}  // namespace brelwin
