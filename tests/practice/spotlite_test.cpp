// What the Spotlite form of the practice network answers.
#include "spotlite.h"

#include <gtest/gtest.h>

#include <array>

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

TEST(PracticeSite, GivesPagesTheTroubleThatIsAskedFor) {
  constexpr std::int64_t Now = 1'795'000'000;
  SharedFeed feed(Feed(1, 1, Now));
  Ledger ledger({}, [] { return Now * 1000; });
  Site site(feed, ledger, {{1, 1, Now}, {}, {}, 1000});
  int missing = 0, failed = 0, empty = 0, cut = 0, late = 0;
  for (int i = 0; i < 100; ++i) {
    const auto page = site.Answer({"GET", "/RssFeed", {}, "tester", "http://here"}, Now).Page;
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
