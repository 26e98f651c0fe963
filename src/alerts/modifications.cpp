#include "alerts/modifications.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/trap.h"

namespace brelwin {
namespace {

constexpr std::size_t CommandLength = 3;
constexpr std::size_t PrefixLength = 5;  // the command and the delimiter
constexpr std::int64_t DeletionLifeInMinutes = std::int64_t{24} * 60;

std::string PathOrDefault(const Host& host, std::string_view path) {
  return path.empty() ? InProgramFolder(host, AlertModificationsFile) : std::string(path);
}

ModificationCommand CommandOf(std::string_view line) {
  const auto command = UpperCase(line.substr(0, CommandLength));
  if (command == "ADD") return ModificationCommand::Add;
  return command == "DEL" ? ModificationCommand::Delete : ModificationCommand::Other;
}

std::string_view DataOf(std::string_view line) {
  return line.substr(PrefixLength);
}

void AddFromLine(std::string_view line, AlertCollection& alerts) {
  auto alert = std::make_shared<SOTAAlert>();
  if (SetDelimitedData(*alert, DataOf(line))) alerts.AddInFront(std::move(alert));
}

void Withdraw(std::string_view key, AlertCollection& alerts) {
  auto alert = alerts.Find(key);
  if (!alerts.Remove(key)) return;
  alerts.NoteWithdrawn(std::move(alert), Withdrawal::RemovedByEntry);
}

}  // namespace

std::string ModificationLine(ModificationCommand command, const SOTAAlert& alert) {
  std::string line = command == ModificationCommand::Delete ? "DEL" : "ADD";
  line.append(DataDelimiter()).append(DelimitedData(alert));
  std::ranges::replace_if(
      line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

bool AppendModifications(Host& host, std::string_view path, const std::vector<std::string>& lines) {
  return AppendLines(host, PathOrDefault(host, path), lines);
}

Modifications Modifications::Load(Host& host, std::string_view path, DateTime utcNow,
                                  std::int32_t defaultAfterWindow) {
  Modifications modifications;
  modifications.path_ = PathOrDefault(host, path);
  modifications.utcNow_ = utcNow;
  modifications.defaultAfterWindow_ = defaultAfterWindow;
  modifications.before_ = host.Disk.Read(modifications.path_);
  modifications.isUnreadable_ = !modifications.before_ && host.Disk.Exists(modifications.path_);
  const auto text = TextFromBytes(modifications.before_.value_or(""));
  for (const auto line : SplitLines(text)) modifications.TakeLine(host, Trim(line));
  return modifications;
}

void Modifications::TakeLine(Host& host, std::string_view line) {
  if (line.size() <= PrefixLength) return;
  SOTAAlert alert;
  if (SetDelimitedData(alert, DataOf(line))) {
    TakeEntry(std::string(line), alert);
  } else {
    LogEvent(host, path_ + " - An entry with fewer than 13 fields was not kept: " + std::string(line));
  }
}

void Modifications::TakeEntry(std::string line, const SOTAAlert& alert) {
  if (!alert.UTCAlertDateAndTime) return;
  const auto command = CommandOf(line);
  const auto after =
      alert.MaxMinutesAfterAlertTime == 0 ? defaultAfterWindow_ : alert.MaxMinutesAfterAlertTime;
  const auto age = MinutesBetween(*alert.UTCAlertDateAndTime, utcNow_);
  const bool isLive = age < after;
  if (!isLive && (command != ModificationCommand::Delete || age >= DeletionLifeInMinutes)) return;
  ofKey_[UpperCase(alert.ID)].push_back(entries_.size());
  entries_.push_back({command, std::move(line), alert.ID, isLive, false});
}

bool Modifications::HoldsDeletion(std::string_view key) const {
  const auto found = ofKey_.find(UpperCase(key));
  return found != ofKey_.end() && std::ranges::any_of(found->second, [this](std::size_t i) {
           return entries_[i].Command == ModificationCommand::Delete;
         });
}

void Modifications::RemoveEntries(std::string_view key) {
  const auto found = ofKey_.find(UpperCase(key));
  if (found == ofKey_.end()) return;
  for (const auto i : found->second) entries_[i].IsRemoved = entries_[i].IsLive;
  std::erase_if(found->second, [this](std::size_t i) { return entries_[i].IsRemoved; });
}

void Modifications::AddEntry(ModificationCommand command, const SOTAAlert& alert) {
  TakeEntry(ModificationLine(command, alert), alert);
}

void Modifications::ApplyTo(AlertCollection& alerts) const {
  for (const auto& entry : entries_) {
    if (entry.IsRemoved) continue;
    switch (entry.Command) {
      case ModificationCommand::Add: AddFromLine(entry.Line, alerts); break;
      case ModificationCommand::Delete: Withdraw(entry.Key, alerts); break;
      case ModificationCommand::Other: break;
    }
  }
}

std::string Modifications::Text() const {
  std::string text;
  for (const auto& entry : entries_) {
    if (!entry.IsRemoved) text.append(entry.Line).append(LineEnd);
  }
  return text;
}

bool Modifications::Save(Host& host) const {
  if (isUnreadable_) {
    LogEvent(host, path_ + " could not be read and is left as it is.");
    return false;
  }
  const auto text = Text();
  if (before_ ? text == *before_ && !text.empty() : text.empty()) return true;
  const auto result =
      text.empty() ? host.Disk.Delete(path_) : host.Disk.Write(path_, text, FileAccess::Everyone);
  if (!result.Done()) LogEvent(host, path_ + " could not be written: " + result.ErrorText);
  return result.Done();
}

}  // namespace brelwin
