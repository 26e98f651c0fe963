#include "spots/twitter_feed.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <tuple>

#include "base/text.h"
#include "core/trap.h"
#include "radio/dates.h"
#include "radio/web_address.h"
#include "spots/feed_scanner.h"
#include "spots/json_text.h"
#include "spots/known_activators.h"
#include "spots/spot_collections.h"
#include "spots/spot_title.h"

namespace brelwin {

namespace {

using Json = nlohmann::json;

// Listens to the parser and keeps the tweets: objects at depth 3, in the array "results" of the outermost
// object.
class ResultsListener final : public nlohmann::json_sax<Json> {
 public:
  explicit ResultsListener(TwitterAnswer& answer) : answer_(answer) {}

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool parse_error(std::size_t, const std::string&, const Json::exception&) override { return false; }

  bool key(string_t& name) override {
    key_ = std::move(name);
    return true;
  }

  bool string(string_t& value) override {
    if (inResults_ && depth_ == TweetDepth && !answer_.Tweets.empty()) Store(value);
    return true;
  }

  bool start_object(std::size_t) override {
    ++depth_;
    if (inResults_ && depth_ == TweetDepth) answer_.Tweets.emplace_back();
    return true;
  }

  bool end_object() override {
    --depth_;
    return true;
  }

  bool start_array(std::size_t) override {
    if (depth_ == 1 && key_ == "results") inResults_ = answer_.HasResults = true;
    key_.clear();
    ++depth_;
    return true;
  }

  bool end_array() override {
    --depth_;
    inResults_ = inResults_ && depth_ > 1;
    return true;
  }

 private:
  static constexpr std::size_t TweetDepth = 3;

  void Store(string_t& value) {
    auto& tweet = answer_.Tweets.back();
    if (key_ == "id_str") {
      tweet.ID = std::move(value);
    } else if (key_ == "created_at") {
      tweet.CreatedAt = std::move(value);
    } else if (key_ == "text") {
      tweet.Text = std::move(value);
    }
  }

  TwitterAnswer& answer_;
  std::size_t depth_ = 0;
  std::string key_;
  bool inResults_ = false;
};

}  // namespace

TwitterAnswer ReadTwitterAnswer(std::string_view json) {
  TwitterAnswer answer;
  ResultsListener listener(answer);
  answer.IsWhole = Json::sax_parse(MendSurrogates(json), &listener);
  return answer;
}

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
