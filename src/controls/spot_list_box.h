// The list of spots on the screen: the spots themselves, or a text where they would be.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "controls/control.h"
#include "spots/spot.h"

namespace brelwin {

// The spots of a list, top down, each a line; none of them is null.
using SpotRows = std::vector<std::shared_ptr<const Spot>>;

// Spots, or lines of a text that are no spots: a countdown, a failure.
using ListContents = std::variant<std::string, SpotRows>;

// The lists of callsigns that the user keeps.
enum class CallsignListName : std::uint8_t { Known, Excluded, Trusted };

struct SpotListBox : Control {
  SpotListBox(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }

  // A skin makes a spot's line when it is looked at. An empty text is only the moment before the next
  // contents: a skin goes on showing what it shows. A list without spots has no rows.
  Observable<ListContents> Contents;

  // Called by the skin with the spot of the line that the user chose; may be empty.
  std::function<void(const Spot&)> Select;

  // Called by the skin with the spot of the line that the user double-clicked; may be empty.
  std::function<void(const Spot&)> DoubleClick;

  // Called by the skin when the user wants the spot's station, or spotter, in a list; may be empty.
  std::function<void(CallsignListName, const Spot&)> AddToList;

  KeptText Zoom{"Zoom"};  // of the lines, in percent of the size that the system has for them
};

}  // namespace brelwin
