#include "core/data_files.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "core/runtime_error.h"

namespace brelwin {
namespace {

std::string SeparatorLine() {
  return std::string(LineEnd).append(44, '=').append(LineEnd);
}

FileResult WriteOrAppend(Host& host, std::string_view name, std::string_view text, bool append,
                         FileAccess access) {
  if (append && host.Disk.Exists(name)) return host.Disk.Append(name, SeparatorLine().append(text), access);
  return host.Disk.Write(name, text, access);
}

}  // namespace

std::string AddBackslash(std::string_view path) {
  std::string result(path);
  if (!result.empty() && result.back() != '\\') result.push_back('\\');
  return result;
}

std::string InProgramFolder(const Host& host, std::string_view fileName) {
  return AddBackslash(host.ProgramFolder).append(fileName);
}

bool FileExists(const Host& host, std::string_view fileName) {
  return TrapErrors([&] { return !fileName.empty() && host.Disk.Exists(fileName); }, false,
                    [](const RuntimeError&) {});
}

void DeleteFile(Host& host, std::string_view fileName) {
  if (fileName.empty()) return;
  TrapErrorsSilently([&] { host.Disk.Delete(fileName); });
}

std::int32_t GetFileLength(const Host& host, std::string_view fileName) {
  constexpr std::uint64_t Largest = std::numeric_limits<std::int32_t>::max();
  const auto length = fileName.empty() ? std::nullopt : host.Disk.Length(fileName);
  return static_cast<std::int32_t>(std::min(length.value_or(0), Largest));
}

bool AppendToFile(Host& host, std::string_view fileName, std::string_view text, bool append,
                  std::string& errorText, FileAccess access) {
  errorText.clear();
  const auto name = Trim(fileName);
  if (name.empty()) return false;
  const auto write = [&] {
    errorText = WriteOrAppend(host, name, text, append, access).ErrorText;
    return errorText.empty();
  };
  return TrapErrors(write, false, [&](const RuntimeError& error) { errorText = error.Description; });
}

bool AppendLines(Host& host, std::string_view filePath, const std::vector<std::string>& lines) {
  if (lines.empty()) return true;
  const auto append = [&] {
    const auto before = host.Disk.Read(filePath);
    if (!before && host.Disk.Exists(filePath)) return false;
    auto text = before.value_or("");
    if (!text.empty() && !text.ends_with('\n')) text.append(LineEnd);
    for (const auto& line : lines) text.append(line).append(LineEnd);
    return host.Disk.Write(filePath, text, FileAccess::Everyone).Done();
  };
  return TrapErrors(append, false, [](const RuntimeError&) {});
}

void ViewTextFile(Host& host, std::string_view filePath) {
  TrapErrorsSilently([&] { host.Desktop.ViewText(filePath); });
}

bool OpenDocument(Host& host, std::string_view pathOrAddress) {
  const auto document = Trim(pathOrAddress);
  if (document.empty()) return false;
  return TrapErrors([&] { return host.Desktop.Open(document); }, false, [](const RuntimeError&) {});
}

}  // namespace brelwin
