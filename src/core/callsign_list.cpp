#include "core/callsign_list.h"

#include <stdexcept>

#include "base/encoding.h"
#include "base/text.h"
#include "core/event_log.h"
#include "core/runtime_error.h"
#include "radio/callsign.h"

namespace brelwin {
namespace {

void AddCallsignLines(std::string_view text, bool useBaseCallsign, bool keyed,
                      KeyedCollection<std::string>& collection) {
  for (const auto line : SplitLines(text)) {
    const auto entry = useBaseCallsign ? GetBaseCallsign(Trim(line)) : std::string(Trim(line));
    if (!entry.empty()) collection.Add(entry, keyed ? entry : std::string());
  }
}

bool LoadFromFile(const Host& host, std::string_view path, bool useBaseCallsign, bool keyed,
                  KeyedCollection<std::string>& collection) {
  if (path.empty() || !host.Disk.Exists(path)) return false;
  const auto bytes = host.Disk.Read(path);
  if (!bytes) throw std::runtime_error(std::string(path) + " could not be read");
  AddCallsignLines(TextFromBytes(*bytes), useBaseCallsign, keyed, collection);
  return true;
}

}  // namespace

bool LoadCallsignList(Host& host, std::string_view filePath, bool useBaseCallsign, bool keyed,
                      KeyedCollection<std::string>& collection, std::string& errorText) {
  errorText.clear();
  const auto load = [&] { return LoadFromFile(host, Trim(filePath), useBaseCallsign, keyed, collection); };
  return TrapErrors(load, false, [&](const RuntimeError& error) {
    errorText = error.Description;
    LogEvent(host, "LoadCallsignList Error, Number=" + std::to_string(error.Number) + " Error=" + errorText);
  });
}

}  // namespace brelwin
