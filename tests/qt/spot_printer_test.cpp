#include "console/spot_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "spots/spot_text.h"

namespace brelwin {
namespace {

using Lines = std::vector<std::string>;

class SpotPrinterTest : public ::testing::Test {
 protected:
  // Shows the spots as the program does: clears the list, then sets it.
  void ShowSpots(const SpotRows& spots) {
    screen_.Spots.txtSPOTList.Contents = std::string();
    screen_.Spots.txtSPOTList.Contents = spots;
  }

  static std::shared_ptr<Spot> MakeSpot(const std::string& spotter) {
    auto spot = std::make_shared<Spot>();
    spot->Spotter = spotter;
    return spot;
  }

  static std::string LineOf(const std::string& spotter) { return FixedWidthLine(*MakeSpot(spotter)); }

  Lines TakePrinted() { return std::exchange(printed_, {}); }

  Screen screen_;
  Lines printed_;
  SpotPrinter printer_{screen_, [this](std::string_view line) { printed_.emplace_back(line); }};
};

TEST_F(SpotPrinterTest, ASpotIsPrintedOnceHoweverTheListChanges) {
  const auto first = MakeSpot("same"), twin = MakeSpot("same"), third = MakeSpot("x");
  ShowSpots({first});
  ShowSpots({twin, first});  // an equal line of another spot is another line
  EXPECT_EQ(TakePrinted(), (Lines{LineOf("same"), LineOf("same")}));
  ShowSpots({twin});         // trimmed
  ShowSpots({third, twin});  // and grown again
  EXPECT_EQ(TakePrinted(), Lines{LineOf("x")});
}

TEST_F(SpotPrinterTest, AnAddressUsedAgainIsNotMistakenForAnOldSpot) {
  ShowSpots({MakeSpot("first life")});
  for (int life = 0; life < 100; ++life) ShowSpots({MakeSpot("next life")});
  EXPECT_EQ(TakePrinted().size(), 101u);
}

TEST_F(SpotPrinterTest, ACountdownIsPrintedWheneverItChanges) {
  for (const auto* text : {"2 seconds...", "2 seconds...", "", "2 seconds...", "1 seconds..."})
    screen_.Spots.txtSPOTList.Contents = text;
  EXPECT_EQ(TakePrinted(), (Lines{"2 seconds...", "1 seconds..."}));
}

TEST_F(SpotPrinterTest, StatesAreLinesOfTheirOwn) {
  screen_.Spots.lblCheckingForSpots.Visible = false;
  screen_.Spots.lblCheckingForSpots.Visible = true;
  screen_.Spots.lblStatus.Caption = "Connected";
  screen_.Spots.lblStatus.Caption = "";
  screen_.Spots.lblStatus.Caption = "404 \x1b[2JNot Found";
  EXPECT_EQ(TakePrinted(), (Lines{"Checking for spots...", "Connected", "404  [2JNot Found"}));
}

TEST_F(SpotPrinterTest, EveryDecisionOfTheGatewayIsPrintedOnceInItsOrder) {
  auto& journal = screen_.Gateway.lstGatewayJournal.Items;
  screen_.Gateway.lblGatewayState.Caption = "Gateway on";
  journal = Lines{"1"};
  journal = Lines{"3", "2", "1"};
  journal = Lines{"4", "3"};  // the oldest are forgotten
  EXPECT_EQ(TakePrinted(), (Lines{"Gateway on", "Gateway: 1", "Gateway: 2", "Gateway: 3", "Gateway: 4"}));
}

}  // namespace
}  // namespace brelwin
