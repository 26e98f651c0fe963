#include "spots/feed_scanner.h"

namespace brelwin {
namespace {

std::string_view* ContentOf(FeedElement element, RawFeedItem& item) {
  switch (element) {
    case FeedElement::Title: return &item.Title;
    case FeedElement::PubDate: return &item.PubDate;
    case FeedElement::Description: return &item.Description;
    case FeedElement::Rss:
    case FeedElement::Item:
    case FeedElement::LastBuildDate: break;
  }
  return nullptr;
}

}  // namespace

std::optional<RawFeedItem> FeedScanner::NextItem() {
  RawFeedItem item;
  bool inItem = false;
  std::string_view* open = nullptr;  // content of the element being read, which ends at the next tag
  std::size_t contentBegin = 0;
  while (const auto tag = reachedEnd_ ? std::nullopt : tags_.Next()) {
    if (open != nullptr) *open = text_.substr(contentBegin, tag->Begin - contentBegin);
    open = nullptr;
    contentBegin = tag->End;
    looksLikeFeed_ = looksLikeFeed_ || tag->Element == FeedElement::Rss || tag->Element == FeedElement::Item;
    if (tag->Element == FeedElement::Rss) {
      reachedEnd_ = tag->Closes;
    } else if (tag->Element == FeedElement::Item) {
      if (tag->Closes && inItem) return item;
      item = {};
      inItem = !tag->Closes;
    } else if (inItem && !tag->Closes) {
      open = ContentOf(tag->Element, item);
    }
  }
  return {};
}

}  // namespace brelwin
