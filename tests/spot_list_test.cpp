// Spots as lines: the columns of the list, the delimited line, and the logs made of them.
#include "spots/spot_text.h"

#include <gtest/gtest.h>

#include "base/encoding.h"
#include "spot_builder.h"
#include "spots/spot_log.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::Collect;
using test::MakeSpot;

Spot FullSpot() {
  auto spot = MakeSpot("20261124100500G4ABCK6ABC", "G4ABC/P", "G/LD-001");
  spot.SummitName = "Scafell Pike";
  spot.SummitPoints = 10;
  spot.OperatorName = "Ann";
  spot.Comment = "CQ CQ";
  return spot;
}

// The part of a line from a column on, counted in characters.
std::string_view Cell(std::string_view line, std::size_t column, std::size_t width) {
  const auto before = FirstCharacters(line, column).size();
  return FirstCharacters(line.substr(before), width);
}

TEST(SpotList, LineIsToTheBlankAndItsSlashesAreUnescaped) {
  auto spot = FullSpot();
  spot.Comment = R"(W6\/CT-001 \\/ A\B)";
  EXPECT_EQ(FixedWidthLine(spot),
            "10:05  "
            "G4ABC/P     "
            "G/LD-001    "
            "Scafell Pike                    "
            "10 "
            "     14.062"
            "CW    "
            "Ann           "
            R"(W6/CT-001 \/ A\B)" +
                std::string(43, ' ') + "[K6ABC]     ");
  EXPECT_EQ(FixedWidthLine(Spot()), std::string(158, ' ') + "[]          ");
}

TEST(SpotList, EveryColumnIsCutInCharacters) {
  const std::string wide = "\xC3\x84";  // one character of two bytes
  const auto many = [&](std::size_t count) {
    std::string text;
    while (count-- > 0) text += wide;
    return text;
  };
  auto spot = FullSpot();
  spot.UTCTime = spot.Station = spot.SummitDesignator = spot.SummitName = many(80);
  spot.FormattedFrequencyString = "123456789012345";
  spot.SummitPoints = -1234;
  spot.ModeString = spot.OperatorName = spot.Comment = spot.Spotter = many(80);
  const auto line = FixedWidthLine(spot);
  EXPECT_EQ(CharacterCount(line), 170U);
  EXPECT_EQ(Cell(line, 19, 12), many(12));
  EXPECT_EQ(Cell(line, 31, 32), many(30) + "  ");
  EXPECT_EQ(Cell(line, 63, 3), "-12");
  EXPECT_EQ(Cell(line, 66, 11), "12345678901");
  EXPECT_EQ(Cell(line, 83, 14), many(13) + " ");
  EXPECT_EQ(Cell(line, 97, 61), many(60) + " ");
  EXPECT_EQ(Cell(line, 158, 12), "[" + many(11));
}

TEST(SpotList, OutsideTextNeverBreaksALine) {
  auto spot = FullSpot();
  spot.Comment =
      "one\r\ntwo\nthree\tfour\xC2\x85"
      "five\xE2\x80\xA8six\x1B[2J";
  spot.Station = std::string("G4\0ABC", 6);
  spot.LocalDateAndTime.reset();
  spot.FormattedFrequencyString = "  ";
  spot.FrequencyInMhz = 145.525F;
  spot.SummitPoints = 0;
  const auto line = FixedWidthLine(spot);
  EXPECT_EQ(Cell(line, 97, 61), "one two three four five six [2J" + std::string(30, ' '));
  EXPECT_EQ(Cell(line, 7, 12), "G4 ABC      ");
  EXPECT_EQ(
      DelimitedLine(spot, "\t"),
      "\t10:05\tG4 ABC\tG/LD-001\tScafell Pike\t0\t145.525\tCW\tAnn\tone two three four five six [2J\tK6ABC\t"
      "MatchesAlert=No\t20261124100500G4ABCK6ABC");
}

struct SpotLogTest : ::testing::Test {
  test::TestHost World;
  const std::string Path = "/brelwin/log.txt";
  const std::string Stamp = "2026-11-24 12:00:00:  ";

  std::string Written(const SpotCollection& spots, std::int16_t format, LogHeader header = LogHeader::None) {
    WriteSpotsToLogFile(World.World, spots, Path, format, header);
    const auto text = World.Disk.Text(Path);
    World.Disk.Delete(Path);
    return text;
  }
};

TEST_F(SpotLogTest, WritesTheLineOfEachFormat) {
  auto spot = FullSpot();
  spot.Spot = "DX de K6ABC-#:\t14062.0\r\nG4ABC ";
  const auto spots = Collect({spot});
  EXPECT_EQ(Written(spots, 0), Stamp + FixedWidthLine(spot) + "\r\n");
  EXPECT_EQ(Written(spots, 7), Stamp + FixedWidthLine(spot) + "\r\n");
  EXPECT_EQ(Written(spots, 1), DelimitedLine(spot, ",") + "\r\n");
  EXPECT_EQ(Written(spots, 2), DelimitedLine(spot, "\t") + "\r\n");
  EXPECT_EQ(Written(spots, 3), DelimitedLine(spot, "|") + "\r\n");
  EXPECT_EQ(Written(spots, 99), Stamp + "DX de K6ABC-#:\t14062.0 G4ABC \r\n");
}

TEST_F(SpotLogTest, BeginsANewTextLogWithCaptionsOverTheColumns) {
  const auto spots = Collect({FullSpot()});
  WriteSpotsToLogFile(World.World, spots, Path, 0, LogHeader::WhenCreated);
  WriteSpotsToLogFile(World.World, spots, Path, 0, LogHeader::WhenCreated);
  const auto text = World.Disk.Text(Path);
  const auto lines = SplitLines(text);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0].find("Spotter"), lines[2].find("[K6ABC]"));
  EXPECT_EQ(lines[1], std::string(Stamp.size(), ' ') + std::string(165, '='));
  World.Disk.Delete(Path);
  EXPECT_EQ(Written(spots, 1, LogHeader::WhenCreated), DelimitedLine(FullSpot(), ",") + "\r\n");
}

TEST_F(SpotLogTest, WritesOnceOrNotAtAllAndSaysWhenItCannot) {
  WriteSpotsToLogFile(World.World, {}, Path, 0);
  WriteSpotsToLogFile(World.World, Collect({FullSpot()}), "  ", 0);
  EXPECT_EQ(World.Disk.WriteCalls, 0);
  WriteSpotsToLogFile(World.World, Collect({FullSpot(), MakeSpot("2", "G4XYZ", "")}), Path, 0);
  EXPECT_EQ(World.Disk.WriteCalls, 1);
  World.Disk.Unwritable.insert("/GONE/LOG.TXT");
  WriteSpotsToLogFile(World.World, Collect({FullSpot()}), "/gone/log.txt", 0);
  EXPECT_EQ(
      World.EventLog(),
      "2026-11-24 12:00:00: WriteSpotsToLogFile Error, Number=5 Error=/gone/log.txt: Permission denied\r\n");
}

}  // namespace
}  // namespace brelwin
