#include "alerts/alert_collection.h"

namespace brelwin {
namespace {

// A keyed collection holds any number of items without a key; of alerts whose key is empty, there is one.
std::string_view HeldKey(std::string_view alertKey) {
  return alertKey.empty() ? " " : alertKey;
}

}  // namespace

AlertCollection::Places& AlertCollection::PlacesFor(const SOTAAlert& alert) {
  const auto& station = alert.stationBaseCallsign;
  if (stations_.Add(station, station)) announced_.Add(station);
  return ofStation_[station];
}

bool AlertCollection::Add(const AlertPointer& alert) {
  if (!alerts_.Add({alert, last_ + 1}, HeldKey(alert->AlertKey))) return false;
  auto& places = PlacesFor(*alert);
  places.emplace_hint(places.end(), ++last_, alert);
  return true;
}

bool AlertCollection::AddInFront(const AlertPointer& alert) {
  if (!alerts_.AddInFront({alert, first_ - 1}, HeldKey(alert->AlertKey))) return false;
  auto& places = PlacesFor(*alert);
  places.emplace_hint(places.begin(), --first_, alert);
  return true;
}

bool AlertCollection::Remove(std::string_view key) {
  const auto* held = alerts_.Find(HeldKey(key));
  if (held == nullptr) return false;
  ofStation_[held->Alert->stationBaseCallsign].erase(held->Place);
  return alerts_.Remove(HeldKey(key));
}

AlertPointer AlertCollection::Find(std::string_view key) const {
  const auto* held = alerts_.Find(HeldKey(key));
  return held == nullptr ? nullptr : held->Alert;
}

const AlertCollection::Places& AlertCollection::OfStation(const std::string& baseCallsign) const {
  static const Places none;
  const auto found = ofStation_.find(baseCallsign);
  return found == ofStation_.end() ? none : found->second;
}

void AlertCollection::NoteWithdrawn(AlertPointer alert, Withdrawal reason) {
  announced_.Add(alert->stationBaseCallsign);
  auto& ofStation = withdrawn_[alert->stationBaseCallsign];
  ofStation.push_back({std::move(alert), reason});
}

const std::vector<WithdrawnAlert>& AlertCollection::WithdrawnOf(const std::string& baseCallsign) const {
  static const std::vector<WithdrawnAlert> none;
  const auto found = withdrawn_.find(baseCallsign);
  return found == withdrawn_.end() ? none : found->second;
}

}  // namespace brelwin
