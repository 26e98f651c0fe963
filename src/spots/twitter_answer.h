// Takes the tweets out of a search answer: JSON whose "results" hold one object for each tweet.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// The members of a result that matter, with escapes decoded; a missing one is empty.
struct Tweet {
  std::string ID;
  std::string CreatedAt;
  std::string Text;
};

struct TwitterAnswer {
  bool HasResults = false;  // whether there was an array "results" at all
  bool IsWhole = false;     // false for what is cut or is no JSON
  std::vector<Tweet> Tweets;
};

// Reads the answer without ever holding more of it than its tweets, however deep or broad it is. Half a
// surrogate pair, which cutting a text leaves behind, becomes U+FFFD.
TwitterAnswer ReadTwitterAnswer(std::string_view json);

}  // namespace brelwin
