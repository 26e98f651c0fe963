#include "alerts/alert_commands.h"

#include <algorithm>
#include <utility>

#include "alerts/alert_key.h"
#include "alerts/alert_window.h"
#include "alerts/alerts_report.h"
#include "alerts/matching.h"
#include "alerts/modifications.h"
#include "alerts/page_markup.h"
#include "alerts/withdrawal.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/trap.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::string_view Procedure = "GetSotawatchSpots";

void LogMessage(Host& host, const std::string& message) {
  LogEvent(host, std::string(Procedure).append(" - ").append(message));
}

std::string Received(const Spot& spot) {
  const auto comment = " with this comment: {" + spot.Comment + "}";
  if (spot.IsSelfSpot) return "Self-spot of " + spot.Station + " received" + comment;
  return "Spot of " + spot.Station + " received from trusted chaser " + spot.Spotter + comment;
}

std::string OneLine(const std::string& text) {
  const auto line = WithBlanks(text);
  return std::string(Trim(line));
}

AlertPointer AlertOfSpot(const Spot& spot, const AlertWindow& window, const Clock& clock) {
  auto alert = std::make_shared<SOTAAlert>();
  SetAlertDateAndTime(*alert, spot.UTCDateTime.value_or(UTCNow(clock)));
  alert->UTCAlertTimeStr = ClockText(*alert->UTCAlertDateAndTime);
  alert->LocalDateAndTimeRetrieved = clock.LocalNow();
  alert->IsSelfSpotAlert = true;
  alert->Comment = OneLine(spot.Comment);
  alert->FrequencyModes = OneLine(spot.FrequencyString + " " + spot.ModeString);
  alert->MaxMinutesBeforeAlertTime = window.MinutesBefore;
  alert->MaxMinutesAfterAlertTime = window.MinutesAfter;
  alert->OperatorName = OneLine(spot.OperatorName);
  alert->Spotter = OneLine(spot.Spotter);
  alert->Station = OneLine(spot.Station);
  alert->stationBaseCallsign = OneLine(spot.stationBaseCallsign);
  alert->SummitDesignator = OneLine(spot.SummitDesignator);
  alert->SummitName = OneLine(spot.SummitName);
  alert->SummitElevationInMeters = spot.SummitElevationInMeters;
  alert->SummitElevationInFeet = spot.SummitElevationInFeet;
  alert->SummitPoints = spot.SummitPoints;
  alert->SummitDescription = OneLine(spot.SummitDescription);
  alert->AlertKey = alert->ID = SpotAlertKey(*alert);
  return alert;
}

}  // namespace

bool IsAlertCommand(const Spot& spot) {
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

  void Take(const SpotPointer& spot) {
    LogMessage(host_, Received(*spot));
    ReadAlertsOnce();
    if (host_.ShuttingDown) return;
    std::erase_if(commands_.waiting_, [&](const auto& waiting) {
      return waiting->stationBaseCallsign == spot->stationBaseCallsign;
    });
    if (HoldsOptOutWord(spot->Comment) && !scene_.Alerts.WereRead()) {
      commands_.waiting_.push_back(spot);
      commands_.memory_.Remember(*spot);
    } else {
      Do(spot);
    }
    SaveMemory();
  }

  void TakeWaiting() {
    if (commands_.waiting_.empty() || !scene_.Alerts.WereRead()) return;
    for (const auto& spot : std::exchange(commands_.waiting_, {})) Do(spot);
    SaveMemory();
  }

  bool HasAdded() const { return hasAdded_; }

 private:
  void ReadAlertsOnce() {
    if (scene_.Alerts.WereRead() || hasTriedToRead_) return;
    hasTriedToRead_ = true;
    scene_.ReadAlertsPage();
    TakeWaiting();
  }

  // What cannot be written waits for the next reading of the page, which undoes it.
  void Do(const SpotPointer& spot) {
    if (LogErrors(host_, Procedure, false, [&] { return Change(*spot); })) {
      commands_.memory_.Remember(*spot);
    } else {
      commands_.waiting_.push_back(spot);
    }
  }

  // Removes the station's alerts around the time of the spot and adds one for it. False when the
  // modifications file could not be written.
  bool Change(const Spot& spot) {
    std::vector<std::string> entries;
    Remove(spot, entries);
    if (!HoldsOptOutWord(spot.Comment)) Add(spot, entries);
    if (AppendModifications(host_, "", entries)) return true;
    LogMessage(host_, "The alert modifications could not be written to SOTAAlertModifications.txt.");
    return false;
  }

  // The file knows the newest command only, so while one waits it would be lost by the next start.
  void SaveMemory() {
    if (commands_.waiting_.empty()) commands_.memory_.Save();
  }

  void Remove(const Spot& spot, std::vector<std::string>& entries) {
    const auto matches = GetMatchedAlerts(host_, spot.stationBaseCallsign, spot.UTCDateTime, false,
                                          scene_.Alerts, scene_.Filter);
    if (matches.Alerts.empty()) return;
    LogMessage(host_, "Removing alerts:");
    for (const auto& alert : matches.Alerts) {
      LogEvent(host_, DelimitedData(*alert));
      scene_.Alerts.Remove(alert->ID);
      scene_.Alerts.NoteWithdrawn(alert, Withdrawal::RemovedByEntry);
      entries.push_back(ModificationLine(ModificationCommand::Delete, *alert));
    }
  }

  void Add(const Spot& spot, std::vector<std::string>& entries) {
    const auto alert = AlertOfSpot(spot, overrides_.Of(spot.stationBaseCallsign), host_.Time);
    if (!scene_.Alerts.AddInFront(alert)) return;
    hasAdded_ = true;
    LogMessage(host_, "Adding alert:");
    LogEvent(host_, DelimitedData(*alert));
    entries.push_back(ModificationLine(ModificationCommand::Add, *alert));
  }

  AlertCommands& commands_;
  Host& host_;
  const AlertCommandScene& scene_;
  DurationOverrides overrides_;
  bool hasTriedToRead_ = false;
  bool hasAdded_ = false;
};

AlertCommands::AlertCommands(Host& host, CommandMemory memory) : host_(host), memory_(std::move(memory)) {}

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
      if (memory_.IsNew(*command)) batch.Take(command);
      return true;
    });
  }
  if (!batch.HasAdded() || !scene.LogAlertsAfterSelfSpots) return;
  const auto name = "SOTAAlertsAfterSelfSpots_" + CompactMinutesText(host_.Time.LocalNow()) + ".txt";
  WriteAlertsReport(host_, InProgramFolder(host_, name), scene.Alerts);
}

void AlertCommands::CarryOutWaiting(const AlertCommandScene& scene) {
  if (waiting_.empty() || !scene.Alerts.WereRead()) return;
  LogErrors(host_, Procedure, false, [&] {
    Batch(*this, scene).TakeWaiting();
    return true;
  });
}

}  // namespace brelwin
