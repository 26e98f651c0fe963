#include "platform/system_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "platform/file_descriptor.h"
#include "platform/file_paths.h"

namespace brelwin {
namespace {

constexpr std::uint64_t LargestFile = 256ULL << 20U;
constexpr mode_t OwnerModes = S_IRUSR | S_IWUSR;
constexpr mode_t EveryoneModes = OwnerModes | S_IRGRP | S_IROTH;
constexpr mode_t PermissionBits = 07777;
constexpr std::string_view NewFileSuffix = ".brelwin-new";

FileResult LastError() {
  return {SystemErrorText(errno)};
}

// A name with a NUL in it would be cut there and mean another file.
bool IsPath(std::string_view path) {
  return !path.empty() && path.find('\0') == std::string_view::npos;
}

std::optional<struct stat> StatusOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return {};
  return status;
}

std::optional<struct stat> RegularFile(std::string_view path) {
  if (!IsPath(path)) return {};
  const auto status = StatusOf(ResolvePath(path));
  return status && S_ISREG(status->st_mode) ? status : std::nullopt;
}

FileDescriptor Open(const std::string& path, int flags, mode_t mode = 0) {
  return FileDescriptor(::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, mode));
}

bool WriteAll(const FileDescriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto written = ::write(file.Number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::optional<std::string> ReadAll(const FileDescriptor& file, std::size_t expected) {
  std::string bytes(expected + 1, '\0');  // one more, so that the end shows without growing
  std::size_t length = 0;
  while (true) {
    const auto count = ::read(file.Number(), bytes.data() + length, bytes.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return {};
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
    if (length > LargestFile) return {};
    if (length == bytes.size()) bytes.resize(length * 2);
  }
  bytes.resize(length);
  return bytes;
}

// Gives the new file the permissions, and where we may the owner, of the one that it will replace.
bool TakeOver(const FileDescriptor& file, const struct stat& old, FileAccess access) {
  const auto narrowed = access == FileAccess::OwnerOnly ? old.st_mode & OwnerModes : old.st_mode;
  const bool ownerTaken = ::fchown(file.Number(), old.st_uid, old.st_gid) == 0;
  const mode_t kept = ownerTaken ? PermissionBits : EveryoneModes | S_IWGRP | S_IWOTH;
  return ::fchmod(file.Number(), narrowed & kept) == 0;
}

mode_t CreationMode(FileAccess access) {
  return access == FileAccess::OwnerOnly ? OwnerModes : EveryoneModes;
}

// Writes the new file beside its place. What an interrupted write left there is of no value.
FileResult WriteNewFile(const std::string& path, std::string_view bytes, FileAccess access,
                        const std::optional<struct stat>& old) {
  ::unlink(path.c_str());
  const auto file = Open(path, O_WRONLY | O_CREAT | O_EXCL, CreationMode(access));
  if (!file.IsOpen()) return LastError();
  if (old && !TakeOver(file, *old, access)) return LastError();
  if (!WriteAll(file, bytes) || ::fsync(file.Number()) != 0) return LastError();
  return {};
}

void TakeBack(const FileDescriptor& file, const struct stat& before) {
  if (S_ISREG(before.st_mode) && ::ftruncate(file.Number(), before.st_size) != 0) return;
}

FileResult AppendTo(const FileDescriptor& file, std::string_view bytes, FileAccess access) {
  struct stat before {};
  if (::fstat(file.Number(), &before) != 0) return LastError();
  if (!S_ISREG(before.st_mode) && !S_ISCHR(before.st_mode)) return {"Not a regular file"};
  const bool isTooOpen =
      access == FileAccess::OwnerOnly && (before.st_mode & PermissionBits & ~OwnerModes) != 0;
  if (isTooOpen && ::fchmod(file.Number(), before.st_mode & OwnerModes) != 0) return LastError();
  if (WriteAll(file, bytes)) return {};
  auto failure = LastError();
  TakeBack(file, before);
  return failure;
}

}  // namespace

bool SystemFiles::Exists(std::string_view path) const {
  return RegularFile(path).has_value();
}

std::optional<std::string> SystemFiles::Read(std::string_view path) const {
  const auto status = RegularFile(path);
  if (!status || static_cast<std::uint64_t>(status->st_size) > LargestFile) return {};
  const auto file = Open(ResolvePath(path), O_RDONLY);
  if (!file.IsOpen()) return {};
  return ReadAll(file, static_cast<std::size_t>(status->st_size));
}

FileResult SystemFiles::Write(std::string_view path, std::string_view bytes, FileAccess access) {
  if (!IsPath(path)) return {"Invalid file name"};
  const auto target = FollowLinks(ResolvePath(path));
  const auto old = StatusOf(target);
  if (old && !S_ISREG(old->st_mode)) return {"Not a regular file"};
  if (old && ::access(target.c_str(), W_OK) != 0) return LastError();
  const auto newFile = target + std::string(NewFileSuffix);
  auto result = WriteNewFile(newFile, bytes, access, old);
  if (result.Done() && ::rename(newFile.c_str(), target.c_str()) != 0) result = LastError();
  if (!result.Done()) ::unlink(newFile.c_str());
  return result;
}

FileResult SystemFiles::Append(std::string_view path, std::string_view bytes, FileAccess access) {
  if (!IsPath(path)) return {"Invalid file name"};
  const auto file = Open(ResolvePath(path), O_WRONLY | O_APPEND | O_CREAT, CreationMode(access));
  if (!file.IsOpen()) return LastError();
  return AppendTo(file, bytes, access);
}

FileResult SystemFiles::Delete(std::string_view path) {
  if (!IsPath(path)) return {"Invalid file name"};
  if (::unlink(ResolvePath(path).c_str()) != 0 && errno != ENOENT) return LastError();
  return {};
}

std::vector<std::string> SystemFiles::NamesIn(std::string_view folder) const {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(ResolvePath(folder), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
    names.push_back(entry->path().filename().string());
  return names;
}

std::optional<std::uint64_t> SystemFiles::Length(std::string_view path) const {
  const auto status = RegularFile(path);
  if (!status) return {};
  return static_cast<std::uint64_t>(status->st_size);
}

}  // namespace brelwin
