// The file system as the program sees it. Paths may use backslashes, and a file whose name differs only in
// letter case is found, so that a folder copied from another system works as it is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// Who may read a file that is created. Files that can hold the password are for their owner only.
enum class FileAccess : std::uint8_t { Everyone, OwnerOnly };

// What became of a write: an empty error text means that it was done.
struct FileResult {
  std::string ErrorText;
  bool Done() const { return ErrorText.empty(); }
};

class Files {
 public:
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  // True when there is a file (not a folder) of this name.
  virtual bool Exists(std::string_view path) const = 0;

  // The whole file as bytes; empty when it does not exist or cannot be read.
  virtual std::optional<std::string> Read(std::string_view path) const = 0;

  // Replaces or creates the file. It is written beside itself and renamed: whatever happens in between, the
  // old file or the new one is there, whole. An existing file keeps its permissions, but OwnerOnly narrows
  // them.
  virtual FileResult Write(std::string_view path, std::string_view bytes, FileAccess access) = 0;

  // Adds the bytes at the end of the file, creating it when there is none, in one write.
  virtual FileResult Append(std::string_view path, std::string_view bytes, FileAccess access) = 0;

  // Removes the file; done also when there is none.
  virtual FileResult Delete(std::string_view path) = 0;

  // Names of the files in the folder, in no order; none when it cannot be read.
  virtual std::vector<std::string> NamesIn(std::string_view folder) const = 0;

  // Length in bytes; empty when there is no such file.
  virtual std::optional<std::uint64_t> Length(std::string_view path) const = 0;
};

}  // namespace brelwin
