// Takes the items of an RSS feed out of its text, wherever their tags stand: anywhere in a line, elements
// over several lines, or a whole feed on one line. The text of an element is given as people read it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brelwin {

inline constexpr std::string_view CDataBegin = "<![CDATA[";
inline constexpr std::string_view CDataEnd = "]]>";

// Entities are decoded once, except in CDATA sections, whose marks are dropped. Line ends become one blank
// together with the white space around them, other control characters, decoded ones included, one blank each.
// Outer blanks are trimmed. What is no entity stays as it is.
std::string DecodeFeedText(std::string_view raw);

enum class FeedElement : std::uint8_t { Rss, Item, Title, PubDate, Description, LastBuildDate };

struct FeedTag {
  FeedElement Element = FeedElement::Rss;
  bool Closes = false;
  std::size_t Begin = 0;  // of "<" in the text
  std::size_t End = 0;    // behind ">"
};

class FeedTagFinder {
 public:
  // The text must outlive the finder.
  explicit FeedTagFinder(std::string_view text) : text_(text) {}

  // The next tag; empty behind the last one.
  std::optional<FeedTag> Next();

 private:
  std::optional<FeedTag> TagAt(std::size_t begin) const;
  std::size_t BehindCData(std::size_t begin) const;

  std::string_view text_;
  std::size_t position_ = 0;
};

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
