#include "core/wave_file.h"

#include "core/data_files.h"
#include "core/program_path.h"

namespace brelwin {

std::string MissingSoundText(std::string_view fullName) {
  return "The sound file " + std::string(fullName) + " does not exist.";
}

bool PlayWaveFile(Host& host, std::string_view fileName, bool wait, std::string& errorText) {
  errorText.clear();
  const auto file = FullFileName(host, fileName);
  if (file.empty()) return false;
  if (FileExists(host, file)) {
    host.Sound.PlaySound(file, wait);
  } else {
    errorText = MissingSoundText(file);
  }
  return true;
}

}  // namespace brelwin
