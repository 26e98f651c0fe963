// The alert: which spots call for the sound, which file it is, what becomes of the window, and the buttons.
#include "ui/alerting.h"

#include <gtest/gtest.h>

#include "spot_builder.h"
#include "test_host.h"
#include "ui/sound_decision.h"

namespace brelwin {
namespace {

using test::Collect;
using test::MakeSpot;

std::vector<std::string> CallingIds(std::int16_t when, const SpotCollection& newSpots,
                                    const SpotCollection& list) {
  std::vector<std::string> ids;
  for (const auto& spot : SpotsCallingForSound(when, newSpots, newSpots, list)) ids.push_back(spot->ID);
  return ids;
}

// What a new spot differs in from the one older spot, and the levels at which it then calls for the sound.
TEST(SoundDecision, CallsWhenNothingOlderMatchesDownToTheLevel) {
  const auto older = MakeSpot("old", "G4ABC/P", "G/LD-001");
  auto summit = MakeSpot("new", "G4ABC", "G/LD-002");
  auto station = MakeSpot("new", "G4XYZ", "G/LD-001");
  auto band = MakeSpot("new", "G4ABC", "G/LD-001");
  band.BandInMhz = 7;
  auto mode = MakeSpot("new", "G4ABC", "G/LD-001");
  mode.ModeString = "SSB";
  auto frequency = MakeSpot("new", "G4ABC", " g/ld-001 ");
  frequency.FrequencyInMhz = 14.063F;
  const Spot byLevel[] = {summit, station, band, mode, frequency};

  for (std::int16_t differs = 1; differs <= 5; ++differs) {
    const auto newSpots = Collect({byLevel[differs - 1]});
    auto list = Collect({byLevel[differs - 1], older});
    for (std::int16_t when = 1; when <= 5; ++when) {
      EXPECT_EQ(CallingIds(when, newSpots, list).size(), when >= differs ? 1U : 0U) << when << differs;
    }
    EXPECT_EQ(CallingIds(0, newSpots, list).size(), 0U);
    EXPECT_EQ(CallingIds(6, newSpots, list).size(), 1U);
    EXPECT_EQ(CallingIds(7, newSpots, list).size(), 0U);
  }
}

TEST(SoundDecision, EverythingIsNewWithoutOtherSpotsOrWithoutASummit) {
  const auto alone = Collect({MakeSpot("1", "G4ABC", "G/LD-001")});
  EXPECT_EQ(CallingIds(1, alone, {}).size(), 1U);
  EXPECT_EQ(CallingIds(1, alone, alone).size(), 1U);
  const auto nowhere = Collect({MakeSpot("2", "G4ABC", " ")});
  EXPECT_EQ(CallingIds(5, nowhere, Collect({MakeSpot("2", "G4ABC", " "), MakeSpot("1", "G4ABC", "")})).size(),
            1U);
}

TEST(SoundDecision, ALaterSpotOfTheBatchDoesNotSilenceAnEarlierOne) {
  const auto newSpots =
      Collect({MakeSpot("3 latest", "G4ABC", "G/LD-001"), MakeSpot("2", "G4XYZ", "G/LD-002"),
               MakeSpot("1 first", "G4ABC", "G/LD-001")});
  auto list = newSpots;
  EXPECT_EQ(CallingIds(5, newSpots, list), (std::vector<std::string>{"2", "1 first"}));
  list.Add(std::make_shared<Spot>(MakeSpot("0", "G4ABC", "G/LD-001")), "0");
  EXPECT_EQ(CallingIds(5, newSpots, list), std::vector<std::string>{"2"});
}

struct SoundTest : ::testing::Test {
  test::TestHost World;
  SoundCalls Calls;

