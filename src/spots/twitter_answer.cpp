#include "spots/twitter_answer.h"

#include <nlohmann/json.hpp>

#include "spots/json_text.h"

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

}  // namespace brelwin
