#include "core/line_file.h"

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/event_log.h"

namespace brelwin {

LineFile::LineFile(Host& host, std::string_view name) : host_(host), path_(InProgramFolder(host, name)) {}

std::vector<std::string> LineFile::Read() {
  const auto bytes = host_.Disk.Read(path_);
  isUnreadable_ = !bytes && host_.Disk.Exists(path_);
  if (isUnreadable_) LogEvent(host_, path_ + " could not be read and is left as it is.");
  const auto text = TextFromBytes(bytes.value_or(""));
  std::vector<std::string> lines;
  for (const auto line : SplitLines(text)) {
    if (const auto trimmed = Trim(line); !trimmed.empty()) lines.emplace_back(trimmed);
  }
  return lines;
}

bool LineFile::Write(const std::vector<std::string>& lines) {
  if (isUnreadable_) return false;
  std::string text;
  for (const auto& line : lines) text.append(line).append(LineEnd);
  const auto result =
      text.empty() ? host_.Disk.Delete(path_) : host_.Disk.Write(path_, text, FileAccess::Everyone);
  if (!result.Done()) LogEvent(host_, path_ + " could not be written: " + result.ErrorText);
  return result.Done();
}

}  // namespace brelwin
