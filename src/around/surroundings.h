// What is known of an activation beyond its row: how far it is, what the summit list says, where the skimmers
// are, and whether the operator needs it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "around/country_file.h"
#include "around/log_watch.h"
#include "around/summit_book.h"
#include "base/observable.h"
#include "board/board.h"
#include "board/board_columns.h"
#include "controls/screen.h"
#include "places/map_contents.h"
#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

class Surroundings {
 public:
  // Follows the boxes of the tab, and says there what it has read. Both outlive it.
  Surroundings(Host& world, PlacesTab& tab);
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;
  ~Surroundings() = default;

  // Raised when more, less or something else is known.
  Signal Changed;

  // Reads what the settings name; to be called once they are loaded and the board is restored. Changes of
  // the boxes are followed from here on.
  void Start(const Board& board);

  // Cheap: what was found is kept until something else is known or the day changes.
  RowSurroundings Of(const ActivationRow& row);

  // What the columns lack that cannot say anything, in words; empty when this column lacks nothing.
  std::string Missing(BoardColumn column) const;

  // Reads the summit list that the user chose. The event queue is served meanwhile.
  void ImportSummits(std::string_view path) { summits_.Import(path); }

  // What the sound may ask of a spot, as the user has set it: whether he needs it. Empty when it is not to
  // ask. Without a contact in any log every spot is needed, with one no spot without a summit.
  std::function<bool(const Spot&)> SoundQuestion() const;

  // The user's place; empty while none is set.
  const std::optional<GeoPoint>& MyPlace() const { return myPlace_; }

  // Where the summit and the skimmer are; empty when no list says it.
  std::optional<GeoPoint> PlaceOfSummit(const std::string& summit);
  std::optional<GeoPoint> PlaceOfSkimmer(std::string_view callsign);

 private:
  struct Known {
    std::string BaseCallsign;
    std::string Summit;
    std::int64_t Day = 0;  // UTC, since 1970
    RowSurroundings Around;
  };

  void ReadMyPlace();
  void Forget();
  void Later(TimerHandle& timer, std::function<void()> read);
  RowSurroundings Find(const StationOnSummit& who, DateTime now);
  void AddSummit(RowSurroundings& around, const std::string& summit);
  std::string ContinentsOf(const ActivationFacts& facts, DateTime now);

  Host& world_;
  PlacesTab& tab_;
  SummitBook summits_;
  CountryFile countries_;
  LogWatch logs_;
  std::optional<GeoPoint> myPlace_;
  std::unordered_map<RowNumber, Known> known_;
  std::vector<Watch> watches_;
  TimerHandle countriesLater_;
  TimerHandle logsLater_;
};

}  // namespace brelwin
