// The event log and the data files.
#include <gtest/gtest.h>

#include "core/callsign_list.h"
#include "core/data_files.h"
#include "core/event_log.h"
#include "core/websites.h"
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
  EXPECT_TRUE(
      host.EventLog().ends_with(": LoadCallsignList Error, Number=5 Error=/list could not be read\r\n"));
  const auto before = host.Disk.Text("/list");
  EXPECT_FALSE(AppendLines(host.World, "/list", {"D4D"}));
  EXPECT_EQ(host.Disk.Text("/list"), before);
}

TEST(Websites, WhatLooksLikeAHostIsOpenedAsOne) {
  TestHost host;
  host.Disk.Put("my.notes", "");
  for (const auto* asHost :
       {"www.sota.org.uk", "sotl.as/summits?x=1", "sota.example.org:8443/a", "sota.de#top"})
    EXPECT_EQ(AddressToOpen(host.World, asHost), std::string("https://") + asHost);
  for (const auto* asItIs :
       {"http://www.sota.org.uk", "mailto:a@b.org", "guide.PDF", "my.notes", "C:\\sota.org", "/srv/sota.org",
        "./sota.org", "../sota.org", "summits", "1.5", "my summits.org", "sota.org:x", "", "https://"})
    EXPECT_EQ(AddressToOpen(host.World, asItIs), asItIs);
}

}  // namespace
}  // namespace brelwin
