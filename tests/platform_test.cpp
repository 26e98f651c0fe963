// What stands in for the operating system: files, clock, folder, proxies.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "platform/program_folder.h"
#include "platform/proxy_settings.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "temporary_folder.h"

namespace brelwin {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

mode_t ModeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777U;
}

void Put(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

TEST(SystemFiles, FindsFilesOfAnotherLetterCaseButPrefersTheExactName) {
  const TemporaryFolder folder;
  SystemFiles files;
  fs::create_directories(folder.Path() / "Logs");
  Put(folder.Path() / "Logs" / "Spots.TXT", "upper");
  EXPECT_EQ(files.Read(folder.In("logs\\spots.txt")), "upper");
  EXPECT_TRUE(files.Append(folder.In("LOGS\\SPOTS.txt"), "+", FileAccess::Everyone).Done());
  EXPECT_EQ(files.Length(folder.In("Logs/Spots.TXT")), 6U);
  Put(folder.Path() / "Logs" / "spots.txt", "exact");
  EXPECT_EQ(files.Read(folder.In("Logs\\spots.txt")), "exact");
  EXPECT_TRUE(files.Write(folder.In("LOGS\\new.txt"), "", FileAccess::Everyone).Done());
  EXPECT_TRUE(fs::exists(folder.Path() / "Logs" / "new.txt"));
}

TEST(SystemFiles, TakesOnlyRegularFilesForFiles) {
  const TemporaryFolder folder;
  SystemFiles files;
  ASSERT_EQ(::mkfifo(folder.In("pipe").c_str(), 0600), 0);
  for (const auto& path : {folder.In(""), folder.In("pipe"), folder.In("missing"),
                           folder.In("no/such/folder"), std::string(), folder.In("a") + '\0' + "b"}) {
    EXPECT_FALSE(files.Exists(path)) << path;
    EXPECT_FALSE(files.Read(path)) << path;
    EXPECT_FALSE(files.Length(path)) << path;
  }
  for (const auto& path : {folder.In(""), folder.In("pipe"), folder.In("no/such/folder"), std::string(),
                           folder.In("a") + '\0' + "b"}) {
    EXPECT_FALSE(files.Write(path, "x", FileAccess::Everyone).Done()) << path;
    EXPECT_FALSE(files.Append(path, "x", FileAccess::Everyone).Done()) << path;
  }
  EXPECT_TRUE(files.Delete(folder.In("missing")).Done());
  EXPECT_FALSE(files.Delete(folder.In("")).Done());
}

TEST(SystemFiles, KeepsPermissionsAndLinksAndLeavesNothingBeside) {
  const TemporaryFolder folder;
  SystemFiles files;
  EXPECT_TRUE(files.Write(folder.In("secret"), "1", FileAccess::OwnerOnly).Done());
  EXPECT_EQ(ModeOf(folder.In("secret")), 0600U);
  EXPECT_TRUE(files.Write(folder.In("secret"), "2", FileAccess::Everyone).Done());
  EXPECT_EQ(ModeOf(folder.In("secret")), 0600U);

  Put(folder.Path() / "shared", "old and longer");
  ::chmod(folder.In("shared").c_str(), 0664);
  fs::create_symlink("shared", folder.Path() / "link");
  EXPECT_TRUE(files.Write(folder.In("link"), "new", FileAccess::Everyone).Done());
  EXPECT_TRUE(fs::is_symlink(folder.Path() / "link"));
  EXPECT_EQ(files.Read(folder.In("shared")), "new");
  EXPECT_EQ(ModeOf(folder.In("shared")), 0664U);
  EXPECT_TRUE(files.Append(folder.In("shared"), "", FileAccess::OwnerOnly).Done());
  EXPECT_EQ(ModeOf(folder.In("shared")), 0600U);

  fs::create_symlink(folder.Path() / "later", folder.Path() / "dangling");
  EXPECT_TRUE(files.Write(folder.In("dangling"), "x", FileAccess::Everyone).Done());
  EXPECT_TRUE(fs::is_regular_file(folder.Path() / "later"));
  const auto count = std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
  EXPECT_EQ(count, 5);
}

// The disk is full at every possible byte: a limit on the size of files stands in for it.
TEST(SystemFiles, AFullDiskLeavesTheOldFileWhole) {
  const TemporaryFolder folder;
  SystemFiles files;
  const std::string path = folder.In("file");
  Put(path, "old");
  struct rlimit before {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  ::signal(SIGXFSZ, SIG_IGN);
  std::string writeError;
  std::string appendError;
  for (rlim_t limit = 3; limit < 8; ++limit) {
    const rlimit small{limit, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    writeError = files.Write(path, "newer and longer", FileAccess::Everyone).ErrorText;
    appendError = files.Append(path, "12345", FileAccess::Everyone).ErrorText;
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(writeError, "File too large");
    EXPECT_EQ(appendError, "File too large");
    EXPECT_EQ(files.Read(path), "old");
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

// Killed at any moment, a writer leaves one whole file.
TEST(SystemFiles, AWriterThatIsKilledLeavesTheOldOrTheNewFile) {
  const TemporaryFolder folder;
  const std::string path = folder.In("file");
  const std::string contents[] = {std::string(300000, 'a'), std::string(200000, 'b')};
  Put(path, contents[0]);
  for (int round = 0; round < 20; ++round) {
    const auto writer = ::fork();
    if (writer == 0) {
      for (unsigned i = 0;; ++i) SystemFiles().Write(path, contents[i % 2], FileAccess::OwnerOnly);
    }
    ::usleep(static_cast<useconds_t>(500 + 700 * round));
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
    const auto text = SystemFiles().Read(path);
    EXPECT_TRUE(text == contents[0] || text == contents[1]);
  }
}

TEST(SystemFiles, ATornWriteOfAnEarlierRunDoesNotStandInTheWay) {
  const TemporaryFolder folder;
  SystemFiles files;
  Put(folder.In("file.brelwin-new"), "torn and rather longer than the new text");
  EXPECT_TRUE(files.Write(folder.In("file"), "new", FileAccess::OwnerOnly).Done());
  EXPECT_EQ(files.Read(folder.In("file")), "new");
  EXPECT_FALSE(files.Exists(folder.In("file.brelwin-new")));
}

class TimeZone {
 public:
  explicit TimeZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    ::setenv("TZ", zone, 1);
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
  ~TimeZone() { before_.empty() ? ::unsetenv("TZ") : ::setenv("TZ", before_.c_str(), 1); }

 private:
  std::string before_;
};

TEST(SystemClock, TellsTheBiasesOfItsZone) {
  const SystemClock clock;
  using Case = std::tuple<const char*, int, int, bool>;
  for (const auto& [zone, standard, daylight, hasDaylight] :
       {Case{"UTC0", 0, 0, false}, Case{"XYZ-5:45", -345, -345, false},
        Case{"CET-1CEST,M3.5.0,M10.5.0/3", -60, -120, true}, Case{"EST5EDT,M3.2.0,M11.1.0", 300, 240, true},
        Case{"LHST-10:30LHDT-11,M10.1.0,M4.1.0", -630, -660, true},
        Case{"STD-1DAY0,M10.5.0,M3.5.0/1", -60, 0, true}}) {
    const TimeZone set(zone);
    const auto information = clock.GetTimeZoneInformation();
    EXPECT_EQ(information.Bias + information.StandardBias, standard) << zone;
    EXPECT_EQ(information.Bias + information.DaylightBias, daylight) << zone;
    EXPECT_EQ(information.Now != TimeZoneInformation::State::Unknown, hasDaylight) << zone;

    const bool isDaylight = information.Now == TimeZoneInformation::State::Daylight;
    const auto utc = AddMinutes(clock.LocalNow(), isDaylight ? daylight : standard);
    EXPECT_NEAR(static_cast<double>(utc.Seconds), static_cast<double>(std::time(nullptr)), 2) << zone;
  }
}

TEST(ProgramFolder, IsTheNamedOneOrThatOfTheExecutable) {
  const TemporaryFolder folder;
  ::unsetenv("BRELWIN_FOLDER");
  EXPECT_EQ(FindProgramFolder().Path, fs::read_symlink("/proc/self/exe").parent_path().string());
  ::setenv("BRELWIN_FOLDER", (folder.In("a/./new") + "/").c_str(), 1);
  const auto made = FindProgramFolder();
  EXPECT_EQ(made.Path, folder.In("a/new"));
  EXPECT_EQ(made.ErrorText, "");
  EXPECT_TRUE(fs::is_directory(made.Path));
  Put(folder.In("file"), "");
  ::setenv("BRELWIN_FOLDER", folder.In("file").c_str(), 1);
  EXPECT_NE(FindProgramFolder().ErrorText, "");
  ::unsetenv("BRELWIN_FOLDER");
}

TEST(ProxySettings, ReadsEveryFormOfAProxyAddress) {
  const std::pair<std::string, std::optional<Proxy>> cases[] = {
      {"127.0.0.1:3128", Proxy{"127.0.0.1", 3128, "", ""}},
      {" http://proxy.example.org/ ", Proxy{"proxy.example.org", 80, "", ""}},
      {"HTTP://me:p%40ss%3A%zz@[::1]:8080", Proxy{"::1", 8080, "me", "p@ss:%zz"}},
      {"me@proxy:1", Proxy{"proxy", 1, "me", ""}},
  };
  for (const auto& [text, expected] : cases)
    EXPECT_EQ(ProxyForUrl({text, "", ""}, "http://www.example.org/"), expected) << text;
  for (const auto* text : {"", "socks5://proxy:1080", "http://:3128", "proxy:70000", "proxy:0", "proxy:31x"})
    EXPECT_FALSE(ProxyForUrl({text, "", ""}, "http://www.example.org/")) << text;
  const auto settings = ReadProxySettings([](const std::string& name) -> std::optional<std::string> {
    if (name == "http_proxy") return "lower:1";
    if (name == "HTTP_PROXY") return "upper:1";
    return name == "HTTPS_PROXY" ? std::optional<std::string>("secure:2") : std::nullopt;
  });
  EXPECT_EQ(ProxyForUrl(settings, "http://127.0.0.1:8080/x")->Host, "lower");
  EXPECT_EQ(ProxyForUrl(settings, "https://host/x")->Host, "secure");
}

TEST(ProxySettings, ExemptsWhatNoProxyNames) {
  const auto isExempt = [](std::string_view line) {
    const auto parts = Split(line, "|");
    return !ProxyForUrl({"proxy:1", "proxy:1", std::string(parts[0])}, parts[1]);
  };
  for (const auto* line :
       {"*|http://a.org/", "localhost, 127.0.0.1|http://127.0.0.1:81/", "Example.ORG|http://www.example.org/",
        ".example.org|http://example.org", "*.example.org|https://a.b.example.org?x",
        "a.org:8080|http://a.org:8080/", "a.org:443|https://a.org/", "[::1]:80 ::2|http://[::1]/",
        "[::1]:80 ::2|http://[::2]:99/", "a.org|http://user@a.org/"})
    EXPECT_TRUE(isExempt(line)) << line;
  for (const auto* line :
       {"|http://127.0.0.1/", "example.org|http://badexample.org/", "ample.org|http://example.org/",
        "a.org:8080|http://a.org/", ",,.|http://a.org/", "a.org|http://b.org/a.org"})
    EXPECT_FALSE(isExempt(line)) << line;
}

}  // namespace
}  // namespace brelwin
