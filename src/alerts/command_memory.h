// Which alert commands have been acted on. A command is acted on once, also when the feed delivers it again
// or the program is started anew. The newest one is known by its time; those whose spots have no time are
// known by their texts, one a line of "SOTAAlertCommandsUndated.txt".
#pragma once

#include <functional>
#include <optional>
#include <string>

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

}  // namespace brelwin
