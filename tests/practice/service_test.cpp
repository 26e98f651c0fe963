// The JSON service of the practice network: what a reader of it meets.
#include "service.h"

#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>

namespace practice {
namespace {

constexpr std::int64_t Hour = 3600;
constexpr std::int64_t Origin = 1'795'514'400;  // 24 November 2026, 10:00 UTC
constexpr std::size_t All = 500;

class Asker {
 public:
  explicit Asker(ServiceOptions options, std::uint64_t seed = 3)
      : playing_{seed, 1, Origin}, service_(playing_, options), feed_(seed, 1, Origin), book_(playing_) {}

  Reply Ask(const std::string& path, std::int64_t now, const std::string& tag = {}) {
    return service_.Answer(path, tag, feed_.Newest(now, All), book_, now);
  }

 private:
  Playing playing_;
  Service service_;
  Feed feed_;
  AnnouncementBook book_;
};

TEST(PracticeService, ServesSpotsThatAreCorrectedAndTakenBackAmongOddOnes) {
  Asker asker({RowShapes::Mixed});
  std::map<std::string, std::set<std::string>> seen;  // by identity: contents
  std::map<std::string, int> kinds;
  for (std::int64_t now = Origin; now < Origin + 4 * Hour; now += 600) {
    std::set<std::string> served;
    for (const auto& row : nlohmann::json::parse(asker.Ask("spots/200/all/all", now).Body)) {
      if (!row.is_object() || !row["id"].is_number()) {
        ++kinds["broken"];
        continue;
      }
      const auto id = row["id"].dump();
      served.insert(id);
      seen[id].insert(row.dump());
      ++kinds[row.contains("associationCode") ? "old" : row.value("type", "new")];
    }
    for (const auto& [id, contents] : seen) {
      if (contents.size() > 1) ++kinds["corrected"];
      if (!served.contains(id)) ++kinds["gone"];
    }
  }
  for (const auto* const kind : {"broken", "old", "NORMAL", "TEST", "QRT", "corrected", "gone"})
    EXPECT_GT(kinds[kind], 0) << kind;
}

TEST(PracticeService, SaysWhatIsStillTheSame) {
  Asker asker({RowShapes::New});
  for (const std::string path :
       {"spots/-24/all/all", "spots/epoch", "alerts/24/100/all/all", "alerts/epoch"}) {
    const auto first = asker.Ask(path, Origin);
    ASSERT_EQ(first.Status, 200) << path;
    const auto same = asker.Ask(path, Origin, first.Tag);
    EXPECT_EQ(same.Status, 304) << path;
    EXPECT_EQ(same.Body, "") << path;
    EXPECT_NE(asker.Ask(path, Origin + 4 * Hour).Body, first.Body) << path;
  }
  EXPECT_EQ(nlohmann::json::parse(asker.Ask("spots/7/all/all", Origin).Body).size(), 7U);
  for (const auto* const path :
       {"spots/0/all/all", "spots/x/all/all", "alerts/24/all/all", "spots/5/G/all", ""})
    EXPECT_EQ(asker.Ask(path, Origin).Status, 404) << path;
}

TEST(PracticeService, RefusesOrIsGoneForAWhileInEachWay) {
  Asker asker({RowShapes::New, 100});
  std::set<std::string> met;
  for (std::int64_t now = Origin; now < Origin + 48 * Hour; now += 120) {
    const auto reply = asker.Ask("spots/1/all/all", now);
    const bool isGoneByItsRows = reply.Body == "[]" || reply.Body.find("DEPRECATED") != std::string::npos;
    met.insert(isGoneByItsRows ? reply.Body.substr(0, 2) : std::to_string(reply.Status));
    if (reply.Status == 429) {
      met.insert(reply.RetryAfter.ends_with("GMT") ? "until a date" : "for some seconds");
    }
  }
  EXPECT_EQ(met, (std::set<std::string>{"200", "403", "404", "410", "429", "[]", "[{", "for some seconds",
                                        "until a date"}));
}

}  // namespace
}  // namespace practice
