// What the Spotlite form of the practice network answers.
#include "spotlite.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "site.h"

namespace practice {
namespace {

const std::string Body =
    "actCallsign=G4ABC/P&assoc=G&summit=LD-001&freq=7.032&mode=cw&callsign=Q0ZZ&password=secret&submit=SPOT!"
    "&comments=CQ%20at%2020%20wpm";

Taken Answer(const std::string& mix, const std::string& body = Body) {
  SpotliteOptions options;
  options.Mix = *ReadSpotliteMix(mix);
  return Spotlite(1, options).Take(ReadForm(body));
}

std::string With(const std::string& old, const std::string& replacement) {
  auto body = Body;
  return body.replace(body.find(old), old.size(), replacement);
}

bool Has(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

TEST(Spotlite, AnHonestFormSaysWhatIsWrong) {
  const auto accepted = Answer("honest");
  EXPECT_EQ(accepted.Answer, SpotliteAnswer::Accepted);
  for (const auto* shown : {"G4ABC/P", "7.032", ">cw<", "CQ at 20 wpm"})
    EXPECT_TRUE(Has(accepted.Page.Body, shown)) << shown;
  ASSERT_TRUE(accepted.Spot);
  EXPECT_EQ(accepted.Spot->Summit + " " + accepted.Spot->Mode, "G/LD-001 CW");

  const std::vector<std::array<std::string, 3>> failures = {
      {"secret", "wrong", "submission failed: the password you gave was incorrect"},
      {"assoc=G", "assoc=Z8", "submission failed: the association you gave was not valid"},
      {"7.032", "1.5", "submission failed: the frequency you gave is not valid"},
      {"G4ABC/P", "", "submission failed."},
      {"&mode=cw", "", "submission failed."}};
  for (const auto& [old, replacement, words] : failures) {
    const auto failed = Answer("honest", With(old, replacement));
    EXPECT_TRUE(Has(failed.Page.Body, words)) << words << "\n" << failed.Page.Body;
    EXPECT_FALSE(failed.Spot);
  }
}

TEST(Spotlite, EveryAnswerCanBeAskedFor) {
  EXPECT_EQ(Answer("server-error").Page.Status, 500);
  EXPECT_FALSE(Answer("server-error").Spot);
  EXPECT_FALSE(Has(Answer("without-echo").Page.Body, "G4ABC"));
  EXPECT_LT(*Answer("cut").Page.CutAt, Answer("cut").Page.Body.size());
  EXPECT_GT(Duration(Answer("slow").Page), 7'000);
  EXPECT_EQ(Answer("slow").Page.Wait, 0);
  EXPECT_EQ(Answer("late").Page.Wait, 8'000);
  EXPECT_LT(Answer("pieces").Page.PieceSize, 20U);
  for (const auto* taken : {"without-echo", "cut", "slow", "late", "pieces", "redirect", "accepted"})
    EXPECT_TRUE(Answer(taken).Spot) << taken;
}

TEST(Spotlite, AMixIsDrawnByItsShares) {
  SpotliteOptions options;
  options.Mix = *ReadSpotliteMix("accepted:9,late");
  Spotlite form(3, options);
  int late = 0;
  for (int i = 0; i < 1000; ++i) late += form.Take(ReadForm(Body)).Answer == SpotliteAnswer::Late ? 1 : 0;
  EXPECT_NEAR(late, 100, 40);
}

class PracticeSite : public ::testing::Test {
 protected:
  static constexpr std::int64_t Now = 1'795'000'000;
  const std::string File = ::testing::TempDir() + "/practice_site_ledger.txt";

  void SetUp() override { std::remove(File.c_str()); }

  Exchange Ask(Site& site, const std::string& method, const std::string& target,
               const std::string& body = {}) {
    auto exchange = site.Answer({method, target, body, "tester", "http://here"}, Now);
    site.Sent(exchange);
    return exchange;
  }

  std::string Book() const {
    std::ostringstream text;
    text << std::ifstream(File).rdbuf();
    return text.str();
  }
};

TEST_F(PracticeSite, PublishesAnAcceptedSpotAfterItsLagAndWritesAllDown) {
  SharedFeed feed(Feed(1, 1, Now));
  Ledger ledger(File, [] { return Now * 1000; });
  Site site(feed, ledger, {{1, 1, Now}, {.Mix = *ReadSpotliteMix("redirect")}});
  const auto answer = Ask(site, "POST", std::string(SpotlitePath), Body);
  EXPECT_EQ(answer.Page.Status, 303);
  EXPECT_TRUE(Has(Ask(site, "GET", answer.Page.Location).Page.Body, "has been accepted"));
  EXPECT_EQ(Ask(site, "POST", "/elsewhere", Body).Page.Status, 404);
  EXPECT_EQ(feed.Newest(Now + 6, 1).front().What.Spotter, "Q0ZZ");
  const auto book = Book();
  for (const auto* part : {R"("kind":"asked","request":1,"method":"POST")", R"("comments":"CQ at 20 wpm")",
                           R"("answer":"redirect","taken":true)", R"("status":404)"})
    EXPECT_TRUE(Has(book, part)) << part << "\n" << book;
}

TEST_F(PracticeSite, GivesPagesTheTroubleThatIsAskedFor) {
  SharedFeed feed(Feed(1, 1, Now));
  Ledger ledger(File, [] { return Now * 1000; });
  Site site(feed, ledger, {{1, 1, Now}, {}, 1000});
  int missing = 0, failed = 0, empty = 0, cut = 0, late = 0;
  for (int i = 0; i < 100; ++i) {
    const auto page = Ask(site, "GET", "/RssFeed").Page;
    missing += page.Status == 0;
    failed += page.Status == 500;
    cut += page.CutAt.has_value();
    late += page.Wait > 0;
    empty += page.Status == 200 && page.Body.empty();
  }
  for (const int count : {missing, failed, empty, cut, late}) EXPECT_GT(count, 5);
  EXPECT_EQ(missing + failed + empty + cut + late, 100);
}

}  // namespace
}  // namespace practice
