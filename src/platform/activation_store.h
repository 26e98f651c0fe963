// Where the board outlives the program: its rows, and the events of its days for a replay. What a row or an
// event says is a text that only the board reads. With them lies the list of summits that the user brought.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/date_time.h"

namespace brelwin {

// Station, summit and time stand beside the text so that other programs can search the rows.
struct KeptRow {
  std::int64_t Number = 0;
  DateTime Last;  // UTC, the newest of what the row tells
  std::string Station;
  std::string Summit;
  std::string Text;
};

struct KeptEvent {
  DateTime When;  // UTC
  std::string Text;
};

// What happened since the last save.
struct StoreChange {
  std::vector<KeptRow> Rows;  // new and changed ones
  std::vector<std::int64_t> GoneRows;
  std::vector<KeptEvent> Events;
  DateTime Since;       // older events are forgotten
  bool IsLast = false;  // the program ends with it: worth waiting for others who hold the store
};

// A summit of the user's list.
struct KeptSummit {
  std::string Code;  // "G/LD-003"
  std::string Name;
  std::optional<double> Latitude;   // degrees, north is positive
  std::optional<double> Longitude;  // degrees, east is positive
  std::int64_t Points = 0;
  std::int64_t Activations = 0;  // how often it was activated
};

enum class StoreOutcome : std::uint8_t {
  Done,
  NotDone,   // nothing was changed; a later try may succeed
  MadeAnew,  // what was there cannot be used and lies aside; there is a new store, and it is empty
};

struct StoreResult {
  StoreOutcome Outcome = StoreOutcome::Done;
  std::string Words;  // for the user; empty when all is well
};

class ActivationStore {
 public:
  ActivationStore() = default;
  ActivationStore(const ActivationStore&) = delete;
  ActivationStore& operator=(const ActivationStore&) = delete;
  virtual ~ActivationStore() = default;

  // Adds the rows that are kept, by their numbers. Nothing is added unless the result is Done.
  virtual StoreResult Load(std::vector<KeptRow>& rows) = 0;

  // Takes the change whole or not at all. After MadeAnew, which may have come about on another occasion, the
  // change is not taken, and every row has to be given again. Of the events the newest 500,000 are kept.
  virtual StoreResult Save(const StoreChange& change) = 0;

  // Adds the events of `begin` up to but not of `end`, in the order in which they were saved.
  virtual StoreResult LoadEvents(DateTime begin, DateTime end, std::vector<KeptEvent>& events) = 0;

  // A new list of summits comes in parts: it is begun, added to, and takes the place of the one before at its
  // end. Without an end the one before stays. Of summits with the same code the last one is kept.
  virtual StoreResult BeginSummits() = 0;
  virtual StoreResult AddSummits(std::span<const KeptSummit> summits) = 0;
  virtual StoreResult EndSummits() = 0;

  // Adds the summits with these codes that the list has; and how many it has in all, 0 without one.
  virtual StoreResult LoadSummits(std::span<const std::string> codes, std::vector<KeptSummit>& summits) = 0;
  virtual StoreResult CountSummits(std::int64_t& count) = 0;
};

}  // namespace brelwin
