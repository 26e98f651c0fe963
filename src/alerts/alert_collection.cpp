#include "alerts/alert_collection.h"

namespace brelwin {

bool AlertCollection::Insert(AlertPointer alert, std::int64_t place) {
  if (!placeOfKey_.try_emplace(alert->AlertKey, place).second) return false;
  const auto& station = alert->stationBaseCallsign;
  if (stations_.Add(station, station)) stationMarks_.Note(station);
  InsertAtEnd(ofStation_[station], place, alert);
  InsertAtEnd(alerts_, place, std::move(alert));
  return true;
}

// A new alert has the first or the last place of all.
void AlertCollection::InsertAtEnd(Places& places, std::int64_t place, AlertPointer alert) {
  places.emplace_hint(place < 0 ? places.begin() : places.end(), place, std::move(alert));
}

bool AlertCollection::Remove(std::string_view key) {
  const auto found = placeOfKey_.find(key);
  if (found == placeOfKey_.end()) return false;
  const auto place = found->second;
  placeOfKey_.erase(found);
  const auto alert = alerts_.find(place);
  ofStation_[alert->second->stationBaseCallsign].erase(place);
  alerts_.erase(alert);
  return true;
}

AlertPointer AlertCollection::Find(std::string_view key) const {
  const auto found = placeOfKey_.find(key);
  return found == placeOfKey_.end() ? nullptr : alerts_.at(found->second);
}

const AlertCollection::Places& AlertCollection::OfStation(const std::string& baseCallsign) const {
  static const Places none;
  const auto found = ofStation_.find(baseCallsign);
  return found == ofStation_.end() ? none : found->second;
}

void AlertCollection::NoteWithdrawn(AlertPointer alert, Withdrawal reason) {
  stationMarks_.Note(alert->stationBaseCallsign);
  auto& ofStation = withdrawn_[alert->stationBaseCallsign];
  ofStation.push_back({std::move(alert), reason});
}

const std::vector<WithdrawnAlert>& AlertCollection::WithdrawnOf(const std::string& baseCallsign) const {
  static const std::vector<WithdrawnAlert> none;
  const auto found = withdrawn_.find(baseCallsign);
  return found == withdrawn_.end() ? none : found->second;
}

}  // namespace brelwin
