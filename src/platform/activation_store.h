// Where the board outlives the program: its rows, and the events of its days for a replay. What a row or an
// event says is a text that only the board reads.
#pragma once

#include <cstdint>
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
  DateTime Since;  // older events are forgotten
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

  // Takes the change whole or not at all. After MadeAnew the change is not taken, and every row has to be
  // given again. Of the events the newest 500,000 are kept.
  virtual StoreResult Save(const StoreChange& change) = 0;

  // Adds the events of `begin` up to but not of `end`, in the order in which they were saved.
  virtual StoreResult LoadEvents(DateTime begin, DateTime end, std::vector<KeptEvent>& events) = 0;
};

}  // namespace brelwin
