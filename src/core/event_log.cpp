#include "core/event_log.h"

#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/runtime_error.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

constexpr std::string_view DefaultFileName = "BrelwinEventLog.txt";

bool IsControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

std::string OnOneLine(std::string_view message) {
  std::string line;
  line.reserve(message.size());
  while (!message.empty()) {
    const auto codePoint = TakeCodePoint(message);
    AppendCodePoint(line, IsControl(codePoint) ? U' ' : codePoint);
  }
  return line;
}

void AppendLine(Host& host, std::string_view fileName, std::string_view message) {
  const auto name = Trim(fileName);
  const auto path = name.empty() ? InProgramFolder(host, DefaultFileName) : std::string(name);
  auto line = message.empty() ? " " : DateTimeText(host.Time.LocalNow()) + ": " + OnOneLine(message);
  line.append(LineEnd);
  host.Disk.Append(path, line, FileAccess::Everyone);
}

}  // namespace

void LogEvent(Host& host, std::string_view fileName, std::string_view message) {
  TrapErrorsSilently([&] { AppendLine(host, fileName, message); });
}

void LogEvent(Host& host, std::string_view message) {
  LogEvent(host, {}, message);
}

}  // namespace brelwin
