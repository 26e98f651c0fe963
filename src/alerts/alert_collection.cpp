#include "alerts/alert_collection.h"

#include "base/text.h"

namespace brelwin {

bool AlertCollection::Insert(AlertPointer alert, std::int64_t place) {
  if (!placeOfKey_.try_emplace(UpperCase(alert->AlertKey), place).second) return false;
  if (stations_.Add(alert->stationBaseCallsign, alert->stationBaseCallsign))
    stationMarks_.Note(alert->stationBaseCallsign);
  ofStation_[alert->stationBaseCallsign].emplace(place, alert);
  alerts_.emplace(place, std::move(alert));
  return true;
}

bool AlertCollection::Remove(std::string_view key) {
  const auto found = placeOfKey_.find(UpperCase(key));
  if (found == placeOfKey_.end()) return false;
  const auto alert = alerts_.find(found->second);
  ofStation_[alert->second->stationBaseCallsign].erase(found->second);
  alerts_.erase(alert);
  placeOfKey_.erase(found);
  return true;
}

AlertPointer AlertCollection::Find(std::string_view key) const {
  const auto found = placeOfKey_.find(UpperCase(key));
  return found == placeOfKey_.end() ? nullptr : alerts_.at(found->second);
}

const AlertCollection::Places& AlertCollection::OfStation(const std::string& baseCallsign) const {
  static const Places none;
  const auto found = ofStation_.find(baseCallsign);
  return found == ofStation_.end() ? none : found->second;
}

void AlertCollection::NoteWithdrawn(AlertPointer alert, Withdrawal reason) {
  withdrawn_[alert->stationBaseCallsign].push_back({alert, reason});
}

const std::vector<WithdrawnAlert>& AlertCollection::WithdrawnOf(const std::string& baseCallsign) const {
  static const std::vector<WithdrawnAlert> none;
  const auto found = withdrawn_.find(baseCallsign);
  return found == withdrawn_.end() ? none : found->second;
}

}  // namespace brelwin
