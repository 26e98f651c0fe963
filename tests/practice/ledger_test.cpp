// What the practice network writes down, and what it is told on its command line.
#include <gtest/gtest.h>

#include "ledger.h"
#include "options.h"

namespace practice {
namespace {

TEST(PracticeLedger, KeepARecordOnOneLine) {
  Record record("line");
  record.Number("connection", 3).Flag("whole", false).Text("text", "a\r\n\"").Text("raw", "\xFF");
  record.Texts("fields", {{"a", "b"}, {"c", ""}});
  EXPECT_EQ(record.Members(),
            R"(,"kind":"line","connection":3,"whole":false,"text":"a\u000d\u000a\"","raw_bytes":"\u00ff",)"
            R"("fields":{"a":"b","c":""})");
}

TEST(PracticeOptions, AreReadOrRefused) {
  using Arguments = std::vector<std::string_view>;
  const auto options =
      ReadOptions(Arguments{"--port", "8080", "--seed", "5", "--speed", "0.5", "--ledger", "a b"});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->Port, 8080);
  EXPECT_EQ(options->Seed, 5U);
  EXPECT_EQ(options->Speed, 0.5);
  EXPECT_EQ(options->LedgerFile, "a b");
  EXPECT_TRUE(ReadOptions(Arguments{}));
  for (const auto& bad :
       {Arguments{"--port"}, Arguments{"--port", "65536"}, Arguments{"--port", "-1"},
        Arguments{"--speed", "0"}, Arguments{"--speed", "nan"}, Arguments{"--speed", "2x"},
        Arguments{"--ledger", ""}, Arguments{"--help", "1"}, Arguments{"--spotlite", "late,"},
        Arguments{"--spotlite", "late:0"}, Arguments{"--spotlite", "lately"}, Arguments{"--crowd", "-1"}})
    EXPECT_FALSE(ReadOptions(bad)) << bad.front();
}

}  // namespace
}  // namespace practice
