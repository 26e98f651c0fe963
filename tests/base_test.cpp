// Text, encodings, dates, observable values and keyed collections.
#include <gtest/gtest.h>

#include "base/date_time.h"
#include "base/encoding.h"
#include "base/keyed_collection.h"
#include "base/observable.h"
#include "base/text.h"

namespace brelwin {
namespace {

TEST(Text, SplitsAndReplacesWithoutLosingEmptyPieces) {
  EXPECT_EQ(Split("||a||", "||"), (std::vector<std::string_view>{"", "a", ""}));
  EXPECT_EQ(Split("", ","), (std::vector<std::string_view>{""}));
  EXPECT_EQ(SplitLines("a\r\n\nb"), (std::vector<std::string_view>{"a", "", "b"}));
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Without("a-b-", "-"), "ab");
  EXPECT_EQ(Without("ab--", "--"), "ab");
  EXPECT_EQ(Without("ab", ""), "ab");
  EXPECT_EQ(Trim("  \t a  "), "\t a");
}

TEST(Encoding, DecidesLineByLineAndCountsCharacters) {
  EXPECT_EQ(TextFromBytes("\xEF\xBB\xBF"
                          "caf\xC3\xA9\ncaf\xE9 \x80\n"),
            "caf\xC3\xA9\ncaf\xC3\xA9 \xE2\x82\xAC\n");
  EXPECT_FALSE(IsUtf8("\xC0\xAF"));          // overlong
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));      // surrogate
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));  // above U+10FFFF
  EXPECT_FALSE(IsUtf8("\xE2\x82"));          // cut
  EXPECT_EQ(CharacterCount("\xC3\xA9\xE2\x82\xAC"
                           "a"),
            3U);
  EXPECT_EQ(FirstCharacters("\xC3\xA9\xE2\x82\xAC"
                            "a",
                            2),
            "\xC3\xA9\xE2\x82\xAC");
  std::string_view text = "\xE2\x82\xAC\xF0\x9F\x93\xA1\xFF";
  EXPECT_EQ(TakeCodePoint(text), U'\u20AC');
  EXPECT_EQ(TakeCodePoint(text), U'\U0001F4E1');
  EXPECT_EQ(TakeCodePoint(text), U'\u00FF');
}

TEST(DateTime, KnowsTheCalendarAndElapsedMinutes) {
  EXPECT_FALSE(DateTimeFromCalendar({2026, 2, 29, 0, 0, 0}));
  EXPECT_FALSE(DateTimeFromCalendar({2026, 1, 1, 24, 0, 0}));
  const auto leap = *DateTimeFromCalendar({2024, 2, 29, 23, 59, 59});
  EXPECT_EQ(CalendarFromDateTime(AddSeconds(leap, 1)).Month, 3);
  EXPECT_EQ(CalendarFromDateTime(DateTime{-1}).Year, 1969);
  EXPECT_EQ(MinutesBetween(leap, AddSeconds(leap, -119)), -1);
}

TEST(Observable, TellsOfChangesOnlyAndSurvivesWatchersThatComeAndGo) {
  Observable<int> value{1};
  int told = 0;
  Watch second;
  Watch first = value.WhenChanged([&] {
    ++told;
    second = Watch();  // ends the other one in the middle of the telling
  });
  second = value.WhenChanged([&] { told += 100; });
  value = 1;
  EXPECT_EQ(told, 0);
  value = 2;
  EXPECT_EQ(told, 1);
  first = Watch();
  value = 3;
  EXPECT_EQ(told, 1);
}

TEST(KeyedCollection, KeepsOrderAndUniqueKeysWhateverTheirCase) {
  KeyedCollection<int> collection;
  EXPECT_TRUE(collection.Add(1, "a"));
  EXPECT_FALSE(collection.Add(9, "A"));
  EXPECT_TRUE(collection.AddInFront(2, "b"));
  EXPECT_TRUE(collection.Add(3, ""));
  EXPECT_TRUE(collection.Add(4, ""));
  EXPECT_EQ(*collection.At(1), 2);
  EXPECT_EQ(*collection.At(4), 4);
  EXPECT_EQ(collection.At(5), nullptr);

  auto copy = collection;
  EXPECT_TRUE(copy.Remove("B"));
  EXPECT_FALSE(copy.Remove("B"));
  copy.Trim(1);
  EXPECT_TRUE(copy.Contains("a"));
  copy.Trim(0);
  EXPECT_FALSE(copy.Contains("a"));
  EXPECT_EQ(collection.Count(), 4U);
  EXPECT_EQ(*collection.Find("B"), 2);
}

}  // namespace
}  // namespace brelwin
