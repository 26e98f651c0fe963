#include "ui/sound_buttons.h"

#include "base/text.h"
#include "core/data_files.h"
#include "core/program_path.h"
#include "core/trap.h"
#include "core/wave_file.h"

namespace brelwin {
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
