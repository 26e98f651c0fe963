#include "alerts/command_memory.h"

#include <utility>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/ini_utilities.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::string_view Section = "General";
constexpr std::string_view Key = "LastAlertCommand";
constexpr std::size_t TimeLength = 19;
constexpr std::size_t LongestStoredID = 100;  // with the time, less than a value can hold
constexpr std::size_t MostRemembered = 10000;
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

clsINIUtilities SettingsFile(Host& host, const std::string& path) {
  clsINIUtilities file(host);
  file.INIPath = path;
  return file;
}

}  // namespace

CommandMemory::CommandMemory(Host& host, std::string settingsPath, std::function<bool()> prepareSettingsFile)
    : host_(host),
      settingsPath_(std::move(settingsPath)),
      prepareSettingsFile_(std::move(prepareSettingsFile)) {}

void CommandMemory::LoadOnce() {
  if (isLoaded_) return;
  isLoaded_ = true;
  const auto value = SettingsFile(host_, settingsPath_).ReadStringKey(Section, Key);
  const auto time = ReadDateTime(std::string_view(value).substr(0, TimeLength));
  if (!time) return;
  ofEarlierRuns_ = {Believable(*time, host_.Time), StoredID(std::string_view(value).substr(TimeLength))};
  newest_ = ofEarlierRuns_;
}

DateTime CommandMemory::TimeOf(const Spot& command) const {
  return Believable(command.UTCDateTime.value_or(UTCNow(host_.Time)), host_.Time);
}

bool CommandMemory::IsNew(const Spot& command) {
  LoadOnce();
  if (ofThisRun_.Contains(command.ID)) return false;
  if (!ofEarlierRuns_) return true;
  if (StoredID(command.ID) == ofEarlierRuns_->ID) {
    hasPassedNewest_ = true;
    return false;
  }
  const auto time = TimeOf(command);
  if (time == ofEarlierRuns_->Time) return hasPassedNewest_;
  return time > ofEarlierRuns_->Time;
}

void CommandMemory::Remember(const Spot& command) {
  LoadOnce();
  ofThisRun_.AddInFront(true, command.ID);
  ofThisRun_.Trim(MostRemembered);
  const auto time = TimeOf(command);
  if (newest_ && time < newest_->Time) return;
  newest_ = {time, StoredID(command.ID)};
  isSaved_ = false;
}

void CommandMemory::Save() {
  if (std::exchange(isSaved_, true)) return;
  if (!prepareSettingsFile_()) return;
  SettingsFile(host_, settingsPath_)
      .WriteStringKey(Section, Key, DateTimeText(newest_->Time) + " " + newest_->ID);
}

}  // namespace brelwin
