// The one folder in which the program keeps all its files, and the lock that keeps a second instance out.
#pragma once

#include <optional>
#include <string>

#include "platform/file_descriptor.h"

namespace brelwin {

struct ProgramFolder {
  std::string Path;       // absolute, without a separator at its end
  std::string ErrorText;  // set when the folder is not there and could not be made
};

// The folder that the environment variable BRELWIN_FOLDER names, made when it is missing; without the
// variable, or with an empty one, the folder of the executable.
ProgramFolder FindProgramFolder();

// Held by the one instance that works in a folder, from before it writes a byte until it ends. The folder
// itself is locked: nothing is written, so it works where writing is not allowed, and a crash leaves nothing
// behind.
class FolderLock {
 public:
  // Empty when another instance holds the folder. On a file system that knows no such locks, nobody is
  // refused.
  static std::optional<FolderLock> Take(const std::string& folder);

 private:
  explicit FolderLock(FileDescriptor folder) : folder_(std::move(folder)) {}

  FileDescriptor folder_;
};

}  // namespace brelwin
