#include "platform/program_folder.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/file_descriptor.h"
#include "platform/system_information.h"

namespace brelwin {
namespace {

namespace fs = std::filesystem;

ProgramFolder FolderOfExecutable() {
  std::error_code error;
  const auto executable = fs::read_symlink("/proc/self/exe", error);
  if (error) return {".", SystemErrorText(error.value())};
  return {executable.parent_path().string(), {}};
}

// "." and a separator at the end go, so that messages name the folder as the user knows it.
std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const auto absolute = fs::absolute(path, error).lexically_normal();
  return (absolute.has_filename() ? absolute : absolute.parent_path()).string();
}

}  // namespace

ProgramFolder FindProgramFolder() {
  const auto named = EnvironmentVariable("BRELWIN_FOLDER").value_or("");
  if (named.empty()) return FolderOfExecutable();
  const auto path = AbsolutePath(named);
  std::error_code error;
  fs::create_directories(path, error);
  if (error) return {path, SystemErrorText(error.value())};
  if (!fs::is_directory(path, error)) return {path, SystemErrorText(ENOTDIR)};
  return {path, {}};
}

std::optional<FolderLock> FolderLock::Take(const std::string& folder) {
  FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (::flock(descriptor.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return {};
  return FolderLock(std::move(descriptor));
}

}  // namespace brelwin
