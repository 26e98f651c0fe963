#include "ui/sounds.h"

#include "base/text.h"
#include "core/data_files.h"
#include "core/trap.h"
#include "ui/program_path.h"

namespace brelwin {
namespace {

std::string MissingFileText(std::string_view fullName) {
  return "The sound file " + std::string(fullName) + " does not exist.";
}

// What is to be said to the user after an attempt to play the alert sound; empty when it sounds.
std::string TryAlertSound(Host& host, std::string_view fileName) {
  const auto file = FullFileName(host, fileName);
  if (file.empty()) return "No sound file has been specified.";
  if (!FileExists(host, file)) return MissingFileText(file);
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

bool PlayWaveFile(Host& host, std::string_view fileName, bool wait, std::string& errorText) {
  errorText.clear();
  const auto file = FullFileName(host, fileName);
  if (file.empty()) return false;
  if (FileExists(host, file)) {
    host.Sound.PlaySound(file, wait);
  } else {
    errorText = MissingFileText(file);
  }
  return true;
}

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
