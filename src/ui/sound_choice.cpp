#include "ui/sound_choice.h"

#include <algorithm>
#include <optional>
#include <set>

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"

namespace brelwin {
namespace {

// A feed gone wild must not make thousands of names to look for.
constexpr std::size_t MostCalls = 200;
constexpr std::size_t LongestReference = 32;

constexpr std::string_view SpecialCallsign = "Q0ZZ";

// The sound files of the program's folder. The folder is read once: it may hold years of archives, and a long
// list asks for hundreds of names.
class SoundFiles {
 public:
  explicit SoundFiles(const Host& host) : host_(host) {
    for (const auto& name : host.Disk.NamesIn(host.ProgramFolder)) {
      if (auto upper = UpperCase(name); upper.ends_with(".WAV")) upperNames_.insert(std::move(upper));
    }
  }

  std::optional<std::string> Find(std::string_view name) const {
    if (Contains(name, "..")) return {};
    auto file = std::string(name) + ".wav";
    const bool isThere =
        upperNames_.contains(UpperCase(file)) && FileExists(host_, InProgramFolder(host_, file));
    return isThere ? std::optional(std::move(file)) : std::nullopt;
  }

 private:
  const Host& host_;
  std::set<std::string> upperNames_;
};

std::optional<std::string> FindForCallsigns(const SoundFiles& files,
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

std::optional<std::string> FindForReference(const SoundFiles& files, std::string_view reference) {
  const auto name = Replace(FirstCharacters(reference, LongestReference), "/", "-");
  for (auto length = CharacterCount(name); length > 0; --length) {
    if (auto file = files.Find(FirstCharacters(name, length))) return file;
  }
  return {};
}

std::optional<std::string> FindForReferences(const SoundFiles& files,
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
  const SoundFiles files(host);
  if (auto file = FindForCallsigns(files, calls.Callsigns)) return *file;
  if (auto file = FindForReferences(files, calls.SummitReferences)) return *file;
  return std::string(alertSound);
}

}  // namespace brelwin
