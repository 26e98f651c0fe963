// The operator's log, and what it says is needed.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "memory_files.h"
#include "needs/adif_reader.h"
#include "needs/log_file.h"
#include "needs/sota_csv_reader.h"
#include "needs_properties.h"
#include "radio/dates.h"
#include "random_text.h"

namespace brelwin {
namespace {

std::string ContactText(const Contact& contact) {
  return CompactMinutesText(contact.Time) + " " + contact.Callsign + " " + contact.Summit + "/" +
         contact.MySummit + "\n";
}

// Lengths in bytes and in characters, a header with fields, records of each kind of fault.
constexpr std::string_view Adif =
    "Made by a logger, <5 fields\n<ADIF_VER:5>3.1.4 <CALL:4>NONE <EOH>\n"
    "<CALL:7>g4abc/p <QSO_DATE:8>20261124 <TIME_ON:4>1012 <SOTA_REF:8:S>g/ld-003 <EOR>\n"
    "<NAME:7>J\xC3\xB6"
    "rg X<call:5>DL1AA<qso_date:8>20261125<sig:4>SOTA<sig_info:9>DL/AL-001<eor>\n"
    "<NAME:6>J\xC3\xB6"
    "rg X<CALL:5>DL2AA<QSO_DATE:8>20261125<TIME_ON:6>235959"
    "<MY_SOTA_REF:8>G/LD-001<SIG:4>POTA<SIG_INFO:6>G-0001<EOR>\n"
    "<NAME:5>J\xF6"
    "rgX <CALL:5>DL3AA <QSO_DATE:8>20261126 <TIME_ON:4>9999 <EOR>\n"
    "<CALL:500>DL4AA <QSO_DATE:8>20261126 <EOR>\n"
    "<CALL:x>DL5AA <QSO_DATE:8>20261126 <EOR>\n"
    "<QSO_DATE:8>20261126 <EOR>\n\n"
    "<CALL:5>DL6AA <QSO_DATE:8>20261399 <EOR>\n"
    "<CALL:5>DL7AA <QSO_DATE:8>20261126 <EOR> <CALL:5>DL8AA <QSO_DATE:8>20261126";

TEST(Log, IsReadFromAdif) {
  std::string contacts;
  RecordFaults faults;
  LogPosition position;
  ReadAdif(
      Adif, position, [&](const Contact& contact) { contacts += ContactText(contact); }, faults);
  EXPECT_EQ(contacts,
            "202611241012 G4ABC/P G/LD-003/\n202611250000 DL1AA DL/AL-001/\n202611252359 DL2AA /G/LD-001\n"
            "202611260000 DL3AA /\n202611260000 DL7AA /\n");
  EXPECT_EQ(faults.Named, (std::vector<std::string>{"line 7: a field with a wrong length",
                                                    "line 8: a field with a wrong length",
                                                    "line 9: no callsign", "line 11: no date"}));
}

constexpr std::string_view Csv =
    "\xEF\xBB\xBFV2,G4XYZ,,24/11/26,1012,14MHz,CW,g4abc/p,G/LD-003,notes\r\n"
    "v2,G4XYZ/P,G/LD-001,24/11/2026,10:13,7.0MHz,CW,DL1AA\r\n\r\n"
    "\"V2\",G4XYZ,,2026-11-24,,14MHz,CW,\"OE1AA\",OE/TI-123,\"one, two\"\r\n"
    "V2,G4XYZ,,32/11/26,1012,14MHz,CW,G4ABC/P,G/LD-003\r\n"
    "V2,G4XYZ,,24/11/26,1012,14MHz,CW\r\nG4XYZ,24/11/26\r\n"
    "V2,G4XYZ,,24/11/26,1014,14MHz,CW,M0ABC,G/LD-004";

TEST(Log, IsReadFromSotaCsv) {
  std::string contacts;
  RecordFaults faults;
  LogPosition position;
  ReadSotaCsv(
      Csv, position, true, [&](const Contact& contact) { contacts += ContactText(contact); }, faults);
  EXPECT_EQ(contacts,
            "202611241012 G4ABC/P G/LD-003/\n202611241013 DL1AA /G/LD-001\n202611240000 OE1AA OE/TI-123/\n"
            "202611241014 M0ABC G/LD-004/\n");
  EXPECT_EQ(faults.Named,
            (std::vector<std::string>{"line 5: no date", "line 6: no callsign", "line 7: no V2 in front"}));
}

// Station, summit, what is needed on 26 November 2026.
TEST(Needs, FollowFromTheLog) {
  test::MemoryFiles files;
  files.Put("log.csv",
            "V2,G4XYZ,,26/11/26,0012,14MHz,CW,G4ABC/P,G/LD-003\n"
            "V2,G4XYZ,,25/11/26,2359,14MHz,CW,G4ABC/P,G/LD-004\n"
            "V2,G4XYZ,,31/12/25,2359,14MHz,CW,DL1AA,DL/AL-001\n"
            "V2,G4XYZ/P,G/LD-005,01/05/25,1000,14MHz,CW,M0AA,\n");
  LogFile log("log.csv");
  log.Look(files);
  log.Look(files);
  for (const auto line : Split("G4ABC|G/LD-003|worked today\nG4ABC/P|G/LD-004|\nM0AA|G/LD-003|\n"
                               "M0AA|g/ld-001|new summit\nM0AA|G/LD-005|complete, new summit\n"
                               "DL1AA|DL/AL-001|new this year\nOE1AA|OE/TI-001|new association, new summit\n"
                               "G4ABC||worked today\nDL1AA||",
                               "\n")) {
    const auto parts = Split(line, "|");
    const auto marks = log.Worked().MarksOf(parts[0], parts[1], *ReadDateTime("2026-11-26 10:00"));
    EXPECT_EQ(MarksText(marks), parts[2]) << line;
    EXPECT_EQ(marks.IsNeeded(), parts[2].find("new") != std::string_view::npos) << line;
  }
}

// A log that grows, is cut within a record, is replaced, vanishes and comes back.
TEST(Log, IsFollowedWhileItGrows) {
  test::MemoryFiles files;
  LogFile log("log.adi");
  const std::string record = "<CALL:5>DL1AA <QSO_DATE:8>20261126 <EOR>\n";
  EXPECT_EQ(log.Look(files), LogChange::None);
  const std::tuple<std::string, LogChange, std::size_t> looks[] = {
      {record, LogChange::Replaced, 1},
      {record + record.substr(0, 30), LogChange::None, 1},
      {record + record, LogChange::Added, 2},
      {record + record, LogChange::None, 2},
      {"<NOTES:1>x" + record + record + record, LogChange::Replaced, 3},
      {"", LogChange::Replaced, 0},
      {record, LogChange::Added, 1},
  };
  for (const auto& [text, change, count] : looks) {
    files.Put("log.adi", text);
    EXPECT_EQ(log.Look(files), change) << text;
    EXPECT_EQ(log.ContactCount(), count) << text;
  }
  files.Unreadable.insert("LOG.ADI");
  files.Put("log.adi", record + record);
  EXPECT_EQ(log.Look(files), LogChange::Replaced);
  EXPECT_EQ(log.Look(files), LogChange::None);
  files.Unreadable.clear();
  EXPECT_EQ(log.Look(files), LogChange::Replaced);
  files.Delete("log.adi");
  EXPECT_EQ(log.Look(files), LogChange::Replaced);
  EXPECT_TRUE(!log.IsThere() && log.Worked().IsEmpty());
}

TEST(Log, ThatGrowsReadsTheSame) {
  for (std::size_t cut = 0; cut <= Adif.size(); ++cut)
    EXPECT_TRUE(test::GrowingLogReadsTheSame(Adif, cut)) << cut;
  for (std::size_t cut = 0; cut <= Csv.size(); ++cut)
    EXPECT_TRUE(test::GrowingLogReadsTheSame(Csv, cut)) << cut;
  test::RandomText texts(3, {"<CALL:2>", "G4", "<EOR>", "<EOH>", "<A:3>", "\xC3\xB6", "<QSO_DATE:8>20261126",
                             "\n", "<", ">", "<A:99999>", "x"});
  for (std::size_t i = 0; i < 3000; ++i) {
    const auto log = texts.Next(30);
    EXPECT_TRUE(test::GrowingLogReadsTheSame(log, i % (log.size() + 1))) << log;
  }
}

}  // namespace
}  // namespace brelwin
