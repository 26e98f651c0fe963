#include "spots/feed_tags.h"

#include <array>

#include "spots/feed_text.h"

namespace brelwin {
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

}  // namespace brelwin
