// Takes the items of an RSS feed out of its text, wherever their tags stand: anywhere in a line, elements
// over several lines, or a whole feed on one line.
#pragma once

#include <optional>
#include <string_view>

#include "spots/feed_tags.h"

namespace brelwin {

// The contents of the elements of one item, as they stand in the feed's text. Of several elements of one
// name the last counts; a missing one is empty.
struct RawFeedItem {
  std::string_view Title;
  std::string_view PubDate;
  std::string_view Description;
};

class FeedScanner {
 public:
  // The text must outlive the scanner and the items.
  explicit FeedScanner(std::string_view text) : text_(text), tags_(text) {}

  // The next item that is there from its beginning to its end; empty when there is none.
  std::optional<RawFeedItem> NextItem();

  // Whether anything so far looked like a feed, and whether its closing tag was met: only that tag proves
  // that the text was not cut.
  bool LooksLikeFeed() const { return looksLikeFeed_; }
  bool ReachedEnd() const { return reachedEnd_; }

 private:
  std::string_view text_;
  FeedTagFinder tags_;
  bool looksLikeFeed_ = false;
  bool reachedEnd_ = false;
};

}  // namespace brelwin
