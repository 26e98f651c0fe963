// The list of spots on the screen: its text, and beside it the spot behind each line.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/control.h"
#include "spots/spot.h"

namespace brelwin {

struct SpotListBox : Control {
  SpotListBox(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }

  // The lines, each ended by CR LF. An empty text is only the moment before the next one: a skin waits for
  // that and then keeps what the reader sees, scrolled and selected, where it is.
  Observable<std::string> Text;

  // The spots of the lines of the next Text, set before it; empty when the lines are no spots (a countdown).
  std::vector<std::shared_ptr<const Spot>> Spots;

  // Called by the skin with the spot of the line that the user chose; may be empty.
  std::function<void(const Spot&)> Select;

  // Called by the skin with the spot of the line that the user double-clicked; may be empty.
  std::function<void(const Spot&)> DoubleClick;
};

}  // namespace brelwin
