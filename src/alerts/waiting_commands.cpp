#include "alerts/waiting_commands.h"

#include <string>
#include <utility>

#include "core/event_log.h"
#include "core/file_names.h"
#include "radio/dates.h"

namespace brelwin {
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
