// The event log and the data files.
#include <gtest/gtest.h>

#include "core/data_files.h"
#include "core/event_log.h"
#include "faulty_files.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::TestHost;

TEST(EventLog, WritesOneLinePerCall) {
  TestHost host;
  LogEvent(host.World, "");
  LogEvent(host.World, "  ", "x");
  LogEvent(host.World,
           "forged\r\n2026-01-01: line\x1B[2J\xC2\x9B"
           "caf\xC3\xA9 \xFF");
  EXPECT_EQ(host.EventLog(),
            " \r\n"
            "2026-11-24 12:00:00: x\r\n"
            "2026-11-24 12:00:00: forged  2026-01-01: line [2J caf\xC3\xA9 \xC3\xBF\r\n");
  LogEvent(host.World, " /other.log ", "y");
  EXPECT_EQ(host.Disk.Text("/other.log"), "2026-11-24 12:00:00: y\r\n");
  host.Disk.ReadOnly = true;
  LogEvent(host.World, "nobody is told");
}

TEST(DataFiles, AppendToFileSeparatesWhatItAppends) {
  TestHost host;
  std::string error = "old";
  const std::string separator = "\r\n" + std::string(44, '=') + "\r\n";
  EXPECT_TRUE(AppendToFile(host.World, " /f ", "long text", true, error));
  EXPECT_EQ(host.Disk.Text("/f"), "long text");
  EXPECT_TRUE(AppendToFile(host.World, "/f", "b", true, error));
  EXPECT_EQ(host.Disk.Text("/f"), "long text" + separator + "b");
  EXPECT_TRUE(AppendToFile(host.World, "/f", "c", false, error));
  EXPECT_EQ(host.Disk.Text("/f"), "c");
  EXPECT_EQ(error, "");

  EXPECT_FALSE(AppendToFile(host.World, " ", "d", true, error));
  EXPECT_EQ(error, "");
  host.Disk.ReadOnly = true;
  EXPECT_FALSE(AppendToFile(host.World, "/f", "d", true, error));
  EXPECT_NE(error, "");
  EXPECT_EQ(host.Disk.Text("/f"), "c");
}

std::string Joined(const KeyedCollection<std::string>& collection) {
  std::string text;
  for (const auto& entry : collection) text += entry.Key + "=" + entry.Item + ";";
  return text;
}

TEST(DataFiles, LoadsCallsignListsAsTheyAreWrittenByHand) {
  TestHost host;
  std::string error = "old";
  KeyedCollection<std::string> list;
  EXPECT_FALSE(LoadCallsignList(host.World, "/missing", true, true, list, error));
  EXPECT_FALSE(LoadCallsignList(host.World, "", true, true, list, error));
  EXPECT_EQ(error, "");
  EXPECT_FALSE(host.Disk.Exists("/missing"));

  host.Disk.Put("/list", "\xEF\xBB\xBFg4abc\n  G4ABC/P \r\n\r\n   \n/P\nEA8/W7RV");
  EXPECT_TRUE(LoadCallsignList(host.World, " /list ", true, true, list, error));
  EXPECT_EQ(Joined(list), "G4ABC=G4ABC;W7RV=W7RV;");

  KeyedCollection<std::string> lines;
  EXPECT_TRUE(LoadCallsignList(host.World, "/list", false, false, lines, error));
  EXPECT_EQ(Joined(lines), "=g4abc;=G4ABC/P;=/P;=EA8/W7RV;");

  host.Disk.Unreadable.insert("/LIST");
  EXPECT_FALSE(LoadCallsignList(host.World, "/list", true, true, list, error));
  EXPECT_EQ(error, "/list could not be read");
}

TEST(DataFiles, NoFaultTakesALineOfTheCallsignListWithIt) {
  for (int call = 1; call < 5; ++call) {
    TestHost host;
    host.Disk.Put("/list", "; mine\nC3C");
    test::FaultyFiles files(host.Disk);
    files.PowerOffAtCall = call;
    auto world = host.WithFiles(files);
    const bool isDone = AppendCallsigns(world, "/list", {"A1A", "B2B"});
    EXPECT_EQ(host.Disk.Text("/list"), isDone ? "; mine\nC3C\r\nA1A\r\nB2B\r\n" : "; mine\nC3C") << call;
  }
  TestHost host;
  host.Disk.Put("/list", "C3C");
  host.Disk.Unreadable.insert("/LIST");
  EXPECT_FALSE(AppendCallsigns(host.World, "/list", {"D4D"}));
  EXPECT_EQ(host.Disk.Text("/list"), "C3C");
}

TEST(DataFiles, SmallOnes) {
  TestHost host;
  host.Disk.Put("/brelwin/f", "12345");
  EXPECT_EQ(AddBackslash("C:\\brelwin\\") + AddBackslash("/brelwin"), "C:\\brelwin\\/brelwin\\");
  EXPECT_EQ(GetFileLength(host.World, InProgramFolder(host.World, "F")), 5);
  DeleteFile(host.World, "/brelwin/f");
  EXPECT_EQ(GetFileLength(host.World, "/brelwin/f"), 0);
  EXPECT_FALSE(FileExists(host.World, "") || OpenDocument(host.World, "  "));
}

}  // namespace
}  // namespace brelwin
