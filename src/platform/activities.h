// What is going on, and what may begin meanwhile. There is one thread: every wait lets the event queue run,
// so whatever begins does so in the middle of something else.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace brelwin {

enum class Activity : std::uint8_t {
  FetchInProgress,        // a page is being read that nothing may start beside
  CheckInProgress,        // the check of a tick
  StreamStepsInProgress,  // the part of a check that concerns alerts, stream and gateway
  SendInProgress,         // a form was submitted and its answer is awaited
  OpenInProgress,         // a stream's connection is awaited
  StartupDelay,           // the countdown before anything is asked of the internet
  FormLoading,            // from the beginning until start-up is done
  ShuttingDown,           // quitting was asked for; this one never ends
};
inline constexpr std::size_t ActivityCount = 8;

enum class Work : std::uint8_t {
  Handler,      // the user looks at something, or sets it
  Command,      // the user asks for work
  Tick,         // the check timer's
  Check,        // what a tick does; where it may not start the tick counts down
  Fetch,        // of a page
  StreamSteps,  // of a check, which else leaves them out
  LoginTest,    // of the gateway's account
  Send,         // of a form, which else waits or is refused in words
  Open,         // of a stream's connection
};
inline constexpr std::size_t WorkCount = 9;

struct StartRule {
  Work What;
  std::array<bool, ActivityCount> MayNotStartDuring{};

  constexpr StartRule(Work what, std::initializer_list<Activity> mayNotStartDuring) : What(what) {
    for (const auto activity : mayNotStartDuring)
      MayNotStartDuring[static_cast<std::size_t>(activity)] = true;
  }
};

// In the order of Work. Beside it a control or the timer may be off: then nobody asks.
inline constexpr std::array<StartRule, WorkCount> StartRules{{
    {Work::Handler, {Activity::FormLoading, Activity::ShuttingDown}},
    {Work::Command, {Activity::FetchInProgress, Activity::FormLoading, Activity::ShuttingDown}},
    {Work::Tick, {Activity::FetchInProgress, Activity::ShuttingDown}},
    {Work::Check, {Activity::StartupDelay}},
    {Work::Fetch, {Activity::FetchInProgress}},
    {Work::StreamSteps, {Activity::StreamStepsInProgress, Activity::SendInProgress}},
    {Work::LoginTest,
     {Activity::FetchInProgress, Activity::SendInProgress, Activity::FormLoading, Activity::ShuttingDown}},
    {Work::Send, {Activity::SendInProgress}},
    {Work::Open, {Activity::OpenInProgress}},
}};

constexpr bool MayStart(Work work, Activity during) {
  return !StartRules[static_cast<std::size_t>(work)].MayNotStartDuring[static_cast<std::size_t>(during)];
}

// What is going on just now. The same activity may go on several times, one within the other.
class Activities {
 public:
  bool Includes(Activity activity) const { return counts_[static_cast<std::size_t>(activity)] > 0; }

  // Whether the work may start beside all of them.
  bool LetStart(Work work) const {
    for (std::size_t index = 0; index < ActivityCount; ++index) {
      if (counts_[index] > 0 && !MayStart(work, static_cast<Activity>(index))) return false;
    }
    return true;
  }

 private:
  friend class ActivityMark;

  std::array<std::uint32_t, ActivityCount> counts_{};
};

// Says for as long as it lives that the activity goes on. The activities must outlive it.
class ActivityMark {
 public:
  ActivityMark(Activities& activities, Activity activity)
      : count_(activities.counts_[static_cast<std::size_t>(activity)]) {
    ++count_;
  }
  ActivityMark(const ActivityMark&) = delete;
  ActivityMark& operator=(const ActivityMark&) = delete;
  ~ActivityMark() { --count_; }

 private:
  std::uint32_t& count_;
};

}  // namespace brelwin
