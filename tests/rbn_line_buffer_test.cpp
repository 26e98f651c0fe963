// The stream as whole lines, however it is cut on its way.
#include <gtest/gtest.h>

#include "base/encoding.h"
#include "rbn/line_buffer.h"

namespace brelwin {
namespace {

// What a buffer says of some bytes that come in pieces.
struct Heard {
  std::string Lines;
  std::int64_t WholeLines = 0;
  std::int64_t DroppedLines = 0;
  int Overflows = 0;

  bool operator==(const Heard&) const = default;
};

Heard Hear(const std::vector<std::string_view>& pieces, LineLimits limits = {}) {
  LineBuffer buffer(limits);
  Heard heard;
  for (const auto piece : pieces) {
    const auto intake = buffer.Add(piece);
    heard.WholeLines += intake.WholeLines;
    heard.DroppedLines += intake.DroppedLines;
    heard.Overflows += intake.Overflowed ? 1 : 0;
  }
  heard.Lines = buffer.TakeLines();
  return heard;
}

void ExpectTheSameAtEveryCut(std::string_view bytes, LineLimits limits) {
  const auto whole = Hear({bytes}, limits);
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut)
    ASSERT_EQ(Hear({bytes.substr(0, cut), bytes.substr(cut)}, limits), whole) << "cut at " << cut;
  std::vector<std::string_view> single;
  for (std::size_t i = 0; i < bytes.size(); ++i) single.push_back(bytes.substr(i, 1));
  ASSERT_EQ(Hear(single, limits), whole) << "byte by byte";
}

TEST(LineBuffer, TheWholeIsTheSumOfItsPieces) {
  const std::string stream =
      "Hello, Q0ZZ! Connected.\r\nDX de DL8LAS-3-#: 14046.00  OE3WHU/QRP\r\n\r\nDX de "
      "EA8/DF4UE-#:10114.1\a\r\n"
      "To ALL de caf\xE9 \xE2\x82\xAC\nWWV de caf\xC3\xA9\r\nDX de cut";
  ExpectTheSameAtEveryCut(stream, {});
  ExpectTheSameAtEveryCut(stream, {.LongestLine = 30});
  ExpectTheSameAtEveryCut(stream, {.LongestLine = 60, .MostWaiting = 70});
}

TEST(LineBuffer, GivesSkimmersTheBlanksThatTheParserNeeds) {
  const std::pair<std::string, std::string> cases[] = {
      {"DX de KM3T-2-#:  14100.0", "DX de KM3T-2-#:  14100.0"},
      {"DX de LZ3CB-#:   7018.20", "DX de LZ3CB-#:   7018.20"},
      {"DX de DL8LAS-3-#: 14046.00", "DX de DL8LAS-3-#:  14046.00"},
      {"DX de EA8/DF4UE-#:10114.1  SV1XYZ", "DX de EA8/DF4UE-#:  10114.1  SV1XYZ"},
      {"DX de W3LPL: 14025.0  K1A", "DX de W3LPL: 14025.0  K1A"},
      {"DX de A-#:", "DX de A-#:  "},
  };
  for (const auto& [sent, read] : cases) EXPECT_EQ(Hear({sent + "\n"}).Lines, read + "\n");
}

TEST(LineBuffer, TakesLinesThatAreNotUtf8ForWindows1252) {
  EXPECT_EQ(Hear({"caf\xE9\r\ncaf\xC3\xA9\r\n\xFF\n"}).Lines, "caf\xC3\xA9\r\ncaf\xC3\xA9\r\n\xC3\xBF\n");
}

TEST(LineBuffer, DropsALineThatNeverEndsAndGoesOnBehindIt) {
  LineBuffer buffer;
  const std::string piece(10000, 'x');
  std::int64_t dropped = 0;
  for (int i = 0; i < 1000; ++i) dropped += buffer.Add(piece).DroppedLines;
  EXPECT_EQ(dropped, 1);
  EXPECT_FALSE(buffer.HasLines());
  buffer.Add("the end of it\r\nDX de next\r\n");
  EXPECT_EQ(buffer.TakeLines(), "DX de next\r\n");
  EXPECT_EQ(Hear({std::string(64 * 1024, 'x') + "\n"}).WholeLines, 1);
}

TEST(LineBuffer, LetsTheOldestLinesGoWhenTooMuchWaits) {
  LineBuffer buffer({.LongestLine = 10, .MostWaiting = 12});
  EXPECT_FALSE(buffer.Add("one\ntwo\nfor\n").Overflowed);
  EXPECT_TRUE(buffer.Add("five\n").Overflowed);
  EXPECT_FALSE(buffer.Add("six\n").Overflowed) << "told once";
  EXPECT_EQ(buffer.TakeLines(), "five\nsix\n");
  EXPECT_FALSE(buffer.Add("one\ntwo\nfor\n").Overflowed);
  EXPECT_TRUE(buffer.Add("x\n").Overflowed) << "told again once the text was taken";
}

TEST(LineBuffer, ForgetsARestThatWillNotBeFinished) {
  LineBuffer buffer;
  buffer.Add("whole\r\nhal");
  buffer.DropRest();
  buffer.Add("other\r\n");
  EXPECT_EQ(buffer.TakeLines(), "whole\r\nother\r\n");
}

}  // namespace
}  // namespace brelwin