  void HaveFiles(std::initializer_list<std::string_view> names) {
    for (const auto name : names) World.Disk.Put("/brelwin/" + std::string(name), "RIFF");
  }
  void Call(std::string_view callsign, std::string_view reference) {
    Calls.Callsigns.Add(std::string(callsign), callsign);
    Calls.SummitReferences.Add(std::string(reference), reference);
  }
  std::string Choice() { return ChooseSoundFile(World.World, Calls, "chimes.wav"); }
};

TEST_F(SoundTest, ChoosesTheMostParticularFileThatIsThere) {
  Call("G4ABC", "W6/CT-001");
  Call("G4XYZ", "G/LD-001");
  Call("Q0ZZ", "G/LD-002");
  EXPECT_EQ(Choice(), "chimes.wav");
  HaveFiles({"G.wav"});
  EXPECT_EQ(Choice(), "G.wav");
  HaveFiles({"W6-CT-0.wav"});
  EXPECT_EQ(Choice(), "W6-CT-0.wav");  // the newer call goes before the longer name
  HaveFiles({"W6-CT-001.wav"});
  EXPECT_EQ(Choice(), "W6-CT-001.wav");
  HaveFiles({"G4XYZ.wav"});
  EXPECT_EQ(Choice(), "G4XYZ.wav");
  HaveFiles({"G4ABC.wav"});
  EXPECT_EQ(Choice(), "G4ABC.wav");
  HaveFiles({"Q0ZZ.wav"});
  EXPECT_EQ(Choice(), "Q0ZZ.wav");
}

TEST_F(SoundTest, LooksForNoFileOutsideTheFolder) {
  World.Disk.Put("/secret.wav", "RIFF");
  World.Disk.Put("/brelwin/sub/G4ABC.wav", "RIFF");
  HaveFiles({"..-secret.wav", ".-.-x.wav", ".wav"});
  Call("../secret", "../secret");
  Call("sub/G4ABC", "sub\\G4ABC");
  Call("sub\\G4ABC", "");
  EXPECT_EQ(Choice(), "chimes.wav");
}

TEST_F(SoundTest, AWildFeedCostsABoundedNumberOfLooks) {
  Call("G4ABC", std::string(1'000'000, 'x'));
  for (int i = 0; i < 1000; ++i) Call("X" + std::to_string(i), "R" + std::to_string(i));
  HaveFiles({"X999.wav", "R999.wav", "xx.wav"});
  EXPECT_EQ(Choice(), "xx.wav");
}

TEST_F(SoundTest, ButtonsSayWhatIsWrong) {
  FiltersTab filters;
  GatewayTab gateway;
  const auto shownAfter = [&](std::string_view file) {
    World.Dialogs.Shown.clear();
    filters.txtAlertSound.Text = std::string(file);
    gateway.txtGatewaySound.Text = std::string(file);
    cmdPlayAlertSound_Click(World.World, filters);
    cmdPlayGatewaySound_Click(World.World, gateway);
    std::vector<std::string> shown;
    for (const auto& message : World.Dialogs.Shown) shown.push_back(message.Title + ": " + message.Text);
    return shown;
  };
  using Texts = std::vector<std::string>;
  EXPECT_EQ(shownAfter(" "), (Texts{"Play Alert Sound: No sound file has been specified.",
                                    "Play Gateway Sound: No gateway sound file has been specified."}));
  EXPECT_EQ(shownAfter("x.wav"),
            (Texts{"Play Alert Sound: The sound file /brelwin\\x.wav does not exist.",
                   "Play Gateway Sound: The sound file /brelwin\\x.wav does not exist."}));
  HaveFiles({"x.wav"});
  World.Disk.Put("/sounds/y.wav", "RIFF");
  EXPECT_EQ(shownAfter(" x.wav"), Texts{});
  EXPECT_EQ(shownAfter("/sounds/y.wav "), Texts{});
  EXPECT_EQ(World.Sound.Played.front().first, "/brelwin\\x.wav");
  EXPECT_EQ(World.Sound.Played.back().first, "/sounds/y.wav");
  World.Sound.Result = 0;
  EXPECT_EQ(shownAfter("x.wav"),
            Texts{"Play Alert Sound: Unexpected return value from the Windows API PlaySound function:0"});
}

struct AlertingTest : SoundTest {
  SpotFilter Filter;
  TestSettings Test;
  Form Window;
  SpotCollection List = Collect({MakeSpot("2", "G4ABC", "G/LD-001"), MakeSpot("1", "G4ABC", "G/LD-001")});
  SpotCollection NewSpots = Collect({MakeSpot("2", "G4ABC", "G/LD-001")});
  std::function<bool(const Spot&)> IsNeeded;

  AlertingTest() {
    HaveFiles({"chimes.wav"});
    Filter.AlertSound = "chimes.wav";
    Filter.PlaySoundWhen = 6;
    Filter.ShowWindowOnAlert = true;
    Window.State = WindowState::Minimised;
    Window.CurrentTab = 3;
  }

  bool Sounds(bool isFirstLoad = false) {
    World.Sound.Played.clear();
    AlertOnNewSpots(World.World, NewSpots, Filter, List, &Test, &Window, isFirstLoad, IsNeeded);
    return !World.Sound.Played.empty();
  }
};

TEST_F(AlertingTest, SoundsAndBringsAMinimisedWindowBack) {
  int focused = 0;
  const auto watch = Window.SetFocus.WhenRaised([&] { ++focused; });
  EXPECT_TRUE(Sounds());
  EXPECT_FALSE(World.Sound.Played.front().second);
  EXPECT_EQ(Window.State.Get(), WindowState::Normal);
  EXPECT_EQ(Window.CurrentTab.Get(), 0);
  Window.CurrentTab = 3;
  EXPECT_TRUE(Sounds());  // a window in sight is left as it is
  EXPECT_EQ(Window.CurrentTab.Get(), 3);
  EXPECT_EQ(focused, 1);
}

TEST_F(AlertingTest, TheFirstLoadIsAllNewsUnlessATestSwitchIsOn) {
  Filter.PlaySoundWhen = 1;
  EXPECT_TRUE(Sounds(true));
  Test.TestMode2 = true;
  EXPECT_FALSE(Sounds(true));
}

TEST_F(AlertingTest, MayAskWhetherASpotIsNeeded) {
  IsNeeded = [](const Spot& spot) { return spot.SummitDesignator == "G/LD-002"; };
  EXPECT_FALSE(Sounds());
  IsNeeded = [](const Spot& spot) { return spot.SummitDesignator == "G/LD-001"; };
  EXPECT_TRUE(Sounds());
}

}  // namespace
}  // namespace brelwin
