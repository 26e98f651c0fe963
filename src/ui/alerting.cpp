#include "ui/alerting.h"

#include "base/text.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "core/wave_file.h"
#include "ui/sound_choice.h"
#include "ui/sound_decision.h"

namespace brelwin {
namespace {

const SpotCollection& Candidates(Host& host, const SpotCollection& newSpots, SpotFilter& filter) {
  if (!filter.FilterAlertSounds) return newSpots;
  filter.NoSpotSourceFiltering = false;
  return filter.GetFilteredSpots(host, newSpots, filter.colFilteredSpots) == StatusDone
             ? filter.colFilteredSpots
             : newSpots;
}

bool AnyTestSwitchOn(const TestSettings* test) {
  return test != nullptr && (test->TestMode1 || test->TestMode2);
}

void AddOnce(KeyedCollection<std::string>& texts, std::string_view text) {
  if (!text.empty()) texts.Add(std::string(text), text);
}

SoundCalls CallsOf(const std::vector<SpotPointer>& spots) {
  SoundCalls calls;
  for (const auto& spot : spots) {
    AddOnce(calls.Callsigns, spot->stationBaseCallsign);
    AddOnce(calls.SummitReferences, Trim(spot->SummitDesignator));
  }
  return calls;
}

void BringBack(Form& window) {
  if (window.State.Get() != WindowState::Minimised) return;
  window.CurrentTab = 0;
  window.State = WindowState::Normal;
  window.SetFocus.Raise();
}

void PlayAlert(Host& host, const SoundCalls& calls, std::string_view alertSound) {
  std::string ignoredError;
  PlayWaveFile(host, ChooseSoundFile(host, calls, alertSound), false, ignoredError);
}

void Alert(Host& host, const SpotCollection& newSpots, SpotFilter& filter, const SpotCollection& spotList,
           Form* window, bool everythingIsNews) {
  const auto& candidates = Candidates(host, newSpots, filter);
  const bool takesAll = everythingIsNews && filter.PlaySoundWhen != NoSound;
  const auto calling = SpotsCallingForSound(takesAll ? SoundForEverySpot : filter.PlaySoundWhen, candidates,
                                            newSpots, spotList);
  if (calling.empty()) return;
  if (filter.ShowWindowOnAlert && window != nullptr) BringBack(*window);
  PlayAlert(host, CallsOf(calling), filter.AlertSound);
}

}  // namespace

void AlertOnNewSpots(Host& host, const SpotCollection& newSpots, SpotFilter& filter,
                     const SpotCollection& spotList, const TestSettings* test, Form* window,
                     bool isFirstLoad) {
  if (newSpots.Empty()) return;
  TrapErrorsSilently(
      [&] { Alert(host, newSpots, filter, spotList, window, isFirstLoad && !AnyTestSwitchOn(test)); });
}

}  // namespace brelwin
