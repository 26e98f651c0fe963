// The title of a feed's item, which says in one line who is on the air, where and how:
// "G4ABC/P on G/LD-001 @ 14.062 CW".
#pragma once

#include <string_view>

namespace brelwin {

// The tokens of a title; all point into it. A missing one is empty.
struct SpotTitle {
  std::string_view Station;    // the first token, or the first two when "on" is the third
  std::string_view Callsigns;  // everything before "on": two operators can be joined by "and"
  std::string_view Summit;
  std::string_view Frequency;
  std::string_view Mode;
  std::string_view Rest;  // what follows the mode
};

// Takes a title apart at single blanks. Where no token is "on" the second one is taken for it. A title with
// fewer than two tokens gives nothing.
SpotTitle ReadSpotTitle(std::string_view title);

// The title of a spot whose parts are given one by one; where two stations are named the first one counts as
// the station.
SpotTitle SpotTitleOf(std::string_view callsigns, std::string_view summit, std::string_view frequency,
                      std::string_view mode);

// What a description says: the comment, and behind the last "Posted by" the spotter. The last one counts, so
// that a comment cannot forge a spotter. Parentheses around the whole "(Posted by ...)" are dropped; one that
// does not stand directly before it belongs to the comment.
struct SpotDescription {
  std::string_view Comment;
  std::string_view Spotter;
};

SpotDescription ReadSpotDescription(std::string_view description);

}  // namespace brelwin
