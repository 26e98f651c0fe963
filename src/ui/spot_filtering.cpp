#include "ui/spot_filtering.h"

#include "core/data_files.h"
#include "core/file_names.h"
#include "core/program_path.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "spots/spot_log.h"

namespace brelwin {
namespace {

struct SpotLog {
  const CheckBox& Enabled;
  const TextBox& File;
  const OptionGroup& Format;  // its choices are numbered as the writer's formats
};

void WriteLog(Host& host, const SpotLog& log, const SpotCollection& spots) {
  if (!log.Enabled.Value) return;
  WriteSpotsToLogFile(host, spots, FullLogName(host, log.File.Text.Get()),
                      static_cast<std::int16_t>(log.Format.Value), LogHeader::WhenCreated);
}

void MarkHiddenSpots(const SpotCollection& spots, const SpotCollection& displayed) {
  for (const auto& entry : spots) entry.Item->HiddenFromDisplay = true;
  for (const auto& entry : displayed) entry.Item->HiddenFromDisplay = false;
}

// The filtered spots where some output wants them. When the filter fails every spot passes.
const SpotCollection& FilteredSpots(Host& host, SpotFilter& filter, const SpotCollection& spots) {
  if (!filter.FilterSpotDisplay && !filter.FilterLog1 && !filter.FilterLog2) return spots;
  return filter.GetFilteredSpots(host, spots, filter.colFilteredSpots) == StatusDone ? filter.colFilteredSpots
                                                                                     : spots;
}

void FilterAndLog(Host& host, const LogsTab& logs, bool logRawSpots, SpotFilter& filter,
                  SpotCollection& spots) {
  const auto& filtered = FilteredSpots(host, filter, spots);
  WriteLog(host, {logs.chkEnableLogging1, logs.txtLogFile1, logs.optLogFormat1},
           filter.FilterLog1 ? filtered : spots);
  WriteLog(host, {logs.chkEnableLogging2, logs.txtLogFile2, logs.optLogFormat2},
           filter.FilterLog2 ? filtered : spots);
  if (logRawSpots) WriteSpotsToLogFile(host, spots, InProgramFolder(host, RawSpotsFile), RawLogFormat);
  MarkHiddenSpots(spots, filter.FilterSpotDisplay ? filtered : spots);
  if (filter.FilterSpotDisplay) spots = SpotCollection(filtered);
}

}  // namespace

std::int32_t PerformDisplayFilteringAndSpotLogging(Host& host, const LogsTab& logs, bool logRawSpots,
                                                   SpotFilter& filter, SpotCollection& spots) {
  filter.NoSpotSourceFiltering = true;
  if (spots.Empty()) return StatusDone;
  return LogErrors(host, "PerformDisplayFilteringAndSpotLogging", 0, [&] {
    FilterAndLog(host, logs, logRawSpots, filter, spots);
    return StatusDone;
  });
}

}  // namespace brelwin
