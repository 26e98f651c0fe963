// What holds of feeds whatever comes over the wire. The fuzzers try it with any bytes, the tests with seeded
// ones.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "base/encoding.h"
#include "base/text.h"
#include "spots/feed_scanner.h"
#include "spots/rss_feed.h"
#include "spots/service_feed.h"
#include "spots/twitter_feed.h"

namespace brelwin::test {

inline const ReadingMoment Noon{*DateTimeFromCalendar({2026, 11, 24, 12, 0, 0}), Instant{}, 0};

inline FeedReadResult ReadFeed(std::string_view text, SpotCollection& spots) {
  FeedReadResult result;
  CallsignCollection known;
  ReadFeedText(text, {"", "", std::int64_t{24} * 60, false}, Noon, known, spots, result);
  return result;
}

// A feed that is cut anywhere gives the first spots of the whole one, and never claims to be whole when what
// is missing holds spots.
inline bool CutFeedGivesFirstSpots(std::string_view bytes, std::size_t cut) {
  const auto text = TextFromBytes(bytes);
  SpotCollection whole;
  SpotCollection first;
  ReadFeed(text, whole);
  const auto result = ReadFeed(std::string_view(text).substr(0, std::min(cut, text.size())), first);
  if (first.Count() > whole.Count() || (first.Count() < whole.Count() && !IsFailure(result.End)))
    return false;
  auto expected = whole.begin();
  return std::all_of(first.begin(), first.end(), [&](const auto& entry) {
    const auto& spot = *(expected++)->Item;
    return spot.ID == entry.Item->ID && spot.Comment == entry.Item->Comment;
  });
}

// Text without control characters and outer blanks reads back from its escaped form.
inline bool EscapedTextReadsBack(std::string_view bytes) {
  std::string text = TextFromBytes(bytes);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; },
      '.');
  text = Trim(text);
  const auto escaped = Replace(Replace(Replace(text, "&", "&amp;"), "<", "&#60;"), ">", "&#x3E;");
  return DecodeFeedText(escaped) == text;
}

// A search answer gives spots only when it is whole, each of them newer than asked for.
inline bool SearchAnswerIsAllOrNothing(std::string_view bytes) {
  FeedReadResult result;
  CallsignCollection known;
  SpotCollection spots;
  ReadTwitterText(TextFromBytes(bytes), {"", "41", std::int64_t{24} * 60}, Noon, known, spots, result);
  return (result.End == FeedEnd::EndOfFeed || spots.Empty()) && !spots.Contains("41") && !spots.Contains("7");
}

inline void ReadServiceList(std::string_view bytes, std::vector<MadeSpots>& spots, FeedReadResult& result) {
  CallsignCollection known;
  ReadServiceSpots(bytes, std::int64_t{24} * 60, Noon, known, spots, result);
}

// A list of the service that is cut anywhere gives some of the spots of the whole one, in their order, and
// never claims to be whole when what is missing holds spots.
inline bool CutListGivesItsFirstRows(std::string_view bytes, std::size_t cut) {
  std::vector<MadeSpots> whole;
  std::vector<MadeSpots> first;
  FeedReadResult result;
  ReadServiceList(bytes, whole, result);
  ReadServiceList(bytes.substr(0, std::min(cut, bytes.size())), first, result);
  if (first.size() < whole.size() && !IsFailure(result.End)) return false;
  auto next = whole.begin();
  return std::ranges::all_of(first, [&](const MadeSpots& made) {
    const auto isSame = [&](const MadeSpots& other) { return other.First->ID == made.First->ID; };
    next = std::find_if(next, whole.end(), isSame);
    return next != whole.end() && (next++)->First->Comment == made.First->Comment;
  });
}

}  // namespace brelwin::test
