#include "cycle/callsign_lists.h"

#include <array>

#include "base/line_text.h"
#include "base/text.h"
#include "core/callsign_list.h"
#include "core/data_files.h"
#include "core/event_log.h"
#include "core/file_names.h"
#include "gateway/gateway_gates.h"
#include "radio/callsign.h"

namespace brelwin {
namespace {

void AddBaseCallsign(CallsignCollection& list, std::string_view entry) {
  const auto callsign = GetBaseCallsign(entry);
  if (!callsign.empty()) list.Add(callsign, callsign);
}

std::string BaseCallsign(const Spot& spot) {
  return spot.stationBaseCallsign;
}

std::string SpotterCallsign(const Spot& spot) {
  return spot.SpotterBaseCallsign;
}

// As it is on the air: the prefix tells an excluded callsign's forms apart.
std::string FirstCallsign(const Spot& spot) {
  const auto station = Trim(spot.Station);
  return std::string(station.substr(0, station.find_first_of(" \t&,;")));
}

bool HoldsStation(const CallsignCollection& list, const Spot& spot) {
  return list.Contains(spot.stationBaseCallsign);
}

bool HoldsSpotter(const CallsignCollection& list, const Spot& spot) {
  return list.Contains(spot.SpotterBaseCallsign);
}

bool Excludes(const CallsignCollection& list, const Spot& spot) {
  return !ExcludingEntry(list, spot).empty();
}

struct ListRules {
  std::string_view File;
  std::string_view Words;
  std::string (*Entry)(const Spot&);  // for the file; empty when the spot has none
  bool (*Holds)(const CallsignCollection&, const Spot&);
  void (*Add)(CallsignCollection&, std::string_view entry);
};

const ListRules& RulesOf(CallsignListName name) {
  static constexpr std::array<ListRules, 3> Rules = {{
      {KnownActivatorsFile, "known activators", BaseCallsign, HoldsStation, AddBaseCallsign},
      {ExcludedActivatorsFile, "excluded activators", FirstCallsign, Excludes, ExcludeActivator},
      {TrustedSpottersFile, "trusted spotters", SpotterCallsign, HoldsSpotter, AddBaseCallsign},
  }};
  return Rules[static_cast<std::size_t>(name)];
}

std::string Log(Host& host, const std::string& words) {
  LogEvent(host, "AddCallsign - " + words);
  return words;
}

std::string AppendToList(Host& host, const ListRules& rules, const std::string& entry) {
  const auto added = entry + " was added to the " + std::string(rules.Words);
  if (AppendLines(host, InProgramFolder(host, rules.File), {entry})) return Log(host, added);
  auto words =
      Log(host, added + " until the program ends: " + std::string(rules.File) + " could not be written");
  host.Messages.ShowMessage(words + ".", "Callsign lists", MessageIcon::Exclamation);
  return words;
}

}  // namespace

CallsignCollection& CallsignLists::Named(CallsignListName name) {
  switch (name) {
    case CallsignListName::Known: return KnownActivators;
    case CallsignListName::Excluded: return ExcludedActivators;
    case CallsignListName::Trusted: break;
  }
  return TrustedSpotters;
}

void LoadCallsigns(Host& host, CallsignListName name, CallsignCollection& list) {
  const auto& rules = RulesOf(name);
  CallsignCollection entries;
  std::string errorText;
  LoadCallsignList(host, InProgramFolder(host, rules.File), false, false, entries, errorText);
  for (const auto& entry : entries) rules.Add(list, entry.Item);
}

std::string AddCallsign(Host& host, CallsignListName name, CallsignCollection& list, const Spot& spot) {
  const auto& rules = RulesOf(name);
  const auto entry = rules.Entry(spot);
  if (entry.empty() || !IsPlainText(entry)) return "This spot has no callsign for the list";
  const bool wasHeld = rules.Holds(list, spot);
  if (!wasHeld) rules.Add(list, entry);
  CallsignCollection onDisk;  // it may have been edited since the start
  LoadCallsigns(host, name, onDisk);
  if (!rules.Holds(onDisk, spot)) return AppendToList(host, rules, entry);
  if (!wasHeld) return Log(host, entry + " is in " + std::string(rules.File) + " and counts from here on");
  return entry + " is among the " + std::string(rules.Words) + " already";
}

}  // namespace brelwin
