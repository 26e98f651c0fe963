// Prints what the screen shows as a stream of lines, newest last: the list's header once, every spot once,
// every decision of the gateway, and what the program says of its state.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "controls/screen.h"

namespace brelwin {

class SpotPrinter {
 public:
  using PrintLine = std::function<void(std::string_view line)>;

  // Prints the header and then every change. `print` is given lines without their end and without control
  // characters, which a terminal would obey.
  SpotPrinter(Screen& screen, PrintLine print);

 private:
  void FollowLabels();
  void FollowGateway();
  void FollowCaption(Label& label);
  void Print(std::string_view line) const;
  void PrintLines(std::string_view text) const;
  void PrintList();
  void PrintText(std::string_view text);
  void PrintSpots(const SpotRows& spots);
  void PrintDecisions();

  Screen& screen_;
  PrintLine print_;
  std::string lastText_;  // printed last of the texts that are no spots
  // The spots of the last list; owned, so none is mistaken.
  std::unordered_set<std::shared_ptr<const Spot>> shown_;
  std::string lastDecision_;  // the newest of the gateway's that has been printed
  std::vector<Watch> watches_;
};

}  // namespace brelwin
