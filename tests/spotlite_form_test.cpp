// The form by which spots are posted, and what its answers mean.
#include <gtest/gtest.h>

#include <random>

#include "form_properties.h"
#include "gateway/spotlite_form.h"
#include "gateway/submission_status.h"

namespace brelwin {
namespace {

Spot GoodSpot() {
  Spot spot;
  spot.Station = " G4ABC/P ";
  spot.SummitDesignator = " G / LD-001 ";
  spot.FrequencyInMhz = 14.062F;
  spot.ModeString = "CW";
  spot.Comment = " 22 wpm & S/N=17 dB {Via Tarnlink} ";
  return spot;
}

TEST(SpotliteForm, IsRefusedForWhatIsMissingOrWouldAddAField) {
  const auto with = [](auto change) {
    auto spot = GoodSpot();
    change(spot);
    return CheckSpotliteForm("q0zz", "secret", spot).Refusal;
  };
  EXPECT_EQ(CheckSpotliteForm("  ", "secret", GoodSpot()).Refusal, FormRefusal::NoLogin);
  EXPECT_EQ(CheckSpotliteForm("q0zz", " ", GoodSpot()).Refusal, FormRefusal::NoPassword);
  EXPECT_EQ(with([](Spot& spot) { spot.Station = " "; }), FormRefusal::NoStation);
  EXPECT_EQ(with([](Spot& spot) { spot.Station = "G4ABC&freq=7"; }), FormRefusal::ForbiddenCharacter);
  EXPECT_EQ(with([](Spot& spot) { spot.Station = "Г4ABC"; }), FormRefusal::ForbiddenCharacter);
  EXPECT_EQ(with([](Spot& spot) { spot.SummitDesignator = " "; }), FormRefusal::NoSummit);
  for (const auto* summit : {"LD-001", "G/LD/001", "/LD-001", "G/ "})
    EXPECT_EQ(with([&](Spot& spot) { spot.SummitDesignator = summit; }), FormRefusal::SummitNotInTwoParts);
  EXPECT_EQ(with([](Spot& spot) { spot.SummitDesignator = "G/LD=1"; }), FormRefusal::ForbiddenCharacter);
  for (const float frequency : {0.F, -7.F, std::numeric_limits<float>::quiet_NaN()})
    EXPECT_EQ(with([&](Spot& spot) { spot.FrequencyInMhz = frequency; }), FormRefusal::NoFrequency);
  EXPECT_EQ(with([](Spot& spot) { spot.ModeString = ""; }), FormRefusal::NoMode);
  EXPECT_EQ(with([](Spot& spot) { spot.Comment = ""; }), FormRefusal::None);
}

TEST(SpotliteForm, NeverGainsAField) {
  std::mt19937 generator(5);
  const std::string_view alphabet = "GG/L--14&=%+ \r\"<;#?\xC3\xA9\x80";
  for (int round = 0; round < 20000; ++round) {
    std::string text = "G4\nG/L1\nCW\n";
    for (int change = 0; change < 4; ++change)
      text.insert(generator() % (text.size() + 1), 1, alphabet[generator() % alphabet.size()]);
    ASSERT_TRUE(test::FormNeverGainsAField(text)) << text;
  }
}

TEST(SpotliteAnswer, MeansTheSameHoweverItIsCut) {
  std::mt19937 generator(6);
  const std::vector<std::string> words{"submission failed",
                                       "caf\xC3\xA9",
                                       "caf\xE9",
                                       "G4ABC",
                                       "14.062",
                                       "cw",
                                       "password you gave was incorrect",
                                       "\r\n",
                                       " "};
  for (int round = 0; round < 500; ++round) {
    std::string text(1, static_cast<char>(generator() % 40));
    for (auto left = generator() % 12; left > 0; --left) text += words[generator() % words.size()];
    ASSERT_TRUE(test::AnswerMeansTheSameAtAnyCut(text)) << text;
  }
}

TEST(SpotliteAnswer, IsClassifiedByWhatThePageSays) {
  const auto form = CheckSpotliteForm("q0zz", "secret", GoodSpot()).Form;
  const std::string echo = "G4ABC/P 14.062 cw 22 wpm & S/N=17 dB {Via Tarnlink}";
  const std::pair<std::string, std::int32_t> pages[] = {
      {echo, StatusAccepted},
      {echo + " Submission Failed", StatusAccepted},
      {echo + " submission failed", StatusRefused},
      {Replace(echo, "cw", "CW"), StatusUnrecognisedAnswer},
      {Replace(echo, ".062", ".06"), StatusUnrecognisedAnswer},
      {"the password you gave was incorrect", StatusUnrecognisedAnswer},
      {"submission failed, the association you gave was not valid, the frequency you gave is not valid",
       StatusBadAssociation},
      {"the association you gave was not valid, the password you gave was incorrect: submission failed",
       StatusBadLogin},
  };
  for (const auto& [page, status] : pages) EXPECT_EQ(ClassifySpotliteAnswer(page, form), status) << page;
}

}  // namespace
}  // namespace brelwin
