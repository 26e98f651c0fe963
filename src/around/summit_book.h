// The summits of the user's list: read from its file into the store, and looked up there.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/observable.h"
#include "controls/control.h"
#include "places/geo_point.h"
#include "platform/host.h"

namespace brelwin {

class SummitBook {
 public:
  // The label says how many summits there are, and how an import goes.
  SummitBook(Host& world, Label& state) : world_(world), state_(state) {}

  // Raised when there is another list.
  Signal Changed;

  // Asks the store how many summits there are, and says it.
  void Open();

  // Looks up all of them at once, which is faster than one by one.
  void Warm(std::span<const std::string> codes);

  // The summit of the list; null when it is not there. It stays valid until the next call that is not const.
  const KeptSummit* Find(const std::string& code);

  // Reads the list that the user downloaded in the place of the one before. The event queue is served
  // meanwhile; a second import is refused. What fails is said, told in the event log, and changes nothing.
  void Import(std::string_view path);

  bool IsEmpty() const { return count_ == 0; }

 private:
  void ImportFile(std::string_view path);
  std::string Take(std::string_view bytes);
  void Say(const std::string& words);
  void SayCount(std::string_view behind = {});

  Host& world_;
  Label& state_;
  bool isImporting_ = false;
  std::int64_t count_ = 0;
  std::optional<Instant> failedAt_;                                   // when the store could not be asked
  std::unordered_map<std::string, std::optional<KeptSummit>> known_;  // by code; empty: not on the list
};

// Where it is; empty when the list does not say.
std::optional<GeoPoint> PlaceOf(const KeptSummit& summit);

}  // namespace brelwin
