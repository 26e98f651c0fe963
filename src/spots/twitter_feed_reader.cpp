#include "spots/twitter_feed_reader.h"

#include <algorithm>
#include <tuple>

#include "base/text.h"
#include "core/trap.h"
#include "radio/dates.h"
#include "radio/url_encode.h"
#include "spots/feed_text.h"
#include "spots/known_activators.h"
#include "spots/spot_collections.h"
#include "spots/spot_title.h"
#include "spots/twitter_answer.h"

namespace brelwin {
namespace {

bool IsTweetID(std::string_view id) {
  return !id.empty() && std::all_of(id.begin(), id.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Compares the numbers, which can be longer than any integer type.
bool IsNewer(std::string_view id, std::string_view than) {
  id.remove_prefix(std::min(id.find_first_not_of('0'), id.size()));
  than.remove_prefix(std::min(than.find_first_not_of('0'), than.size()));
  return std::tuple(id.size(), id) > std::tuple(than.size(), than);
}

class TweetReader {
 public:
  TweetReader(const TwitterReadRequest& request, const ReadingMoment& moment,
              CallsignCollection& knownActivators, SpotCollection& spots, FeedReadResult& result)
      : request_(request),
        utcNow_(moment.UTCNow),
        maker_(moment, knownActivators, result.LearnedActivators),
        spots_(spots),
        result_(result) {}

  void Read(const Tweet& tweet) {
    if (!IsTweetID(tweet.ID)) return NoteSkippedItem(result_, tweet.Text, tweet.ID);
    if (!IsNewer(tweet.ID, request_.SinceID)) return;
    if (IsNewer(tweet.ID, result_.NewestID)) result_.NewestID = tweet.ID;
    const auto utc = ReadDateTime(tweet.CreatedAt);
    if (utc && MinutesBetween(*utc, utcNow_) > request_.MaximumAgeInMinutes) return;
    Add(tweet.ID, DecodeFeedText(tweet.Text), utc);
  }

 private:
  void Add(const std::string& id, const std::string& text, std::optional<DateTime> utc) {
    const auto title = ReadSpotTitle(text);
    const auto said = ReadSpotDescription(title.Rest);
    const auto made = maker_.MakeSpots({id, title, said.Comment, said.Spotter, utc, ++tweetCount_});
    if (made.First == nullptr) return NoteSkippedItem(result_, text, id);
    AddSpotByID(made.First, spots_);
    AddSpotByID(made.Second, spots_);
  }

  const TwitterReadRequest& request_;
  DateTime utcNow_;
  SpotMaker maker_;
  SpotCollection& spots_;
  FeedReadResult& result_;
  std::int32_t tweetCount_ = 0;
};

}  // namespace

void ReadTwitterText(std::string_view text, const TwitterReadRequest& request, const ReadingMoment& moment,
                     CallsignCollection& knownActivators, SpotCollection& spots, FeedReadResult& result) {
  const auto answer = ReadTwitterAnswer(text);
  result.End = answer.HasResults ? FeedEnd::Cut : FeedEnd::NoFeed;
  if (!answer.HasResults || !answer.IsWhole) return;
  TweetReader reader(request, moment, knownActivators, spots, result);
  for (const auto& tweet : answer.Tweets) reader.Read(tweet);
  result.End = FeedEnd::EndOfFeed;
}

FeedReadResult ReadTwitterSpots(Host& host, const TwitterReadRequest& request,
                                CallsignCollection& knownActivators, SpotCollection& spots) {
  FeedReadResult result;
  InternetTransfer transfer(host);
  LogErrors(host, "ReadTwitterSpots", false, [&] {
    const auto text = transfer.OpenURL(Replace(request.UrlTemplate, "ZZZZ", URLEncode(request.SinceID)));
    if (!transfer.LastStatus()) return false;
    ReadTwitterText(text, request, ReadingMomentOf(host), knownActivators, spots, result);
    return true;
  });
  DescribeAnswer(transfer, "Twitter", result);
  SaveLearnedActivators(host, result.LearnedActivators, MissingList::IsCreated);
  return result;
}

}  // namespace brelwin
