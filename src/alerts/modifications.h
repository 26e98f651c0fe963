// The modifications file: alerts added and removed by hand, by spots or for their own window, one entry a
// line, which must outlive the next reading of the alerts page.
//
// An entry is "ADD||" or "DEL||" and an alert's delimited data. The file is replaced as a whole, never
// deleted and then written, so a crash at any instant loses no entry.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "alerts/alert_collection.h"
#include "platform/host.h"

namespace brelwin {

enum class ModificationCommand : std::uint8_t { Add, Delete, Other };

// The line of an entry, without its end; line ends within its texts become blanks.
std::string ModificationLine(ModificationCommand command, const SOTAAlert& alert);

// Adds the entries at the end of the file, or of "SOTAAlertModifications.txt" in the program's folder when
// the path is empty; creates it when there is none. An unfinished last line is finished first. Writes nothing
// for no entries. True when they are there.
bool AppendModifications(Host& host, std::string_view path, const std::vector<std::string>& lines);

// The file in memory, for the time of one change: read once, changed, applied and written once.
class Modifications {
 public:
  // Reads the file, or the default one for an empty path, without what has expired: additions once their
  // alert's window has ended (`defaultAfterWindow` minutes where it has none of its own), deletions 24 hours
  // after the alert time, entries without an alert time at once. Lines with fewer fields than an entry has
  // are left out, each with a log line. No file means no entries; one that cannot be read gives none either,
  // and Save leaves it alone.
  static Modifications Load(Host& host, std::string_view path, DateTime utcNow,
                            std::int32_t defaultAfterWindow);

  // Whether there is a "DEL" entry for the key. Keys have no letter case.
  bool HoldsDeletion(std::string_view key) const;

  // Drops the entries of the key, except deletions that have outlived the window of their alert.
  void RemoveEntries(std::string_view key);

  // Adds an entry at the end, unless it has expired already.
  void AddEntry(ModificationCommand command, const SOTAAlert& alert);

  // Removes what "DEL" entries name and puts in front what "ADD" entries hold, in the order of the entries.
  void ApplyTo(AlertCollection& alerts) const;

  // Writes the file if it is to change; a file without entries is deleted. False when that failed: the file
  // is then as it was, and the log says so.
  bool Save(Host& host) const;

 private:
  struct Entry {
    ModificationCommand Command = ModificationCommand::Other;
    std::string Line;
    std::string Key;
    bool IsLive = true;  // else a deletion that outlives the window of its alert
    bool IsRemoved = false;
  };

  void TakeLine(Host& host, std::string_view line);
  void TakeEntry(std::string line, const SOTAAlert& alert);
  std::string Text() const;

  std::string path_;
  DateTime utcNow_;
  std::int32_t defaultAfterWindow_ = 0;
  std::optional<std::string> before_;  // the file's bytes; empty when there is none
  bool isUnreadable_ = false;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::vector<std::size_t>> ofKey_;
};

}  // namespace brelwin
