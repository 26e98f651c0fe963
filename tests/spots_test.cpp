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

}  // namespace
}  // namespace brelwin
