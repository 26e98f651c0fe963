// Alert commands that wait for the alerts they are about, in the order of their spots. They outlive the run
// in "SOTAAlertCommandsWaiting.txt", each as the delimited data of the alert that its spot makes.
#pragma once

#include <vector>

#include "alerts/sota_alert.h"
#include "base/keyed_collection.h"
#include "core/line_file.h"
#include "platform/host.h"

namespace brelwin {

class WaitingCommands {
 public:
  explicit WaitingCommands(Host& host);

  bool Empty();

  // Adds the command at the end, unless the same one waits already.
  void Add(const SOTAAlert& command);

  // All of them, which do not wait any longer, but for those that are a day old: the alerts around their time
  // are over, and the log says that they were not kept.
  std::vector<SOTAAlert> TakeAll();

  // Makes the file say what waits, without those that are a day old. True when it does.
  bool Save();

 private:
  void LoadOnce();
  void DropOld();

  Host& host_;
  LineFile file_;
  bool isLoaded_ = false;
  bool isSaved_ = true;
  KeyedCollection<SOTAAlert> commands_;  // by their delimited data
};

}  // namespace brelwin
