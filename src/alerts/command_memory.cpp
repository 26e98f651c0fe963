#include "alerts/command_memory.h"

#include <string>
#include <utility>
#include <vector>

#include "alerts/page_markup.h"
#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/event_log.h"
#include "core/file_names.h"
#include "core/ini_utilities.h"
#include "radio/dates.h"
#include "radio/numbers.h"
#include "spots/spot_collections.h"

namespace brelwin {

namespace {

constexpr std::string_view Section = "General";
constexpr std::string_view Key = "LastAlertCommand";
constexpr std::size_t TimeLength = 19;
constexpr std::size_t LongestStoredID = 100;   // with the time, less than a value can hold
constexpr std::size_t MostRemembered = 20000;  // two of each command
constexpr std::size_t MostUndated = 1000;
constexpr std::size_t LongestUndated = 500;  // of a line, in characters
constexpr std::int64_t MinutesPerDay = 1440;

std::string StoredID(std::string_view id) {
  return std::string(Trim(FirstCharacters(id, LongestStoredID)));
}

// A time far in the future, from a clock that was wrong, must not silence every command until then. One in
// the near future stands, since the same command must have the same time in the next run.
DateTime Believable(DateTime time, const Clock& clock) {
  const auto now = UTCNow(clock);
  return time < AddMinutes(now, MinutesPerDay) ? time : now;
}

// The same spot has another ID in another feed.
std::string DatedIdentity(const Spot& command) {
  return CompactText(*command.UTCDateTime) + "|" + command.stationBaseCallsign + "|" +
         command.SpotterBaseCallsign + "|" + RoundedToThreeDecimalsText(command.FrequencyInMhz);
}

// The text of a spot without a time, as a line.
std::string UndatedLine(const Spot& command) {
  const auto line = WithBlanks(TextIdentity(command));
  return std::string(Trim(FirstCharacters(line, LongestUndated)));
}

clsINIUtilities SettingsFile(Host& host, const std::string& path) {
  clsINIUtilities file(host);
  file.INIPath = path;
  return file;
}

}  // namespace

CommandMemory::CommandMemory(Host& host, std::string settingsPath, std::function<bool()> prepareSettingsFile)
    : host_(host),
      settingsPath_(std::move(settingsPath)),
      prepareSettingsFile_(std::move(prepareSettingsFile)),
      undatedFile_(host, UndatedCommandsFile) {}

void CommandMemory::LoadOnce() {
  if (std::exchange(isLoaded_, true)) return;
  LoadNewest();
  for (const auto& line : undatedFile_.Read()) undated_.Add(true, line);
}

void CommandMemory::LoadNewest() {
  const auto value = SettingsFile(host_, settingsPath_).ReadStringKey(Section, Key);
  const auto time = ReadDateTime(std::string_view(value).substr(0, TimeLength));
  if (!time) return;
  ofEarlierRuns_ = {Believable(*time, host_.Time), StoredID(std::string_view(value).substr(TimeLength))};
  newest_ = ofEarlierRuns_;
}

bool CommandMemory::IsNew(const Spot& command) {
  LoadOnce();
  return command.UTCDateTime ? IsNewByTime(command) : !undated_.Contains(UndatedLine(command));
}

bool CommandMemory::IsNewByTime(const Spot& command) {
  if (ofThisRun_.Contains(command.ID) || ofThisRun_.Contains(DatedIdentity(command))) return false;
  if (!ofEarlierRuns_) return true;
  if (StoredID(command.ID) == ofEarlierRuns_->ID) {
    hasPassedNewest_ = true;
    return false;
  }
  const auto time = Believable(*command.UTCDateTime, host_.Time);
  if (time == ofEarlierRuns_->Time) return hasPassedNewest_;
  return time > ofEarlierRuns_->Time;
}

void CommandMemory::Remember(const Spot& command) {
  LoadOnce();
  if (command.UTCDateTime) return RememberByTime(command);
  if (!undated_.AddInFront(true, UndatedLine(command))) return;
  undated_.Trim(MostUndated);
  isUndatedSaved_ = false;
}

void CommandMemory::RememberByTime(const Spot& command) {
  ofThisRun_.AddInFront(true, command.ID);
  ofThisRun_.AddInFront(true, DatedIdentity(command));
  ofThisRun_.Trim(MostRemembered);
  const auto time = Believable(*command.UTCDateTime, host_.Time);
  if (newest_ && time < newest_->Time) return;
  newest_ = {time, StoredID(command.ID)};
  isSaved_ = false;
}

void CommandMemory::Save() {
  SaveNewest();
  SaveUndated();
}

void CommandMemory::SaveNewest() {
  if (std::exchange(isSaved_, true)) return;
  if (!prepareSettingsFile_()) return;
  SettingsFile(host_, settingsPath_)
      .WriteStringKey(Section, Key, DateTimeText(newest_->Time) + " " + newest_->ID);
}

void CommandMemory::SaveUndated() {
  if (isUndatedSaved_) return;
  std::vector<std::string> lines;
  for (const auto& entry : undated_) lines.push_back(entry.Key);
  isUndatedSaved_ = undatedFile_.Write(lines);
}

namespace {

constexpr std::int64_t LifeInMinutes = std::int64_t{24} * 60;

}  // namespace

WaitingCommands::WaitingCommands(Host& host) : host_(host), file_(host, WaitingCommandsFile) {}

void WaitingCommands::LoadOnce() {
  if (std::exchange(isLoaded_, true)) return;
  for (const auto& line : file_.Read()) {
    SOTAAlert command;
    if (SetDelimitedData(command, line) && command.UTCAlertDateAndTime) {
      commands_.Add(command, DelimitedData(command));
    } else {
      LogEvent(host_,
               std::string(WaitingCommandsFile) + " - A line that is no command was not kept: " + line);
    }
  }
}

bool WaitingCommands::Empty() {
  LoadOnce();
  return commands_.Empty();
}

void WaitingCommands::Add(const SOTAAlert& command) {
  LoadOnce();
  if (commands_.Add(command, DelimitedData(command))) isSaved_ = false;
}

void WaitingCommands::DropOld() {
  std::vector<std::string> old;
  for (const auto& [data, command] : commands_) {
    if (MinutesBetween(*command.UTCAlertDateAndTime, UTCNow(host_.Time)) >= LifeInMinutes)
      old.push_back(data);
  }
  for (const auto& data : old) {
    commands_.Remove(data);
    LogEvent(host_,
             std::string(WaitingCommandsFile) + " - A command that is a day old was not kept: " + data);
  }
}

std::vector<SOTAAlert> WaitingCommands::TakeAll() {
  LoadOnce();
  isSaved_ = isSaved_ && commands_.Empty();
  DropOld();
  std::vector<SOTAAlert> all;
  for (const auto& entry : commands_) all.push_back(entry.Item);
  commands_.Clear();
  return all;
}

bool WaitingCommands::Save() {
  if (isSaved_) return true;
  DropOld();
  std::vector<std::string> lines;
  for (const auto& entry : commands_) lines.push_back(entry.Key);
  isSaved_ = file_.Write(lines);
  return isSaved_;
}

}  // namespace brelwin
