#include "platform/file_paths.h"

#include <filesystem>
#include <system_error>

#include "base/text.h"

namespace brelwin {
namespace {

namespace fs = std::filesystem;

constexpr int MostLinks = 40;  // as the kernel has it; more are a circle

bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

// The name under which the folder holds `name`, whatever its letter case; `name` itself when it holds none.
std::string NameInFolder(const fs::path& folder, const std::string& name) {
  std::string found;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? "." : folder, error);
  while (!error && entry != fs::directory_iterator()) {
    const auto candidate = entry->path().filename().string();
    if (EqualsIgnoringCase(candidate, name) && (found.empty() || candidate < found)) found = candidate;
    entry.increment(error);
  }
  return found.empty() ? name : found;
}

}  // namespace

std::string ResolvePath(std::string_view path) {
  const fs::path asWritten(Replace(path, "\\", "/"));
  if (IsThere(asWritten)) return asWritten.string();
  fs::path resolved;
  for (const auto& part : asWritten) {
    const auto exact = resolved / part;
    resolved = IsThere(exact) ? exact : resolved / NameInFolder(resolved, part.string());
  }
  return resolved.string();
}

std::string FollowLinks(std::string path) {
  std::error_code error;
  for (int links = 0; links < MostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++links) {
    const auto target = fs::read_symlink(path, error);
    if (error) return path;
    path = (fs::path(path).parent_path() / target).string();
  }
  return path;
}

}  // namespace brelwin
