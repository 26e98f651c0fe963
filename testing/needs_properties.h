// What must hold of the operator's log, whatever is in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "memory_files.h"
#include "needs/log_file.h"

namespace brelwin::test {

// A log that is read while it grows comes to what it comes to when read at once.
inline bool GrowingLogReadsTheSame(std::string_view log, std::size_t cut) {
  MemoryFiles files;
  LogFile grown("log");
  files.Put("log", std::string(log.substr(0, cut)));
  grown.Look(files);
  LogFile whole("log");
  files.Put("log", std::string(log));
  for (int look = 0; look < 2; ++look) {
    grown.Look(files);
    whole.Look(files);
  }
  return grown.ContactCount() == whole.ContactCount() && grown.Faults().Named == whole.Faults().Named &&
         grown.Faults().Count == whole.Faults().Count;
}

}  // namespace brelwin::test
