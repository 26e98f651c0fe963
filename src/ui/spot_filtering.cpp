#include "ui/spot_filtering.h"

#include "core/data_files.h"
#include "core/file_names.h"
#include "core/program_path.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "radio/numbers.h"
#include "spots/spot_log.h"

namespace brelwin {

namespace {

void FillLists(const FiltersTab& tab, SpotFilter& filter) {
  filter.Station = tab.txtFilterStation.Text;
  filter.SummitReference = tab.txtFilterSummitReference.Text;
  filter.Points = tab.txtFilterPoints.Text;
  filter.Band = tab.txtFilterBand.Text;
  filter.mode = tab.txtFilterMode.Text;
  filter.Spotter = tab.txtFilterSpotter.Text;
}

void FillAlerting(const FiltersTab& tab, SpotFilter& filter) {
  filter.AlertSpotSourceSotawatch = tab.chkAlertSpotSourceSotawatch.Value;
  filter.AlertSpotSourceRBNMatched = tab.chkAlertSpotSourceRBNMatched.Value;
  filter.AlertSpotSourceRBNUnmatched = tab.chkAlertSpotSourceRBNUnmatched.Value;
  filter.ShowWindowOnAlert = tab.chkShowWindowOnAlert.Value;
  filter.FilterAlertSounds = tab.chkFilterAlertSounds.Value;
  filter.AlertSound = tab.txtAlertSound.Text;
  filter.PlaySoundWhen = static_cast<std::int16_t>(tab.optPlaySoundWhen.Value);
}

void FillOutputs(const Screen& screen, SpotFilter& filter) {
  filter.FilterSpotDisplay = screen.Filters.chkFilterSpotDisplay.Value;
  filter.FilterLog1 = screen.Logs.chkFilterLog1.Value;
  filter.FilterLog2 = screen.Logs.chkFilterLog2.Value;
}

void FillSkimmerLists(const RBNTab& tab, SpotFilter& filter) {
  filter.RBNStation = tab.txtRBNFilterStation.Text;
  filter.RBNBand = tab.txtRBNFilterBand.Text;
  filter.RBNMode = tab.txtRBNFilterMode.Text;
  filter.RBNSpotter = tab.txtRBNFilterSpotter.Text;
  filter.RBNSpotterExclude = tab.txtRBNFilterSpotterExclude.Text;
}

void FillSkimmerRules(const RBNTab& tab, SpotFilter& filter) {
  filter.FilterKnownActivators = tab.chkRBNFilterKnownActivators.Value;
  filter.FilterSotawatchMatchingAlert = tab.chkRBNFilterSotawatchMatchingAlert.Value;
  filter.FilterDuplicateSpots = tab.chkRBNFilterDuplicateSpots.Value;
  filter.DuplicateSpotFilteringPeriod = ToDouble(tab.txtDuplicateSpotFilteringPeriod.Text.Get());
  filter.MaxMinutesBeforeAlertTime = WholeNumber(tab.txtRBNMaxMinutesBeforeAlertTime.Text.Get());
  filter.MaxMinutesAfterAlertTime = WholeNumber(tab.txtRBNMaxMinutesAfterAlertTime.Text.Get());
}

}  // namespace

void FillFilterFromScreen(const Screen& screen, const Configuration& configuration, SpotFilter& filter) {
  FillLists(screen.Filters, filter);
  FillAlerting(screen.Filters, filter);
  FillOutputs(screen, filter);
  FillSkimmerLists(screen.RBN, filter);
  FillSkimmerRules(screen.RBN, filter);
  filter.IncludeAllSpotTypes = configuration.RBNShowAllSpottedTypes;
}

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
