// Collections of spots.
#include "spots/spot_collections.h"

#include <gtest/gtest.h>

namespace brelwin {
namespace {

SpotPointer MakeSpot(std::string id, std::string comment = {}) {
  auto spot = std::make_shared<Spot>();
  spot->ID = std::move(id);
  spot->Comment = std::move(comment);
  return spot;
}

SpotCollection Collection(std::initializer_list<std::string> ids, const std::string& comment) {
  SpotCollection spots;
  for (const auto& id : ids) AddSpotByID(MakeSpot(id, comment), spots);
  return spots;
}

std::string Summary(const SpotCollection& spots) {
  std::string summary;
  for (const auto& entry : spots) summary += entry.Item->ID + entry.Item->Comment + " ";
  return summary;
}

TEST(SpotCollections, HelpersReportWhatTheyDid) {
  CallsignCollection calls;
  EXPECT_FALSE(RemoveFromCollection("G4ABC", calls));
  EXPECT_TRUE(AddToCollection("G4ABC", "G4ABC", calls));
  EXPECT_FALSE(AddToCollection("g4abc", "g4abc", calls));

  auto spots = Collection({"2", "3", "3"}, "a");
  EXPECT_FALSE(AddSpotByID(nullptr, spots));
  EXPECT_EQ(CopyNewSpots(Collection({"1", "2", "4"}, "b"), spots), 2);
  EXPECT_EQ(CopyNewSpots(spots, spots), 0);
  TrimCollection(-1, spots);
  EXPECT_EQ(Summary(spots), "2a 3a 1b 4b ");
  TrimCollection(3, spots);
  EXPECT_EQ(Summary(spots), "2a 3a 1b ");
  TrimCollection(0, spots);
  EXPECT_TRUE(spots.Empty());
}

TEST(SpotCollections, MergingPutsTheNewestBatchWholeInFront) {
  auto list = Collection({"2", "1"}, "old");
  MergeInFront(Collection({"4", "1", "3"}, "new"), list);
  EXPECT_EQ(Summary(list), "4new 1new 3new 2old ");
  MergeInFront(list, list);
  EXPECT_EQ(list.Count(), 4U);
}

TEST(SpotCollections, MergingIntoABoundedListKeepsWhatMergingAndTrimmingWould) {
  const auto batch = Collection({"6", "2", "5", "4"}, "new");
  for (std::int32_t maximum = 0; maximum <= 7; ++maximum) {
    auto trimmed = Collection({"3", "2", "1"}, "old");
    auto bounded = trimmed;
    MergeInFront(batch, trimmed);
    if (maximum > 0) TrimCollection(maximum, trimmed);
    MergeInFront(batch, bounded, maximum);
    EXPECT_EQ(Summary(bounded), Summary(trimmed)) << maximum;
  }
  auto turned = batch;
  turned.Reverse();
  EXPECT_EQ(Summary(turned), "4new 5new 2new 6new ");
  EXPECT_TRUE(turned.Contains("2"));
}

TEST(SpotCollections, DuplicatesAreTheSameStationOnTheSameThousandth) {
  SpotCollection spots;
  for (const auto& [call, mhz] : std::initializer_list<std::pair<const char*, float>>{
           {"G4ABC", 14.0621F}, {"G4ABC", 14.0624F}, {"G4ABC", 14.063F}, {"G4XYZ", 14.062F}}) {
    auto spot = MakeSpot(std::to_string(spots.Count()));
    spot->stationBaseCallsign = call;
    spot->FrequencyInMhz = mhz;
    AddSpotByID(spot, spots);
  }
  EXPECT_EQ(CountSpotsMatching(spots, **spots.At(1)), 2);
  EXPECT_EQ(CountSpotsMatching({}, **spots.At(1)), 0);
}

}  // namespace
}  // namespace brelwin
