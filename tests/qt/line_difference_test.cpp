#include "qt/window/line_difference.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace brelwin {
namespace {

using Lines = std::vector<std::string_view>;

std::size_t CountOf(const std::vector<LineRun>& runs) {
  std::size_t count = 0;
  for (const auto& run : runs) count += run.Count;
  return count;
}

// Changes the lines the way a view does: away from the end, in from the top.
Lines Apply(Lines lines, const LineDifference& difference, const Lines& newLines) {
  using Offset = Lines::difference_type;
  for (auto run = difference.Removed.rbegin(); run != difference.Removed.rend(); ++run) {
    const auto first = lines.begin() + static_cast<Offset>(run->First);
    lines.erase(first, first + static_cast<Offset>(run->Count));
  }
  for (const auto& run : difference.Added) {
    const auto from = newLines.begin() + static_cast<Offset>(run.First);
    lines.insert(lines.begin() + static_cast<Offset>(run.First), from, from + static_cast<Offset>(run.Count));
  }
  return lines;
}

TEST(LineDifference, ABatchInFrontOfATrimmedListIsTwoRuns) {
  const auto difference = FindLineDifference({"c", "b", "a"}, {"e", "d", "c", "b"});
  EXPECT_EQ(difference.Removed, (std::vector<LineRun>{{2, 1}}));
  EXPECT_EQ(difference.Added, (std::vector<LineRun>{{0, 2}}));
}

TEST(LineDifference, EqualLinesInEqualOrderStay) {
  const Lines twins{"a", "a", "b", "a"};
  EXPECT_TRUE(FindLineDifference(twins, twins).Removed.empty());
  EXPECT_EQ(FindLineDifference(twins, {"a", "a", "a", "b", "a"}).Added.size(), 1u);
}

TEST(LineDifference, AFirstLineThatMovedAwayDoesNotTakeTheOthersAlong) {
  const auto difference = FindLineDifference({"d", "c", "b", "a"}, {"c", "b", "a", "d"});
  EXPECT_EQ(difference.Removed, (std::vector<LineRun>{{0, 1}}));
  EXPECT_EQ(difference.Added, (std::vector<LineRun>{{3, 1}}));
}

TEST(LineDifference, TheOldLinesWithTheDifferenceAreTheNewLines) {
  const Lines alphabet{"a", "b", "c", "d", "e"};
  std::mt19937 random(7);
  const auto any = [&] {
    Lines lines(random() % 12);
    for (auto& line : lines) line = alphabet[random() % alphabet.size()];
    return lines;
  };
  for (int round = 0; round < 2000; ++round) {
    const auto oldLines = any(), newLines = any();
    const auto difference = FindLineDifference(oldLines, newLines);
    EXPECT_EQ(Apply(oldLines, difference, newLines), newLines);
    EXPECT_EQ(oldLines.size() - CountOf(difference.Removed), newLines.size() - CountOf(difference.Added));
  }
}

}  // namespace
}  // namespace brelwin
