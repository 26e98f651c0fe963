// Which alert commands have been acted on, once each, also when the feed delivers them again or the program
// is started anew, and which wait for the alerts they are about, in the order of their spots. The newest
// one acted on is known by its time; those whose spots have no time are known by their texts, one a line of
// "SOTAAlertCommandsUndated.txt"; the waiting ones are the lines of "SOTAAlertCommandsWaiting.txt", each
// the delimited data of the alert that its spot makes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "alerts/sota_alert.h"
#include "base/keyed_collection.h"
#include "core/line_file.h"
#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

class CommandMemory {
 public:
  // The newest command acted on is kept in the settings file. `prepareSettingsFile` is called before it is
  // written: it makes the file when there is none, since one with this one value would look like one without
  // settings, and tells whether the file may be written.
  CommandMemory(Host& host, std::string settingsPath, std::function<bool()> prepareSettingsFile);

  // Whether the command has not been acted on: neither in this run nor, as far as it is not newer than the
  // newest one of earlier runs, before. To be asked in the order of the commands, the oldest first.
  bool IsNew(const Spot& command);

  // For this run.
  void Remember(const Spot& command);

  // For the runs to come: writes the newest of the remembered commands to the settings file, and those
  // without a time to theirs.
  void Save();

 private:
  struct Newest {
    DateTime Time;
    std::string ID;
  };

  void LoadOnce();
  void LoadNewest();
  bool IsNewByTime(const Spot& command);
  void RememberByTime(const Spot& command);
  void SaveNewest();
  void SaveUndated();

  Host& host_;
  std::string settingsPath_;
  std::function<bool()> prepareSettingsFile_;
  bool isLoaded_ = false;
  std::optional<Newest> ofEarlierRuns_;
  bool hasPassedNewest_ = false;
  std::optional<Newest> newest_;
  bool isSaved_ = true;
  KeyedCollection<bool> ofThisRun_;  // keyed by the spots' IDs, the newest first
  LineFile undatedFile_;
  bool isUndatedSaved_ = true;
  KeyedCollection<bool> undated_;  // keyed by lines of the file, the newest first
};

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
