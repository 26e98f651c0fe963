#include "spots/spot_log.h"

#include <string>

#include "base/line_text.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/trap.h"
#include "radio/dates.h"
#include "spots/spot_text.h"

namespace brelwin {
namespace {

constexpr std::string_view AfterTime = ":  ";

bool IsDelimited(std::int16_t format) {
  return format == CommaLogFormat || format == TabLogFormat || format == BarLogFormat;
}

std::string_view Separator(std::int16_t format) {
  if (format == CommaLogFormat) return ",";
  return format == TabLogFormat ? "\t" : "|";
}

void AppendSpotLine(std::string& text, const Spot& spot, std::int16_t format, std::string_view now) {
  if (IsDelimited(format)) {
    text.append(DelimitedLine(spot, Separator(format)));
  } else {
    text.append(now).append(AfterTime);
    if (format == RawLogFormat) {
      AppendWithoutLineEnds(text, spot.Spot);
    } else {
      AppendFixedWidthLine(text, spot);
    }
  }
  text.append(LineEnd);
}

void AppendLogLine(std::string& text, std::string_view line) {
  if (Trim(line).empty()) return;
  AppendWithoutLineEnds(text, line);
  text.append(LineEnd);
}

std::string LogText(const SpotCollection& spots, std::int16_t format, std::string_view now) {
  std::string text;
  for (const auto& entry : spots) {
    if (entry.Item->Kind == SpotKind::Test) continue;
    AppendLogLine(text, entry.Item->LogLinePreceeding);
    AppendSpotLine(text, *entry.Item, format, now);
    AppendLogLine(text, entry.Item->LogLineFollowing);
  }
  return text;
}

// The header of the list, moved right so that its captions stand over the columns behind the time.
std::string IndentedHeader(std::string_view now) {
  const std::string indent(now.size() + AfterTime.size(), ' ');
  const auto header = SpotListHeader();
  std::string text;
  for (const auto line : SplitLines(header)) text.append(indent).append(line).append(LineEnd);
  return text;
}

bool NeedsHeader(const Host& host, std::string_view path, std::int16_t format, LogHeader header) {
  return header == LogHeader::WhenCreated && !IsDelimited(format) && format != RawLogFormat &&
         !FileExists(host, path);
}

}  // namespace

void WriteSpotsToLogFile(Host& host, const SpotCollection& spots, std::string_view path, std::int16_t format,
                         LogHeader header) {
  const auto file = Trim(path);
  if (spots.Empty() || file.empty()) return;
  LogErrors(host, "WriteSpotsToLogFile", false, [&] {
    const auto now = DateTimeText(host.Time.LocalNow());
    auto text = NeedsHeader(host, file, format, header) ? IndentedHeader(now) : std::string();
    text.append(LogText(spots, format, now));
    const auto result = host.Disk.Append(file, text, FileAccess::Everyone);
    if (!result.Done())
      LogEvent(host,
               "WriteSpotsToLogFile Error, Number=5 Error=" + std::string(file) + ": " + result.ErrorText);
    return result.Done();
  });
}

}  // namespace brelwin
