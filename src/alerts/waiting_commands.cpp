#include "alerts/waiting_commands.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/event_log.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::string_view FileName = "SOTAAlertCommandsWaiting.txt";
constexpr std::int64_t LifeInMinutes = 24 * 60;

}  // namespace

WaitingCommands::WaitingCommands(Host& host) : host_(host), file_(host, FileName) {}

void WaitingCommands::LoadOnce() {
  if (std::exchange(isLoaded_, true)) return;
  for (const auto& line : file_.Read()) {
    SOTAAlert command;
    if (SetDelimitedData(command, line) && command.UTCAlertDateAndTime) {
      commands_.push_back(std::move(command));
    } else {
      LogEvent(host_, std::string(FileName) + " - A line that is no command was not kept: " + line);
    }
  }
}

bool WaitingCommands::Empty() {
  LoadOnce();
  return commands_.empty();
}

void WaitingCommands::Add(const SOTAAlert& command) {
  LoadOnce();
  const auto data = DelimitedData(command);
  if (std::ranges::any_of(commands_, [&](const auto& held) { return DelimitedData(held) == data; })) return;
  commands_.push_back(command);
  isSaved_ = false;
}

std::vector<SOTAAlert> WaitingCommands::TakeAll() {
  LoadOnce();
  isSaved_ = isSaved_ && commands_.empty();
  return std::exchange(commands_, {});
}

bool WaitingCommands::Save() {
  if (isSaved_) return true;
  std::erase_if(commands_, [now = UTCNow(host_.Time)](const auto& command) {
    return MinutesBetween(*command.UTCAlertDateAndTime, now) >= LifeInMinutes;
  });
  std::vector<std::string> lines;
  for (const auto& command : commands_) lines.push_back(DelimitedData(command));
  isSaved_ = file_.Write(lines);
  return isSaved_;
}

}  // namespace brelwin
