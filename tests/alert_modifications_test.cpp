// The modifications file: what is kept, what is applied, and that no fault loses an entry.
#include <gtest/gtest.h>

#include "alert_properties.h"
#include "alerts/modifications.h"
#include "radio/dates.h"
#include "random_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

constexpr std::string_view File = "/brelwin/SOTAAlertModifications.txt";
constexpr std::int32_t DefaultAfter = 60;
const std::string Torn = "ADD||2026-11-24 12:00:00||12:00||G4ABC";

std::string Entry(const std::string& command, DateTime time, const std::string& key, int after = 0) {
  SOTAAlert alert;
  SetAlertDateAndTime(alert, time);
  alert.stationBaseCallsign = "G4ABC";
  alert.MaxMinutesAfterAlertTime = after;
  alert.AlertKey = key;
  return command + "||" + DelimitedData(alert);
}

class ModificationsFile : public ::testing::Test {
 protected:
  Modifications Load() { return Modifications::Load(host_.World, "", Now(), DefaultAfter); }
  DateTime Now() const { return UTCNow(host_.Time); }
  DateTime Ago(std::int64_t minutes) const { return AddMinutes(Now(), -minutes); }
  std::string Text() const { return host_.Disk.Text(File); }

  // What a file of these lines is after a reading that changes nothing.
  std::string Pruned(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    host_.Disk.Put(File, text);
    Load().Save(host_.World);
    return Text();
  }

  test::TestHost host_;
};

TEST_F(ModificationsFile, EntriesExpireByTheirKindAndWindow) {
  const std::vector<std::string> kept = {Entry("ADD", Ago(59), "a"),       Entry("add", Ago(-5000), "b"),
                                         Entry("ADD", Ago(299), "c", 300), Entry("DEL", Ago(60), "d"),
                                         Entry("DEL", Ago(1380), "e"),     Entry("del", Ago(2000), "f", 3000),
                                         Entry("XYZ", Ago(10), "g")};
  std::vector<std::string> lines = {"",
                                    "   ",
                                    "ADD||",
                                    Torn,
                                    Entry("ADD", Ago(60), "x"),
                                    Entry("ADD", Ago(300), "x", 300),
                                    Entry("DEL", Ago(1440), "x"),
                                    Entry("XYZ", Ago(60), "x"),
                                    "ADD||no date||||||||||||||||||0||0||0||x"};
  std::string expected;
  for (const auto& line : kept) {
    lines.push_back("  " + line + " ");
    expected += line + "\r\n";
  }
  EXPECT_EQ(Pruned(lines), expected);
  EXPECT_TRUE(
      host_.EventLog().ends_with(" - An entry with fewer than 13 fields was not kept: " + Torn + "\r\n"));
  EXPECT_EQ(Pruned({Entry("ADD", Ago(60), "x")}), "");
  EXPECT_FALSE(host_.Disk.Exists(File));
  EXPECT_TRUE(Load().Save(host_.World));
  EXPECT_FALSE(host_.Disk.Exists(File));
}

TEST_F(ModificationsFile, EntriesAreAppliedInTheirOrder) {
  SOTAAlert page;
  page.AlertKey = page.ID = "page";
  page.stationBaseCallsign = "G4ABC";
  AlertCollection alerts;
  alerts.Add(std::make_shared<const SOTAAlert>(page));
  Pruned({Entry("ADD", Now(), "one"), Entry("DEL", Now(), "PAGE"), Entry("ADD", Now(), "two"),
          Entry("ADD", Now(), "gone"), Entry("DEL", Now(), "gone"), Entry("ADD", Now(), "ONE"),
          Entry("ADD", Now(), ""), Entry("ADD", Now(), ""), Entry("DEL", Now(), ""),
          Entry("WHAT", Now(), "three")});
  Load().ApplyTo(alerts);
  std::string keys;
  for (const auto& [place, alert] : alerts.OfStation("G4ABC")) keys += alert->AlertKey + " ";
  for (const auto& entry : alerts.All()) keys += entry.Key + " ";
  EXPECT_EQ(keys, "two one two one ");
}

TEST_F(ModificationsFile, AppendingFinishesAnUnfinishedLine) {
  EXPECT_TRUE(AppendModifications(host_.World, "", {}));
  EXPECT_FALSE(host_.Disk.Exists(File));
  EXPECT_TRUE(AppendModifications(host_.World, "", {"one", "two"}));
  EXPECT_EQ(Text(), "one\r\ntwo\r\n");
  host_.Disk.Put(File, "torn");
  EXPECT_TRUE(AppendModifications(host_.World, "", {"next"}));
  EXPECT_EQ(Text(), "torn\r\nnext\r\n");
}

TEST_F(ModificationsFile, AFileThatCannotBeReadOrWrittenIsLeftAlone) {
  const auto entry = Entry("ADD", Now(), "a") + "\n";
  host_.Disk.Put(File, entry);
  host_.Disk.Unreadable.insert(test::MemoryFiles::Name(File));
  EXPECT_FALSE(AppendModifications(host_.World, "", {"next"}));
  EXPECT_FALSE(Load().Save(host_.World));
  EXPECT_TRUE(Contains(host_.EventLog(), "could not be read and is left as it is."));
  host_.Disk.Unreadable.clear();
  EXPECT_EQ(Text(), entry);
  host_.Disk.ReadOnly = true;
  EXPECT_FALSE(Load().Save(host_.World));
  EXPECT_EQ(Text(), entry);
}

TEST_F(ModificationsFile, IsCleanedOnceWhateverItHolds) {
  const auto addition = Entry("ADD", Now(), "a");
  const auto deletion = Entry("del", Ago(100), "b");
  test::RandomText random(5, {addition, deletion, "||", "\r\n", "\n", " ", "\r", "\xE9"});
  for (int round = 0; round < 1000; ++round) {
    const auto text = random.Next(12);
    ASSERT_TRUE(test::ModificationsReadBack(text)) << text;
  }
}

}  // namespace
}  // namespace brelwin
