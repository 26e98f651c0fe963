#include "gateway/exclusion.h"

#include "radio/callsign.h"

namespace brelwin {

void ExcludeActivator(CallsignCollection& excluded, std::string_view entry) {
  excluded.Add(std::string(entry), GetBaseCallsign(entry));
  const auto callsign = entry.substr(0, entry.find_first_of(" \t&,;"));
  for (const auto& form : CallsignForms(callsign)) excluded.Add(std::string(entry), form);
}

std::string ExcludingEntry(const CallsignCollection& excluded, const Spot& spot) {
  if (excluded.Empty()) return {};
  if (const auto* entry = excluded.Find(spot.stationBaseCallsign)) return *entry;
  for (const auto& form : CallsignForms(spot.Station)) {
    if (const auto* entry = excluded.Find(form)) return *entry;
  }
  return {};
}

}  // namespace brelwin
