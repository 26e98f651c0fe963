#include "around/log_watch.h"

#include <algorithm>

#include "base/record_faults.h"
#include "base/text.h"
#include "core/program_path.h"
#include "core/trap.h"

namespace brelwin {
namespace {

constexpr Milliseconds BetweenLooks{5000};

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// What is new for one log is new for all only if none of them has it.
NeedMarks Together(const NeedMarks& one, const NeedMarks& other) {
  NeedMarks marks;
  marks.IsNewSummit = one.IsNewSummit && other.IsNewSummit;
  marks.CompletesSummit = marks.IsNewSummit && (one.CompletesSummit || other.CompletesSummit);
  marks.IsNewThisYear = one.IsNewThisYear && other.IsNewThisYear;
  marks.IsNewAssociation = one.IsNewAssociation && other.IsNewAssociation;
  marks.IsWorkedToday = one.IsWorkedToday || other.IsWorkedToday;
  return marks;
}

}  // namespace

void LogWatch::Start() {
  logs_.clear();
  next_ = {};
  for (const auto name : Split(files_.Text.Get(), ";")) {
    auto path = FullLogName(world_, name);
    if (!path.empty()) logs_.push_back({path, LogFile(path)});
  }
  LookAndGoOn();
  Changed.Raise();
}

void LogWatch::LookAndGoOn() {
  LogErrors(world_, "WatchLogs", false, [&] {
    bool hasChanged = false;
    for (auto& watched : logs_) hasChanged = Look(watched) || hasChanged;
    Say();
    if (hasChanged) Changed.Raise();
    return true;
  });
  if (!logs_.empty() && !world_.ShuttingDown)
    next_ = world_.Events.CallAfter(BetweenLooks, [this] { LookAndGoOn(); });
}

bool LogWatch::Look(Watched& watched) {
  const auto change = watched.Log.Look(world_.Disk);
  if (change == LogChange::Replaced) watched.FaultsTold = 0;
  Tell(watched);
  return change != LogChange::None;
}

void LogWatch::Tell(Watched& watched) {
  const bool isMissing = !watched.Log.IsThere();
  if (isMissing && !watched.IsMissingTold)
    LogEvent(world_, "WatchLogs - " + watched.Path + ": the file cannot be read");
  watched.IsMissingTold = isMissing;
  const auto words = FaultWords(watched.Log.Faults(), watched.FaultsTold);
  if (!words.empty()) LogEvent(world_, "WatchLogs - " + watched.Path + ": " + words);
  watched.FaultsTold = watched.Log.Faults().Count;
}

void LogWatch::Say() {
  if (logs_.empty())
    return void(state_.Caption = std::string("No log is read: nothing is marked as needed."));
  std::size_t contacts = 0;
  std::size_t faults = 0;
  std::string missing;
  for (const auto& watched : logs_) {
    contacts += watched.Log.ContactCount();
    faults += watched.Log.Faults().Count;
    if (!watched.Log.IsThere()) missing += ". " + watched.Path + " cannot be read";
  }
  auto words = Counted(contacts, "contact") + " in " + Counted(logs_.size(), "log");
  if (faults > 0) words += ". Left out, see the event log: " + Counted(faults, "broken record");
  state_.Caption = words + missing;
}

NeedMarks LogWatch::MarksOf(std::string_view callsign, std::string_view summit, DateTime now) const {
  if (IsEmpty()) return {};
  auto marks = logs_.front().Log.Worked().MarksOf(callsign, summit, now);
  for (std::size_t i = 1; i < logs_.size(); ++i)
    marks = Together(marks, logs_[i].Log.Worked().MarksOf(callsign, summit, now));
  return marks;
}

bool LogWatch::IsEmpty() const {
  return std::ranges::all_of(logs_, [](const Watched& watched) { return watched.Log.Worked().IsEmpty(); });
}

}  // namespace brelwin
