#include "spots/known_activators.h"

#include "base/encoding.h"
#include "core/data_files.h"
#include "core/event_log.h"
#include "core/file_names.h"

namespace brelwin {

bool LearnActivator(const std::string& baseCallsign, std::size_t shortest, CallsignCollection& known,
                    std::vector<std::string>& learned) {
  if (known.Contains(baseCallsign)) return true;
  if (CharacterCount(baseCallsign) >= shortest && known.Add(baseCallsign, baseCallsign))
    learned.push_back(baseCallsign);
  return false;
}

void SaveLearnedActivators(Host& host, const std::vector<std::string>& learned, MissingList missing) {
  const auto list = InProgramFolder(host, KnownActivatorsFile);
  if (missing == MissingList::StaysMissing && !FileExists(host, list)) return;
  if (AppendLines(host, list, learned)) return;
  LogEvent(host, "SaveLearnedActivators - " + std::string(KnownActivatorsFile) + " could not be written");
}

}  // namespace brelwin
