// The board of the running program, and what outlives it: rows are restored at the start and saved while the
// program runs, each event is kept for a replay. Nothing here disturbs its caller.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/alert_collection.h"
#include "base/observable.h"
#include "board/board.h"
#include "board/row_text.h"
#include "platform/host.h"
#include "spots/spot.h"
#include "spots/spot_filter.h"

namespace brelwin {

class BoardKeeper {
 public:
  explicit BoardKeeper(Host& world) : world_(world) {}
  BoardKeeper(const BoardKeeper&) = delete;
  BoardKeeper& operator=(const BoardKeeper&) = delete;
  ~BoardKeeper() = default;

  const brelwin::Board& Board() const { return board_; }

  // Raised after events and after the restoring. A row may change its state by the time alone.
  Signal Changed;

  // Restores the rows of the last 30 days. What cannot be read is told in the event log.
  void Restore();

  // Takes what the program has come to know, at the present time.
  void Take(BoardEvent event);

  // Takes the announcements, once they were read, with their windows by the filter; nothing when all is as it
  // was told last.
  void TakeAnnouncements(const AlertCollection& alerts, const SpotFilter& filter);

  // Takes spots of Sotawatch, newest first as they come. Those that are known change nothing.
  void TakeSpots(const SpotCollection& spots);
  void TakeSpot(const Spot& spot);

  // Takes what the gateway decided of a spot.
  void TakeDecision(const Spot& spot, bool wasSent, std::string_view words);

  // Takes the spots of followed stations in these lines of the stream; most lines are of others.
  void Hear(std::string_view lines);

  // Saves what has changed; called by itself a few seconds after a change, and to be called at the end.
  void Save();

 private:
  void HearLine(std::string_view line);
  void TakeAt(DateTime utcNow, BoardEvent event);
  void Put(const std::vector<KeptRow>& rows);
  StoreChange Pending();
  void ForgetOld();
  void SaveLater();
  void SavePending();
  void NoteFailure(const std::string& words);

  Host& world_;
  brelwin::Board board_;
  AnnouncementsRead announced_;  // as told last
  EventWriter writer_;
  std::vector<KeptEvent> events_;  // not yet saved
  std::vector<RowNumber> gone_;    // the same
  BoardRevision saved_ = 0;
  std::optional<Instant> forgotAt_;
  TimerHandle saving_;
  bool isSavingLater_ = false;
  std::string lastFailure_;  // told in the log once
};

}  // namespace brelwin
