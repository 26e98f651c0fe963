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
#include "base/presence_marks.h"
#include "base/text.h"
#include "spots/spot.h"

namespace brelwin {

// Why an alert that was announced does not count.
enum class Withdrawal : std::uint8_t { None, Cancelled, OptedOut, RemovedByEntry };

struct WithdrawnAlert {
  AlertPointer Alert;
  Withdrawal Reason = Withdrawal::None;
};

class AlertCollection {
 public:
  // Alerts by their place: walking it is walking them in collection order.
  using Places = std::map<std::int64_t, AlertPointer>;

  // Adds the alert under its AlertKey at the end, or in front of all others, and its base callsign to the
  // stations. False, with nothing changed, when the key is held already; keys have no letter case.
  bool Add(AlertPointer alert) { return Insert(std::move(alert), ++last_); }
  bool AddInFront(AlertPointer alert) { return Insert(std::move(alert), --first_); }

  // True when an alert had the key and was removed. Its station stays among the stations.
  bool Remove(std::string_view key);

  bool Contains(std::string_view key) const { return Find(key) != nullptr; }
  AlertPointer Find(std::string_view key) const;  // null without one

  std::size_t Count() const { return alerts_.size(); }
  bool Empty() const { return alerts_.empty(); }
  const Places& All() const { return alerts_; }

  // Base callsigns for which an alert was added, each once, in the order in which they came.
  const CallsignCollection& Stations() const { return stations_; }

  // Whether the station has or had an alert, withdrawn ones included: asked of every line of the stream, most
  // of which are of no announced station.
  bool IsAnnounced(std::string_view baseCallsign) const {
    return stationMarks_.MayHold(baseCallsign) &&
           (stations_.Contains(baseCallsign) || withdrawn_.contains(std::string(baseCallsign)));
  }

  // The alerts whose stationBaseCallsign is exactly this, in collection order.
  const Places& OfStation(const std::string& baseCallsign) const;

  // Alerts of this station that were announced but do not count, in the order in which they were met.
  void NoteWithdrawn(AlertPointer alert, Withdrawal reason);
  const std::vector<WithdrawnAlert>& WithdrawnOf(const std::string& baseCallsign) const;

  // When the page was read from which these alerts come, in local time. Empty when they come from spots only.
  std::optional<DateTime> ReadAt() const { return readAt_; }
  bool WereRead() const { return readAt_.has_value(); }
  void SetReadAt(DateTime local) { readAt_ = local; }

 private:
  struct HashWithoutCase {
    std::size_t operator()(std::string_view key) const { return HashIgnoringCase(key); }
  };
  struct EqualWithoutCase {
    bool operator()(std::string_view left, std::string_view right) const {
      return EqualsIgnoringCase(left, right);
    }
  };

  bool Insert(AlertPointer alert, std::int64_t place);
  static void InsertAtEnd(Places& places, std::int64_t place, AlertPointer alert);

  std::int64_t first_ = 0;
  std::int64_t last_ = 0;
  Places alerts_;
  // The keys point into the alerts, which do not change.
  std::unordered_map<std::string_view, std::int64_t, HashWithoutCase, EqualWithoutCase> placeOfKey_;
  std::unordered_map<std::string, Places> ofStation_;
  std::unordered_map<std::string, std::vector<WithdrawnAlert>> withdrawn_;
  CallsignCollection stations_;
  PresenceMarks stationMarks_;
  std::optional<DateTime> readAt_;
};

}  // namespace brelwin
