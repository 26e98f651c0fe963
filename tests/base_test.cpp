// What of the ground floor no other test would miss: broken encodings, watchers that come and go, and the
// keyed collection under every order of changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

#include "base/encoding.h"
#include "base/keyed_collection.h"
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

// The collection as it would be without an index: slow, and plainly right.
struct PlainCollection {
  std::vector<std::pair<std::string, int>> Entries;

  auto Find(const std::string& key) {
    return std::find_if(Entries.begin(), Entries.end(), [&key](const auto& entry) {
      return !key.empty() && EqualsIgnoringCase(entry.first, key);
    });
  }
  bool Add(int item, const std::string& key, bool inFront) {
    if (Find(key) != Entries.end()) return false;
    Entries.insert(inFront ? Entries.begin() : Entries.end(), {key, item});
    return true;
  }
  bool Remove(const std::string& key) {
    const auto found = Find(key);
    if (found == Entries.end()) return false;
    Entries.erase(found);
    return true;
  }
};

void ExpectSame(const KeyedCollection<int>& collection, const PlainCollection& plain) {
  std::size_t position = 0;
  ASSERT_EQ(collection.Count(), plain.Entries.size());
  for (const auto& entry : collection) {
    const auto& [key, item] = plain.Entries[position++];
    ASSERT_EQ(std::pair(entry.Key, entry.Item), std::pair(key, item));
    ASSERT_EQ(*collection.At(position), item);
    ASSERT_TRUE(key.empty() || collection.Find(UpperCase(key)) == &entry.Item);
  }
  ASSERT_TRUE(collection.At(0) == nullptr && collection.At(position + 1) == nullptr);
}

TEST(KeyedCollection, HoldsWhatAPlainListWouldAfterAnyChanges) {
  std::mt19937 random(11);
  KeyedCollection<int> collection;
  PlainCollection plain;
  for (int item = 1; item <= 20'000; ++item) {
    const auto chosen = random() % 200;
    const auto key =
        chosen == 0 ? "" : (random() % 2 == 0 ? "Key of a spot " : "KEY OF A SPOT ") + std::to_string(chosen);
    const auto change = random() % 100;
    if (change < 55) {
      const bool inFront = change < 25;
      ASSERT_EQ(inFront ? collection.AddInFront(item, key) : collection.Add(item, key),
                plain.Add(item, key, inFront));
    } else if (change < 97) {
      ASSERT_EQ(collection.Remove(key), plain.Remove(key));
    } else if (change == 97) {
      collection.Reverse();
      std::reverse(plain.Entries.begin(), plain.Entries.end());
    } else if (change == 98) {
      const auto most = random() % 300;
      collection.Trim(most);
      plain.Entries.resize(std::min<std::size_t>(most, plain.Entries.size()));
    } else {
      auto moved = std::move(collection);
      collection = KeyedCollection<int>(moved);
    }
    if (item % 50 == 0) ExpectSame(collection, plain);
    if (testing::Test::HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace brelwin
