// What of the ground floor no other test would miss: broken encodings, and watchers that come and go.
#include <gtest/gtest.h>

#include "base/encoding.h"
#include "base/observable.h"

namespace brelwin {
namespace {

TEST(Encoding, DecidesLineByLine) {
  EXPECT_EQ(TextFromBytes("\xEF\xBB\xBF"
                          "caf\xC3\xA9\ncaf\xE9 \x80\n"),
            "caf\xC3\xA9\ncaf\xC3\xA9 \xE2\x82\xAC\n");
  EXPECT_FALSE(IsUtf8("\xC0\xAF"));          // overlong
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));      // surrogate
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));  // above U+10FFFF
  EXPECT_FALSE(IsUtf8("\xE2\x82"));          // cut
  std::string_view text = "\xE2\x82\xAC\xF0\x9F\x93\xA1\xFF";
  EXPECT_EQ(TakeCodePoint(text), U'\u20AC');
  EXPECT_EQ(TakeCodePoint(text), U'\U0001F4E1');
  EXPECT_EQ(TakeCodePoint(text), U'\u00FF');
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

}  // namespace
}  // namespace brelwin
