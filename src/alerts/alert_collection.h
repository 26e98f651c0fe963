// The announced activations, in the order of the alerts page, found by key and by station. The stations that
// have alerts and the index by station are kept with the alerts, so that they cannot disagree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "alerts/sota_alert.h"
#include "base/bloom_filter.h"
#include "spots/spot.h"

namespace brelwin {

// Why an alert that was announced does not count.
enum class Withdrawal : std::uint8_t { None, Cancelled, OptedOut, RemovedByEntry };

struct WithdrawnAlert {
  AlertPointer Alert;
  Withdrawal Reason = Withdrawal::None;
};

struct PlacedAlert {
  AlertPointer Alert;
  std::int64_t Place = 0;  // grows from the first to the last of a collection
};

class AlertCollection {
 public:
  // The alerts of a station by their place among all: walking them is walking in collection order.
  using Places = std::map<std::int64_t, AlertPointer>;

  // Adds the alert under its AlertKey at the end, or in front of all others, and its base callsign to the
  // stations. False, with nothing changed, when the key is held already; keys have no letter case.
  bool Add(const AlertPointer& alert);
  bool AddInFront(const AlertPointer& alert);

  // True when an alert had the key and was removed. Its station stays among the stations.
  bool Remove(std::string_view key);

  bool Contains(std::string_view key) const { return Find(key) != nullptr; }
  AlertPointer Find(std::string_view key) const;  // null without one

  std::size_t Count() const { return alerts_.Count(); }
  bool Empty() const { return alerts_.Empty(); }
  const KeyedCollection<PlacedAlert>& All() const { return alerts_; }

  // Base callsigns for which an alert was added, each once, in the order in which they came.
  const CallsignCollection& Stations() const { return stations_; }

  // Whether the station has or had an alert, withdrawn ones included: asked of every line of the stream, most
  // of which are of no announced station.
  bool IsAnnounced(std::string_view baseCallsign) const {
    return announced_.MayContain(baseCallsign) &&
           (stations_.Contains(baseCallsign) || withdrawn_.contains(std::string(baseCallsign)));
  }

  // The alerts whose stationBaseCallsign is exactly this, in collection order.
  const Places& OfStation(const std::string& baseCallsign) const;

  // Alerts of this station that were announced but do not count, in the order in which they were met.
  void NoteWithdrawn(AlertPointer alert, Withdrawal reason);
  const std::vector<WithdrawnAlert>& WithdrawnOf(const std::string& baseCallsign) const;
  const std::unordered_map<std::string, std::vector<WithdrawnAlert>>& AllWithdrawn() const {
    return withdrawn_;
  }

  // When the page was read from which these alerts come, in local time. Empty when they come from spots only.
  std::optional<DateTime> ReadAt() const { return readAt_; }
  bool WereRead() const { return readAt_.has_value(); }
  void SetReadAt(DateTime local) { readAt_ = local; }

 private:
  Places& PlacesFor(const SOTAAlert& alert);  // its station becomes one of the stations

  std::int64_t first_ = 0;
  std::int64_t last_ = 0;
  KeyedCollection<PlacedAlert> alerts_;
  std::unordered_map<std::string, Places> ofStation_;
  std::unordered_map<std::string, std::vector<WithdrawnAlert>> withdrawn_;
  CallsignCollection stations_;
  BloomFilter announced_;  // their base callsigns
  std::optional<DateTime> readAt_;
};

}  // namespace brelwin
