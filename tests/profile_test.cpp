// INI files, with the behaviour that the private-profile functions are documented to have.
#include <gtest/gtest.h>

#include <random>

#include "file_properties.h"
#include "platform/profile.h"

namespace brelwin {
namespace {

TEST(ProfileText, ReadsAsDocumented) {
  const std::string text =
      "\xEF\xBB\xBF"
      "before=no section\r\n"
      "; [General]\r\n"
      " [ general ] and more\n"
      ";Commented=1\n"
      "Key =  one ; two \n"
      "KEY=second\n"
      "Quoted=' \"x\" '\n"
      "Single=\"\n"
      "Unequal=\"x'\n"
      "no equals sign\n"
      "\tTabbed\t=\tx y\t\n"
      "Equals=a=b=\n"
      "Empty=\n"
      "Ansi=caf\xE9 \x80\n"
      "Utf8=caf\xC3\xA9\n"
      "[broken\n"
      "AfterBroken=1\n"
      "[Other]\n"
      "Key=other\n"
      "[General]\n"
      "Late=never seen\n"
      "[Last]\r\n"
      "Open=end";
  struct Case {
    std::string_view Section;
    std::string_view Key;
    std::optional<std::string> Expected;
  };
  for (const auto& [section, key, expected] : {
           Case{"GENERAL", "key", "one ; two"},
           Case{"General", "Quoted", " \"x\" "},
           Case{"General", "Single", "\""},
           Case{"General", "Unequal", "\"x'"},
           Case{"General", " tabbed ", "x y"},
           Case{"General", "Equals", "a=b="},
           Case{"General", "Empty", ""},
           Case{"General", "Ansi", "caf\xC3\xA9 \xE2\x82\xAC"},
           Case{"General", "Utf8", "caf\xC3\xA9"},
           Case{"General", "AfterBroken", "1"},
           Case{"General", "Commented", {}},
           Case{"General", ";Commented", {}},
           Case{"General", "no equals sign", {}},
           Case{"General", "before", {}},
           Case{"General", "Late", {}},
           Case{"Other", "Key", "other"},
           Case{"Last", "Open", "end"},
           Case{"Missing", "Key", {}},
       })
    EXPECT_EQ(ReadProfileValue(text, section, key), expected) << section << " " << key;
}

TEST(ProfileText, WritesInPlaceAndKeepsEverythingElse) {
  struct Case {
    std::string_view Before;
    std::string_view Section;
    std::string_view Key;
    std::string_view Value;
    std::string_view After;
  };
  for (const auto& [before, section, key, value, after] : {
           Case{"", "S", "K", "v", "[S]\r\nK=v\r\n"},
           Case{"\xEF\xBB\xBF", "S", "K", "v", "\xEF\xBB\xBF[S]\r\nK=v\r\n"},
           Case{"[s]\nk = old\n;c\nk=2\n", "S", "K", "v", "[s]\nK=v\n;c\nk=2\n"},
           Case{"[s]\r\nk=old", "S", "K", "v", "[s]\r\nK=v"},
           Case{"[s]\n k = 'v' \n", "S", "K", "v", "[s]\n k = 'v' \n"},
           Case{"[s]\na=1\n;c\n\n  \n[t]\nk=1\n", "S", "K", "v", "[s]\na=1\n;c\nK=v\n\n  \n[t]\nk=1\n"},
           Case{"[s]\n\n[s]\nk=1\n", "S", "K", "v", "[s]\nK=v\n\n[s]\nk=1\n"},
           Case{"[t]\nlast", "S", "K", "", "[t]\nlast\n[S]\nK=\n"},
           Case{"[S]", "S", "K", "v", "[S]\r\nK=v\r\n"},
           Case{"[S]\r\na=1\r", "S", "K", "v", "[S]\r\na=1\r\nK=v\r\n"},
           Case{"caf\xE9\n[s]\nk=\xE9\n\xE9=1", "S", "K", "\xC3\xA9", "caf\xE9\n[s]\nk=\xE9\n\xE9=1"},
           Case{"caf\xE9\n[s]\nk=\xE9\n", "S", "K", "\xC3\xA8", "caf\xE9\n[s]\nK=\xC3\xA8\n"},
           Case{"", "S", "K", "\"v\"", "[S]\r\nK=\"\"v\"\"\r\n"},
           Case{"", "S", "K", "a\r\nb\n", "[S]\r\nK=a  b \r\n"},
           Case{"", "S", "K", "\tv", "[S]\r\nK=\"\tv\"\r\n"},
       }) {
    std::string text(before);
    EXPECT_TRUE(WriteProfileValue(text, section, key, value)) << before;
    EXPECT_EQ(text, after);
  }
  for (const auto& [section, key] : std::vector<std::pair<std::string, std::string>>{
           {"S]", "K"}, {"", "K"}, {"S", " "}, {"S", "a=b"}, {"S", ";K"}, {"S", "[K]"}, {"S", "K\nL=1"}}) {
    std::string text = "[S]\n";
    EXPECT_FALSE(WriteProfileValue(text, section, key, "v")) << section << "/" << key;
    EXPECT_EQ(text, "[S]\n");
  }
}

TEST(ProfileText, ReadsBackWhatWasWrittenIntoAnyText) {
  std::mt19937 generator(1);
  const std::vector<std::string> pieces = {"[",  "]",    "=",     ";", "'", "\"", " ", "\t",       "\r",
                                           "\n", "\r\n", "[S]\n", "s", "K", "k=", "1", "\xC3\xA9", "\xE9"};
  const auto random = [&](std::size_t most, std::size_t kinds) {
    std::string text;
    for (auto count = generator() % (most + 1); count > 0; --count) text += pieces[generator() % kinds];
    return text;
  };
  for (int round = 0; round < 20000; ++round) {
    const auto before = random(20, pieces.size());
    const auto key = generator() % 2 == 0 ? "k" : random(3, pieces.size() - 1);
    const auto value = random(6, pieces.size() - 1);
    ASSERT_EQ(test::BreachOfProfileWrite(before, "s", key, value), "") << before << "\n"
                                                                       << key << "\n"
                                                                       << value;
  }
}

TEST(Profile, ReadsAtMostTheSizeAndNeverOverwritesWhatItCannotRead) {
  test::MemoryFiles files;
  EXPECT_EQ(GetPrivateProfileString(files, "S", "K", "default", 128, "/f"), "default");
  EXPECT_TRUE(WritePrivateProfileString(files, "S", "K", "\xC3\xA9" + std::string(200, 'x'), "/f"));
  EXPECT_EQ(GetPrivateProfileString(files, "S", "K", "", 128, "/f"), "\xC3\xA9" + std::string(126, 'x'));
  EXPECT_TRUE(files.IsOwnerOnly("/f"));
  files.Unreadable.insert("/F");
  const auto before = files.Text("/f");
  EXPECT_FALSE(WritePrivateProfileString(files, "S", "K", "new", "/f"));
  EXPECT_EQ(files.Text("/f"), before);
}

}  // namespace
}  // namespace brelwin
