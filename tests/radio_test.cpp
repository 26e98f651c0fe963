// Radio text: numbers, callsigns, frequencies, dates, URL encoding.
#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/numbers.h"
#include "radio/web_address.h"
#include "radio_properties.h"
#include "random_text.h"
#include "test_world.h"

namespace brelwin {
namespace {

TEST(Numbers, AreReadWithADecimalPoint) {
  for (const auto line : Split("14.062|14.062\n14,062|14\n1.234,5|1.234\n 7 030 |7030\n+5.5x|5.5\n+-5|0\n"
                               "-.5|-0.5\n.5.5|0.5\n|0\nabc|0\ninf|0\n-nan|0\n1e999|0",
                               "\n")) {
    const auto parts = Split(line, "|");
    EXPECT_DOUBLE_EQ(ToDouble(parts[0]), std::stod(std::string(parts[1]))) << line;
  }
  EXPECT_EQ(WholeNumber("2.5") + WholeNumber("3.5") + WholeNumber("-0.6 s"), 2 + 4 - 1);
  EXPECT_EQ(WholeNumber("99999999999"), std::numeric_limits<std::int32_t>::max());
}

// As text, in the pattern of frequencies, and rounded to three decimals.
TEST(Numbers, SinglesBecomeTextBySevenDigits) {
  const std::pair<float, std::string_view> cases[] = {
      {145.525F, "145.525 145.525 145.525"},
      {241000.0F, "241000 241000. 241000"},
      {0.135F, "0.135 .135 0.135"},
      {0.0F, "0 . 0"},
      {-0.0001F, "-0.0001 -.0001 0"},
      {0.000001F, "0.000001 . 0"},
      {0.999996F, "0.999996 1. 1"},
      {7.123455F, "7.123455 7.12346 7.123"},
      {14.0625F, "14.0625 14.0625 14.062"},     // a real tie
      {7.0325F, "7.0325 7.0325 7.032"},         // the value is just below the tie
      {10.1385F, "10.1385 10.1385 10.139"},     // and here just above it
      {1.0e7F, "10000000 10000000. 10000000"},  // no exponent
      {std::numeric_limits<float>::quiet_NaN(), "0 . 0"},
  };
  for (const auto& [value, texts] : cases)
    EXPECT_EQ(SingleText(value) + " " + FormatSingle(value) + " " + RoundedToThreeDecimalsText(value), texts);
}

TEST(Numbers, TextReadsBack) {
  std::mt19937 generator(1);
  test::RandomText texts(2, {"1", "0", "99999999", ".", ",", "-", "+", "e", "inf", "nan", " ", "x"});
  for (int i = 0; i < 5000; ++i) {
    EXPECT_TRUE(test::NumberTextReadsBack(static_cast<std::uint32_t>(generator())));
    const auto text = texts.Next(8);
    EXPECT_TRUE(test::NumberIsReadFromAnyText(text)) << text;
  }
}

// Text, base callsign, second callsign.
TEST(Callsigns, LosePrefixSuffixAndSecondOperator) {
  for (const auto line : Split("G4ABC/P|G4ABC|\nEA8/G4ABC|G4ABC|\nG4ABC/M|G4ABC|\nDL/G4ABC/M|G4ABC|\n"
                               "DL/PA3XYZ|DLA3XYZ|\nKH6/K1A|KH6|\nG4ABC/G4XYZ|G4ABC|G4XYZ\n"
                               "g4abc and g4xyz|G4ABC|G4XYZ\nG4ABC & PORTABLE|G4ABC|\n"
                               "G4ABC/P G4XYZ/P|G4ABC|G4XYZ\nG4ABC/PORTABLE|G4ABC|\n"
                               "HB9/G4ABC AND HB9/G4XYZ|G4ABC|G4XYZ\nG4ABC G4XYZ M0ABC|G4ABC|G4XYZ\n"
                               "[G4ABC]|G4ABC|\n AND G4ABC|G4ABC|\nAND G4ABC|AND G4ABC|\n/G4ABC|/G4ABC|\n"
                               "||\n/|/|\n    ||",
                               "\n")) {
    const auto parts = Split(line, "|");
    std::string second = "left over";
    EXPECT_EQ(GetBaseCallsign(parts[0], second), parts[1]) << line;
    EXPECT_EQ(second, parts[2]) << line;
  }
  std::string thousands;
  for (int i = 0; i < 20000; ++i) thousands += "G4ABC/G4XYZ AND ";
  EXPECT_EQ(GetBaseCallsign(thousands), "G4ABC");
}

// Text, forms; then pairs that are one station and pairs that are not.
TEST(Callsigns, AreFoundBetweenSlashes) {
  for (const auto line : Split("PA3XYZ|PA3XYZ\nDL/PA3XYZ/P|DLA3XYZ PA3XYZ\ndl/pa3xyz|DLA3XYZ PA3XYZ\n"
                               "KH6/K1A|KH6 K1A\nG4ABC/G4XYZ|G4ABC G4XYZ\n2E0ABC/QRP|2E0ABC\n"
                               "HB9/DL70ABC|DL70ABC\nG4ABC/100W/MM|G4ABC\n|",
                               "\n")) {
    const auto parts = Split(line, "|");
    std::string forms;
    for (const auto& form : CallsignForms(parts[0])) forms += (forms.empty() ? "" : " ") + form;
    EXPECT_EQ(forms, parts[1]) << line;
  }
  EXPECT_TRUE(MayBeSameStation("DL/PA3XYZ/P", "PA3XYZ") && MayBeSameStation("pa3xyz", "9A/PA3XYZ"));
  EXPECT_FALSE(MayBeSameStation("DL/PA3XYZ", "DL/PA3XYA") || MayBeSameStation("", ""));
}

TEST(Callsigns, IgnoreCase) {
  test::RandomText texts(3, {"G4ABC", "ea8", "P", "/", "/P", "[", "]", " ", "&", " and ", " AND ", "M"});
  for (int i = 0; i < 5000; ++i) {
    const auto text = texts.Next(10);
    EXPECT_TRUE(test::CallsignIgnoresCase(text)) << text;
  }
}

TEST(Frequencies, FallIntoBandsAndAreFormattedInMegahertz) {
  const std::pair<float, double> bands[] = {
      {14.285F, 14}, {145.5F, 144}, {432.1F, 420}, {7.0F, 0.135},   {0.4725F, 0.135},
      {5.3985F, 5},  {1.832F, 1.8}, {70.2F, 70},   {28.06F, 28},    {31.5F, 31},
      {222.1F, 220}, {148.9F, 144}, {149.1F, 149}, {1296.2F, 1240}, {136000.5F, 134000}};
  for (const auto& [mhz, band] : bands) EXPECT_DOUBLE_EQ(BandFromFrequency(mhz), band) << mhz;

  float mhz = -1;
  EXPECT_EQ(FormatFrequencyKHz("14062.5", mhz), "14.0625");
  EXPECT_FLOAT_EQ(mhz, 14.0625F);
  EXPECT_EQ(FormatFrequencyMHz("145.525 MHz", mhz), "145.525");
  EXPECT_EQ(FormatFrequencyMHz("abc", mhz), ".");
  EXPECT_EQ(FormatFrequencyMHz(" ", mhz), "");
  EXPECT_EQ(FormatFrequencyMHz("1e300", mhz), "");
  EXPECT_EQ(mhz, 0);
  EXPECT_EQ(DuplicateKey("G4ABC", 7.0325F), "G4ABC7.032");
}

TEST(Url, EncodesAllButLettersAndDigits) {
  EXPECT_EQ(URLEncode("a b/c\t\xC3\xA9"), "a%20b%2Fc%09%E9");
  EXPECT_EQ(URLEncode("\xE2\x82\xAC \xE2\x98\x83"), "%80%20%3F") << "codes of Windows-1252, as those below";
}

TEST(Dates, AreReadInEveryForm) {
  for (const auto line :
       Split("2026-11-24 10:00|2026-11-24 10:00:00\n2026-11-24T10:00:05Z|2026-11-24 10:00:05\n"
             "2026-11-24T10:00:05.250Z|2026-11-24 10:00:05\n"
             "24 Nov 26 10:00:00|2026-11-24 10:00:00\n"
             " 24 Nov 2026 10:00:07 |2026-11-24 10:00:07\n"
             "24 Nov 2026 00:30:00 +0100|2026-11-23 23:30:00\n"
             "Tue, 24 Nov 2026 10:00:00 -05:30|2026-11-24 15:30:00\n"
             "Tue Nov 24 10:00:00 +0000 2026|2026-11-24 10:00:00\n"
             "24 Nov 2026 10:00:00 UT|2026-11-24 10:00:00\n24 november 2026|2026-11-24 00:00:00\n"
             "Nov 24 2026 10:00:00|2026-11-24 10:00:00\n9:05|1899-12-30 09:05:00\n"
             "10:00:30|1899-12-30 10:00:30",
             "\n")) {
    const auto parts = Split(line, "|");
    const auto read = ReadDateTime(parts[0]);
    EXPECT_EQ(read ? DateTimeText(*read) : "nothing", parts[1]) << line;
  }
  for (const auto text : Split("|7|14.285|2026|24 Nov|Nov 2026|30 Feb 2026|2026-13-01|24:00|10:60|10:0|"
                               "24 Nov 2026 10:00 10:00|24 Nov 2026 +0100|24 Nov 2026 10:00 Mars|"
                               "31 Dec 9999 23:59 -0100|2026-11-24Z|20261124|:|+|10:00+",
                               "|"))
    EXPECT_FALSE(IsDateNotNumber(text)) << text;
}

TEST(Dates, ReadBackWhatWasWritten) {
  test::RandomText texts(4, {" ", " ", ",", ":", "-", "24", "2026", "Nov", "10:00", "2026-11-24", "T",
                             "+0130", "Z", "Tue", "9999-12-31", "0100-01-01"});
  int dates = 0;
  for (int i = 0; i < 20000; ++i) {
    const auto text = texts.Next(9);
    EXPECT_TRUE(test::DateTextReadsBack(text)) << text;
    dates += IsDateNotNumber(text) ? 1 : 0;
  }
  EXPECT_GT(dates, 100);
}

TEST(Dates, FollowTheSystemsTimeZone) {
  test::TestClock clock;
  clock.SetLocalTime(*DateTimeFromCalendar({2026, 1, 1, 3, 15, 9}));
  clock.Zone = {TimeZoneInformation::State::Daylight, -330, 0, -60};
  std::int32_t hours = 0;
  std::int32_t minutes = 0;
  EXPECT_TRUE(GetTimeZoneOffset(clock, hours, minutes));
  EXPECT_EQ(std::pair(hours, minutes), std::pair(-6, -30));
  EXPECT_EQ(GetUTCNowText(clock), "Dec 31 2025 20:45:09");
  EXPECT_EQ(UTCToLocal(clock, UTCNow(clock)), clock.LocalNow());
  EXPECT_EQ(CompactText(clock.LocalNow()) + " " + CompactMinutesText(clock.LocalNow()),
            "20260101031509 202601010315");
  clock.Zone.Now = TimeZoneInformation::State::Standard;
  EXPECT_EQ(ClockText(UTCNow(clock)), "21:45");
}

}  // namespace
}  // namespace brelwin
