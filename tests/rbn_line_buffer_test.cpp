// The stream as whole lines, however it is cut on its way.
#include <gtest/gtest.h>

#include "heard_lines.h"

namespace brelwin {
namespace {

using test::Hear;

TEST(LineBuffer, TheWholeIsTheSumOfItsPieces) {
  const std::string stream =
      "Hello, Q0ZZ! Connected.\r\nDX de DL8LAS-3-#: 14046.00  OE3WHU/QRP\r\n\r\nDX de "
      "EA8/DF4UE-#:10114.1\a\r\n"
      "To ALL de caf\xE9 \xE2\x82\xAC\nWWV de caf\xC3\xA9\r\nDX de cut";
  std::vector<std::string_view> bytes;
  for (std::size_t i = 0; i < stream.size(); ++i) bytes.push_back(std::string_view(stream).substr(i, 1));
  for (const LineLimits limits :
       {LineLimits{}, LineLimits{.LongestLine = 30}, LineLimits{.LongestLine = 60}}) {
    EXPECT_TRUE(test::IsHeardTheSameAtEveryCut(stream, limits));
    EXPECT_EQ(Hear(bytes, limits), Hear({stream}, limits));
  }
}

TEST(LineBuffer, GivesSkimmersTheBlanksThatTheParserNeedsAndDecodesEachLine) {
  const std::pair<std::string, std::string> cases[] = {
      {"DX de KM3T-2-#:  14100.0", "DX de KM3T-2-#:  14100.0"},
      {"DX de LZ3CB-#:   7018.20", "DX de LZ3CB-#:   7018.20"},
      {"DX de DL8LAS-3-#: 14046.00", "DX de DL8LAS-3-#:  14046.00"},
      {"DX de EA8/DF4UE-#:10114.1  SV1XYZ", "DX de EA8/DF4UE-#:  10114.1  SV1XYZ"},
      {"DX de W3LPL: 14025.0  K1A", "DX de W3LPL: 14025.0  K1A"},
      {"DX de A-#:", "DX de A-#:  "},
      {"caf\xE9\r\ncaf\xC3\xA9\r\n\xFF", "caf\xC3\xA9\r\ncaf\xC3\xA9\r\n\xC3\xBF"},
  };
  for (const auto& [sent, read] : cases) EXPECT_EQ(Hear({sent + "\n"}).Lines, read + "\n");
  EXPECT_EQ(LineBuffer().Add("DX de \r\n\r\n7\n").WholeLines, 1) << "two of them say nothing";
}

}  // namespace
}  // namespace brelwin
