// The operator's logs on the disk: read at the start, looked at every few seconds.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "controls/control.h"
#include "needs/log_file.h"
#include "platform/host.h"

namespace brelwin {

class LogWatch {
 public:
  // The box names the files, with ";" between them; the label says what was read of them.
  LogWatch(Host& world, const TextBox& files, Label& state) : world_(world), files_(files), state_(state) {}

  // Raised when contacts came or went.
  Signal Changed;

  // Reads the files that the box names, and goes on looking at them. Called again it begins anew.
  void Start();

  // The marks by all logs together. None without a contact in any log.
  NeedMarks MarksOf(std::string_view callsign, std::string_view summit, DateTime now) const;

  bool IsEmpty() const;

 private:
  struct Watched {
    std::string Path;
    LogFile Log;
    std::size_t FaultsTold = 0;
    bool IsMissingTold = false;
  };

  void LookAndGoOn();
  bool Look(Watched& watched);
  void Tell(Watched& watched);
  void Say();

  Host& world_;
  const TextBox& files_;
  Label& state_;
  std::vector<Watched> logs_;
  TimerHandle next_;
};

}  // namespace brelwin
