// Finds the tags that matter in a feed's text and passes over all others, and over CDATA sections.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brelwin {

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

}  // namespace brelwin
