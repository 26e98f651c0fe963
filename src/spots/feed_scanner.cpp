#include "spots/feed_scanner.h"

#include <algorithm>
#include <array>

#include "base/encoding.h"
#include "base/entities.h"
#include "base/line_text.h"

namespace brelwin {

namespace {

bool IsWhiteSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Takes the white space from a line end on; what stood before it is in the text already.
void TakeLineEnd(std::string& text, std::string_view& rest) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  text.push_back(' ');
  rest.remove_prefix(
      static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsWhiteSpace) - rest.begin()));
}

void TakeSpecial(std::string& text, std::string_view& rest) {
  const char c = rest.front();
  if (c == '\n' || c == '\r') return TakeLineEnd(text, rest);
  const auto entity = c == '&' ? EntityAt(rest) : std::nullopt;
  if (entity) {
    AppendCodePoint(text, IsControlCharacter(entity->CodePoint) ? U' ' : entity->CodePoint);
  } else {
    text.push_back(c == '&' ? c : ' ');
  }
  rest.remove_prefix(entity ? entity->Length : 1);
}

void AppendDecoded(std::string& text, std::string_view rest, bool withEntities) {
  const auto isSpecial = [withEntities](char c) { return IsControlByte(c) || (withEntities && c == '&'); };
  while (!rest.empty()) {
    const auto special = std::find_if(rest.begin(), rest.end(), isSpecial);
    const auto plain = static_cast<std::size_t>(special - rest.begin());
    text.append(rest.substr(0, plain));
    rest.remove_prefix(plain);
    if (!rest.empty()) TakeSpecial(text, rest);
  }
}

}  // namespace

std::string DecodeFeedText(std::string_view raw) {
  std::string text;
  text.reserve(raw.size());
  while (!raw.empty()) {
    const auto begin = std::min(raw.find(CDataBegin), raw.size());
    AppendDecoded(text, raw.substr(0, begin), true);
    raw.remove_prefix(std::min(begin + CDataBegin.size(), raw.size()));
    const auto end = std::min(raw.find(CDataEnd), raw.size());
    AppendDecoded(text, raw.substr(0, end), false);
    raw.remove_prefix(std::min(end + CDataEnd.size(), raw.size()));
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text.erase(0, text.find_first_not_of(' '));
  return text;
}

namespace {

struct ElementName {
  std::string_view Name;
  FeedElement Element;
};

constexpr std::array<ElementName, 7> ElementNames = {{{"title", FeedElement::Title},
                                                      {"description", FeedElement::Description},
                                                      {"pubDate", FeedElement::PubDate},
                                                      {"item", FeedElement::Item},
                                                      {"rss", FeedElement::Rss},
                                                      {"rdf:RDF", FeedElement::Rss},
                                                      {"lastBuildDate", FeedElement::LastBuildDate}}};

bool EndsName(char c) {
  return c == '>' || c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

const ElementName* NameAt(std::string_view text) {
  for (const auto& element : ElementNames) {
    const auto name = element.Name;
    if (text.size() > name.size() && text[0] == name[0] && text.starts_with(name) &&
        EndsName(text[name.size()]))
      return &element;
  }
  return nullptr;
}

}  // namespace

std::optional<FeedTag> FeedTagFinder::Next() {
  while (true) {
    const auto begin = text_.find('<', position_);
    if (begin == std::string_view::npos) return {};
    if (const auto tag = TagAt(begin)) {
      position_ = tag->End;
      return tag;
    }
    position_ = text_.substr(begin).starts_with(CDataBegin) ? BehindCData(begin) : begin + 1;
  }
}

std::optional<FeedTag> FeedTagFinder::TagAt(std::size_t begin) const {
  const bool closes = text_.substr(begin + 1).starts_with('/');
  const auto nameAt = begin + (closes ? 2 : 1);
  const auto* name = NameAt(text_.substr(nameAt));
  if (name == nullptr) return {};
  const auto end = text_.find_first_of("<>", nameAt + name->Name.size());
  if (end == std::string_view::npos || text_[end] == '<') return {};
  return FeedTag{name->Element, closes, begin, end + 1};
}

// A section that is not closed reaches to the end: a comment in it, cut there, must not forge an item.
std::size_t FeedTagFinder::BehindCData(std::size_t begin) const {
  const auto end = text_.find(CDataEnd, begin);
  return end == std::string_view::npos ? text_.size() : end + CDataEnd.size();
}

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
