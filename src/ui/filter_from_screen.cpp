#include "ui/filter_from_screen.h"

#include "radio/numbers.h"

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

}  // namespace brelwin
