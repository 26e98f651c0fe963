#include "ui/sound_choice.h"

#include <algorithm>
#include <optional>
#include <set>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"

namespace brelwin {
namespace {

// Every name is a look into the folder; a feed gone wild must not make thousands of them.
constexpr std::size_t MostCalls = 200;
constexpr std::size_t LongestReference = 32;

constexpr std::string_view SpecialCallsign = "Q0ZZ";

// Looks sound files up by their name without ".wav", each name once.
class SoundFiles {
 public:
  explicit SoundFiles(const Host& host) : host_(host) {}

  std::optional<std::string> Find(std::string_view name) {
    if (!IsFileName(name) || !asked_.emplace(name).second) return {};
    auto file = std::string(name) + ".wav";
    return FileExists(host_, InProgramFolder(host_, file)) ? std::optional(std::move(file)) : std::nullopt;
  }

 private:
  static bool IsFileName(std::string_view name) {
    constexpr std::string_view Forbidden("\\/\0", 3);
    return !name.empty() && name.find_first_of(Forbidden) == std::string_view::npos && !Contains(name, "..");
  }

  const Host& host_;
  std::set<std::string, std::less<>> asked_;
};

std::optional<std::string> FindForCallsigns(SoundFiles& files,
                                            const KeyedCollection<std::string>& callsigns) {
  if (callsigns.Contains(SpecialCallsign)) {
    if (auto file = files.Find(SpecialCallsign)) return file;
  }
  std::size_t looked = 0;
  for (const auto& entry : callsigns) {
    if (++looked > MostCalls) break;
    if (auto file = files.Find(entry.Item)) return file;
  }
  return {};
}

std::optional<std::string> FindForReference(SoundFiles& files, std::string_view reference) {
  const auto name = Replace(FirstCharacters(reference, LongestReference), "/", "-");
  for (auto length = CharacterCount(name); length > 0; --length) {
    if (auto file = files.Find(FirstCharacters(name, length))) return file;
  }
  return {};
}

std::optional<std::string> FindForReferences(SoundFiles& files,
                                             const KeyedCollection<std::string>& references) {
  std::size_t looked = 0;
  for (const auto& entry : references) {
    if (++looked > MostCalls) break;
    if (auto file = FindForReference(files, entry.Item)) return file;
  }
  return {};
}

}  // namespace

std::string ChooseSoundFile(const Host& host, const SoundCalls& calls, std::string_view alertSound) {
  SoundFiles files(host);
  if (auto file = FindForCallsigns(files, calls.Callsigns)) return *file;
  if (auto file = FindForReferences(files, calls.SummitReferences)) return *file;
  return std::string(alertSound);
}

}  // namespace brelwin
