#include "core/event_log.h"

#include <string>

#include "base/encoding.h"
#include "base/line_text.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/runtime_error.h"
#include "radio/dates.h"

namespace brelwin {
namespace {

std::string OnOneLine(std::string_view message) {
  std::string line;
  line.reserve(message.size());
  while (!message.empty()) {
    const auto codePoint = TakeCodePoint(message);
    AppendCodePoint(line, IsControlCharacter(codePoint) ? U' ' : codePoint);
  }
  return line;
}

void AppendLine(Host& host, std::string_view fileName, std::string_view message) {
  const auto name = Trim(fileName);
  const auto path = name.empty() ? InProgramFolder(host, EventLogFile) : std::string(name);
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
