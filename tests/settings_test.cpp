// Loading and saving the settings, and what saving must never destroy.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <set>

#include "core/scrambling.h"
#include "faulty_files.h"
#include "file_properties.h"
#include "platform/profile.h"
#include "settings/settings.h"
#include "settings/settings_notices.h"
#include "settings/settings_table.h"
#include "test_host.h"

namespace brelwin {
namespace {

constexpr const char* Path = "/brelwin/Brelwin.INI";
const std::string FeedChosen = "[General]\nSotawatchSpotsViaRSS=1\n";  // a load has nothing to say of it

// One run of the program, as far as the settings go.
struct ProgramRun {
  explicit ProgramRun(test::TestHost& host, std::string_view password = {}) : World(host) {
    File.LoadSettings(Path, password);
  }
  std::string Stored(std::string_view section, std::string_view key) const {
    return ReadProfileValue(World.Disk.Text(Path), section, key).value_or("(missing)");
  }
  std::string LogSince(std::size_t position) const { return World.EventLog().substr(position); }

  test::TestHost& World;
  Screen Controls;
  Configuration Config;
  Settings File{World.World, Controls, Config};
};

std::ptrdiff_t Lines(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

TEST(SettingsTable, GivesEveryKeyItsOwnPlace) {
  std::set<std::string> keys;
  std::set<std::string_view> controls;
  Screen screen;
  for (const auto& row : SettingsTable()) {
    EXPECT_TRUE(keys.insert(std::string(row.Section) + "/" + std::string(row.Key)).second) << row.Key;
    std::visit(
        [&](auto access) {
          if constexpr (std::is_invocable_v<decltype(access), Screen&>) {
            EXPECT_TRUE(controls.insert(access(screen).Name).second) << row.Key;
          }
        },
        row.Target);
  }
}

// The line of the user guide that has the key in backticks, in the chapter of its section.
std::string GuideLine(const std::string& guide, const SettingRow& row) {
  const auto chapter = guide.find("\n### [" + std::string(row.Section) + "]\n");
  const auto key = guide.find("`" + std::string(row.Key) + "`", chapter);
  if (chapter == std::string::npos || key == std::string::npos || guide.find("\n### [", chapter + 1) < key)
    return {};
  const auto begin = guide.rfind('\n', key) + 1;
  return guide.substr(begin, guide.find('\n', key) - begin);
}

TEST(SettingsTable, IsInTheUserGuideWithItsDefaults) {
  std::ifstream file(BRELWIN_USER_GUIDE);
  const std::string guide{std::istreambuf_iterator<char>(file), {}};
  ASSERT_FALSE(guide.empty());
  for (const auto& row : SettingsTable()) {
    const auto line = GuideLine(guide, row);
    EXPECT_NE(line, "") << row.Section << " " << row.Key;
    for (const auto value : {row.DesignValue, row.Fallback})
      EXPECT_TRUE(value.empty() || Contains(line, "`" + std::string(value) + "`")) << row.Key << " " << value;
  }
}

TEST(Settings, WithoutAFileHaveTheirDesignValuesAndTheFirstSaveWritesThemAll) {
  test::TestHost host;
  ProgramRun run(host);
  EXPECT_EQ(run.Controls.Spots.txtSecondsBetweenChecks.Text.Get(), "30");
  EXPECT_EQ(run.Config.Addresses.SotawatchRSS, "https://old.sota.org.uk/RssFeed");
  EXPECT_FALSE(host.Disk.Exists(Path));

  EXPECT_TRUE(run.File.SaveSettings());
  for (const auto& row : SettingsTable()) {
    const bool isMissing = run.Stored(row.Section, row.Key) == "(missing)";
    EXPECT_EQ(isMissing, row.Use == SettingUse::LoadedOnly) << row.Key;
  }
  EXPECT_TRUE(host.Disk.Text(Path).starts_with("[General]\r\nFilterAlertSounds=0\r\n"));
  EXPECT_EQ(run.Stored("TroubleshootingInfo", "Path"), "/brelwin");
  EXPECT_TRUE(host.Disk.IsOwnerOnly(Path));
  EXPECT_EQ(host.EventLog(), "");
}

TEST(Settings, FallBackWhereTheFileHasNothingUseful) {
  test::TestHost host;
  host.Disk.Put(Path,
                "[ReverseBeaconNetwork]\nRBNPort=0\nRBNConnectionTimeout=none\nRBNShowAllSpottedTypes=yes\n"
                "[General]\nMaxAlertAgeInHours=24 hours\nMaxWinsockControlInstances=7\nPlaySoundWhen=9\n"
                "TestMode1String= a b \n");
  const ProgramRun run(host);
  EXPECT_EQ(run.Config.RBNPort, 7000);
  EXPECT_EQ(run.Config.RBNConnectionTimeout, 5);
  EXPECT_TRUE(run.Config.RBNShowAllSpottedTypes);
  EXPECT_EQ(run.Config.MaxAlertAgeInHours, 72);
  EXPECT_EQ(run.Config.MaxWinsockControlInstances, 7);
  EXPECT_EQ(run.Config.Test.TestMode1String, "a b");
  EXPECT_EQ(run.Controls.Filters.optPlaySoundWhen.Value, 0);
  EXPECT_EQ(run.Controls.Spots.txtSecondsBetweenChecks.Text.Get(), "");
  EXPECT_FALSE(run.Controls.RBN.chkRBNFilterDuplicateSpots.Value);
}

TEST(Settings, TellOnceWhatAFileLeavesOpenOrLoses) {
  test::TestHost host;
  host.Disk.Put(Path, "[General]\nFilterStation=" + std::string(128, 'x') + "\nFilterMode=" +
                          std::string(127, 'x') + "\n[ReverseBeaconNetwork]\nRBNCallsign=Q0ZZ\n");
  ProgramRun run(host);
  const auto notices = run.File.Notices();
  ASSERT_EQ(notices.size(), 3U);
  EXPECT_EQ(notices[0],
            "[General] FilterStation is longer than 127 characters: only the first 127 are used.");
  EXPECT_TRUE(notices[1].starts_with("The settings file has no key RBNSpotsEnabled: neither "));
  EXPECT_TRUE(notices[2].starts_with(
      "The settings file has no key SotawatchSpotsViaRSS: spots are read from the Twitter feed."));
  EXPECT_TRUE(host.EventLog().ends_with(": LoadSettings - " + notices[2] + "\r\n"));
  EXPECT_EQ(Lines(host.EventLog()), 3);

  run.Controls.Spots.chkSOTAWatchSpotsViaRSS.Value = true;
  EXPECT_EQ(run.File.Notices().size(), 2U);
  run.Controls.Spots.chkSOTAWatchSpotsViaRSS.Value = false;
  EXPECT_TRUE(run.File.SaveSettings());
  EXPECT_EQ(run.File.Notices(), std::vector{notices[0]})
      << "the file has every key, and still the long value";

  const BoxWarnings warnings(run.Controls);
  auto& box = run.Controls.Filters.txtFilterStation;
  EXPECT_EQ(box.Warning.Get(), "");
  box.Text = box.Text.Get() + "y";
  EXPECT_TRUE(box.Warning.Get().starts_with("128 characters: ")) << box.Warning.Get();
  EXPECT_TRUE(run.File.Notices().empty());
}

TEST(Settings, SavingLeavesAloneWhatTheScreenCannotShow) {
  const std::string longText(128, 'x');
  const std::pair<std::string, std::string> cases[] = {{"FilterStation", longText},
                                                       {"PlaySoundWhen", "9"},
                                                       {"LogFormat1", "tab"},
                                                       {"SotawatchPassword", "\x01\x01"},
                                                       {"SotawatchPassword", longText}};
  for (const auto& [key, stored] : cases) {
    const std::string section = key == "SotawatchPassword" ? "Gateway" : "General";
    test::TestHost host;
    host.Disk.Put(Path, "[" + section + "]\r\n" + key + "=" + stored + "\r\n");
    ProgramRun run(host);
    const auto logged = host.EventLog().size();
    EXPECT_TRUE(run.File.SaveSettings());
    EXPECT_EQ(run.Stored(section, key), stored);
    EXPECT_EQ(Lines(run.LogSince(logged)), 1) << key;

    run.Controls.Filters.txtFilterStation.Text = "touched";
    run.Controls.Filters.optPlaySoundWhen.Value = 3;
    run.Controls.Logs.optLogFormat1.Value = 3;
    run.Controls.Gateway.txtSotawatchPassword.Text = "new";
    EXPECT_TRUE(run.File.SaveSettings());
    EXPECT_NE(run.Stored(section, key), stored);
    EXPECT_EQ(Lines(run.LogSince(logged)), 1) << key;
  }
}

TEST(Settings, SavingLeavesAloneWhatWasChangedInTheFileMeanwhile) {
  test::TestHost host;
  host.Disk.Put(Path, FeedChosen + "FilterStation=a\nFilterBand=a\nFilterMode=a\n");
  ProgramRun run(host);
  EXPECT_TRUE(run.File.SaveSettings());
  auto text = host.Disk.Text(Path);
  for (const auto* key : {"FilterStation", "FilterBand"}) WriteProfileValue(text, "General", key, "by hand");
  host.Disk.Put(Path, text);
  run.Controls.Filters.txtFilterBand.Text = "typed";
  EXPECT_TRUE(run.File.SaveSettings());
  EXPECT_TRUE(run.File.SaveSettings());
  EXPECT_EQ(run.Stored("General", "FilterStation"), "by hand");
  EXPECT_EQ(run.Stored("General", "FilterBand"), "typed");
  EXPECT_EQ(run.Stored("General", "FilterMode"), "a");
  EXPECT_EQ(
      host.EventLog(),
      "2026-11-24 12:00:00: SaveSettings - [General] FilterStation is left as it is in the file: it was "
      "changed there after it was loaded.\r\n"
      "2026-11-24 12:00:00: SaveSettings - [General] FilterStation is left as it is in the file: it was "
      "changed there after it was loaded.\r\n");

  host.Disk.Delete(Path);
  EXPECT_TRUE(run.File.SaveSettings());
  EXPECT_EQ(run.Stored("General", "FilterStation"), "a");
}

TEST(Settings, AFileThatCannotBeReadIsNotWrittenInThatRun) {
  for (const bool isWide : {false, true}) {
    test::TestHost host;
    const std::string before = isWide ? std::string("\xFF\xFE[\0", 4) : "[General]\n";
    host.Disk.Put(Path, before);
    if (!isWide) host.Disk.Unreadable.insert(test::MemoryFiles::Name(Path));
    ProgramRun run(host);
    EXPECT_EQ(Lines(host.EventLog()), 1);
    EXPECT_EQ(run.Controls.Spots.txtSecondsBetweenChecks.Text.Get(), "30");
    EXPECT_FALSE(run.File.PrepareFile()) << "others must not write to it either";
    host.Disk.Unreadable.clear();
    EXPECT_FALSE(run.File.SaveSettings());
    EXPECT_EQ(host.Disk.Text(Path), before);
    EXPECT_EQ(Lines(host.EventLog()), 1) << "the user was told at the load";
  }
}

TEST(Settings, PasswordsThatHaveNoStoredFormLeaveTheStoredOne) {
  for (const std::string password : {"\xD0\x9F\xD0\xB0", "abc\xC3\xBF", "\x08",
                                     "\x1E"
                                     "a"}) {
    test::TestHost host;
    host.Disk.Put(Path, FeedChosen + "[Gateway]\nSotawatchPassword=" + ShiftEncode("old", 2) + "\n");
    ProgramRun run(host);
    run.Controls.Gateway.txtSotawatchPassword.Text = password;
    EXPECT_TRUE(run.File.SaveSettings());
    EXPECT_EQ(run.Stored("Gateway", "SotawatchPassword"), ShiftEncode("old", 2));
    EXPECT_EQ(Lines(host.EventLog()), 1) << password;
  }
}

TEST(Settings, APasswordFromTheEnvironmentIsNeverWritten) {
  for (const auto& before : {std::string(), FeedChosen + "[Gateway]\nSotawatchPassword=qxh\n"}) {
    test::TestHost host;
    if (!before.empty()) host.Disk.Put(Path, before);
    ProgramRun run(host, "secret");
    EXPECT_EQ(run.Controls.Gateway.txtSotawatchPassword.Text.Get(), "secret");
    EXPECT_TRUE(run.File.SaveSettings());
    EXPECT_EQ(run.Stored("Gateway", "SotawatchPassword"), before.empty() ? "(missing)" : "qxh");
    run.Controls.Gateway.txtSotawatchPassword.Text = "typed";
    EXPECT_TRUE(run.File.SaveSettings());
    run.Controls.Gateway.txtSotawatchPassword.Text = "secret";
    EXPECT_TRUE(run.File.SaveSettings());
    EXPECT_EQ(run.Stored("Gateway", "SotawatchPassword"), ShiftEncode("typed", 2));
    EXPECT_EQ(host.EventLog(), "");
  }
}

TEST(Settings, SavingAnyFileLosesNothing) {
  std::mt19937 generator(1);
  std::vector<std::string> pieces;
  for (const auto piece : Split(
           "[General]\n|[Gateway]\r\n|[ReverseBeaconNetwork]\n|\n|; note\n|=|'|\"| |\t|9|1|x|\xC3\xA9|\xE9|]",
           "|"))
    pieces.emplace_back(piece);
  for (const auto& row : SettingsTable()) pieces.push_back("\n" + std::string(row.Key) + "=");
  for (int round = 0; round < 150; ++round) {
    std::string file;
    for (auto count = generator() % 60; count > 0; --count) file += pieces[generator() % pieces.size()];
    ASSERT_EQ(test::BreachOfSettingsSave(file, pieces[generator() % 14]), "") << file;
  }
}

// A run whose files fail when the test says so. The file of the settings is loaded, and a box is typed into.
struct FaultyRun {
  explicit FaultyRun(test::TestHost& host) : Files(host.Disk), World(host.WithFiles(Files)) {
    File.LoadSettings(Path, {});
    Controls.Filters.txtFilterBand.Text = "20";
  }

  test::FaultyFiles Files;
  Host World;
  Screen Controls;
  Configuration Config;
  Settings File{World, Controls, Config};
};

TEST(Faults, ASingleFailingFileCallOfASaveLosesNothingAndTheNextSaveWritesEverything) {
  for (int call = 1; call < 6; ++call) {
    test::TestHost host;
    const std::string mine = "; mine\n[General]\nUnknown=1\nFilterBand=";
    host.Disk.Put(Path, mine + "40\n");
    FaultyRun run(host);
    run.Files.FailAtCall = run.Files.Calls() + call;
    run.File.SaveSettings();
    EXPECT_TRUE(host.Disk.Text(Path).starts_with(mine)) << call;
    run.Files.FailAtCall = 0;
    EXPECT_TRUE(run.File.SaveSettings());
    EXPECT_TRUE(host.Disk.Text(Path).starts_with(mine + "20\n")) << call;
  }
}

}  // namespace
}  // namespace brelwin
