#include "ui/alerting.h"

#include <vector>

#include "base/text.h"
#include "core/data_files.h"
#include "core/program_path.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "core/wave_file.h"
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
           Form* window, bool everythingIsNews, const std::function<bool(const Spot&)>& isNeeded) {
  const auto& candidates = Candidates(host, newSpots, filter);
  const bool takesAll = everythingIsNews && filter.PlaySoundWhen != NoSound;
  auto calling = SpotsCallingForSound(takesAll ? SoundForEverySpot : filter.PlaySoundWhen, candidates,
                                      newSpots, spotList);
  if (isNeeded) std::erase_if(calling, [&](const SpotPointer& spot) { return !isNeeded(*spot); });
  if (calling.empty()) return;
  if (filter.ShowWindowOnAlert && window != nullptr) BringBack(*window);
  PlayAlert(host, CallsOf(calling), filter.AlertSound);
}

}  // namespace

void AlertOnNewSpots(Host& host, const SpotCollection& newSpots, SpotFilter& filter,
                     const SpotCollection& spotList, const TestSettings* test, Form* window, bool isFirstLoad,
                     const std::function<bool(const Spot&)>& isNeeded) {
  if (newSpots.Empty()) return;
  TrapErrorsSilently([&] {
    Alert(host, newSpots, filter, spotList, window, isFirstLoad && !AnyTestSwitchOn(test), isNeeded);
  });
}

namespace {

// What is to be said to the user after an attempt to play the alert sound; empty when it sounds.
std::string TryAlertSound(Host& host, std::string_view fileName) {
  const auto file = FullFileName(host, fileName);
  if (file.empty()) return "No sound file has been specified.";
  if (!FileExists(host, file)) return MissingSoundText(file);
  const int result = host.Sound.PlaySound(file, false);
  return result == 1
             ? std::string()
             : "Unexpected return value from the Windows API PlaySound function:" + std::to_string(result);
}

std::string TryGatewaySound(Host& host, std::string_view fileName) {
  if (Trim(fileName).empty()) return "No gateway sound file has been specified.";
  std::string errorText;
  PlayWaveFile(host, fileName, false, errorText);
  return errorText;
}

void ShowWhenNotEmpty(Host& host, std::string_view text, std::string_view title) {
  if (!text.empty()) host.Messages.ShowMessage(text, title, MessageIcon::Exclamation);
}

}  // namespace

void cmdPlayAlertSound_Click(Host& host, const FiltersTab& filters) {
  TrapErrorsSilently([&] {
    ShowWhenNotEmpty(host, TryAlertSound(host, filters.txtAlertSound.Text.Get()), "Play Alert Sound");
  });
}

void cmdPlayGatewaySound_Click(Host& host, const GatewayTab& gateway) {
  TrapErrorsSilently([&] {
    ShowWhenNotEmpty(host, TryGatewaySound(host, gateway.txtGatewaySound.Text.Get()), "Play Gateway Sound");
  });
}

}  // namespace brelwin
