// The file system of this machine.
#pragma once

#include "platform/files.h"

namespace brelwin {

// "A file" is a regular file: reading never waits for a pipe or a device. A file of more than 256 MiB is
// none of the program's and cannot be read.
class SystemFiles final : public Files {
 public:
  bool Exists(std::string_view path) const override;
  std::optional<std::string> Read(std::string_view path) const override;

  // A symbolic link stays, and the file it leads to is written. A file that its owner made read-only is not
  // replaced.
  FileResult Write(std::string_view path, std::string_view bytes, FileAccess access) override;

  // When the disk is full in the middle, what was added of these bytes is taken off again.
  FileResult Append(std::string_view path, std::string_view bytes, FileAccess access) override;

  FileResult Delete(std::string_view path) override;
  std::vector<std::string> NamesIn(std::string_view folder) const override;
  std::optional<std::uint64_t> Length(std::string_view path) const override;
};

}  // namespace brelwin
