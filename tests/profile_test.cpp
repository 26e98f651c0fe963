// INI files, with the behaviour that the private-profile functions are documented to have.
#include <gtest/gtest.h>

#include "file_properties.h"
#include "platform/profile.h"
#include "random_text.h"

namespace brelwin {
namespace {

TEST(ProfileText, ReadsAsDocumented) {
  const std::string text =
      "\xEF\xBB\xBF"
      "before=no section\r\n; [General]\r\n [ general ] and more\n;Commented=1\nKey =  one ; two \n"
      "KEY=second\nQuoted=' \"x\" '\nSingle=\"\nUnequal=\"x'\nno equals sign\n\tTabbed\t=\tx y\t\n"
      "Equals=a=b=\nEmpty=\nAnsi=caf\xE9 \x80\n[broken\nAfterBroken=1\n[Other]\nKey=other\n"
      "[General]\nLate=never seen\n[Last]\r\nOpen=end";
  for (const auto& [key, expected] : std::initializer_list<std::pair<std::string_view, std::string_view>>{
           {"key", "one ; two"},
           {"Quoted", " \"x\" "},
           {"Single", "\""},
           {"Unequal", "\"x'"},
           {" tabbed ", "x y"},
           {"Equals", "a=b="},
           {"Empty", ""},
           {"Ansi", "caf\xC3\xA9 \xE2\x82\xAC"},
           {"AfterBroken", "1"}})
    EXPECT_EQ(ReadProfileValue(text, "GENERAL", key), expected) << key;
  for (const auto* missing : {"Commented", ";Commented", "no equals sign", "before", "Late"})
    EXPECT_FALSE(ReadProfileValue(text, "General", missing)) << missing;
  EXPECT_EQ(ReadProfileValue(text, "Other", "Key"), "other");
  EXPECT_EQ(ReadProfileValue(text, "Last", "Open"), "end");
}

TEST(ProfileText, WritesInPlaceAndKeepsEverythingElse) {
  using Case = std::tuple<std::string_view, std::string_view, std::string_view>;
  for (const auto& [before, value, after] :
       {Case{"\xEF\xBB\xBF", "v", "\xEF\xBB\xBF[S]\r\nK=v\r\n"},
        Case{"[s]\nk = old\n;c\nk=2\n", "v", "[s]\nK=v\n;c\nk=2\n"}, Case{"[s]\r\nk=old", "v", "[s]\r\nK=v"},
        Case{"[s]\n k = 'v' \n", "v", "[s]\n k = 'v' \n"},
        Case{"[s]\na=1\n;c\n\n  \n[t]\nk=1\n", "v", "[s]\na=1\n;c\nK=v\n\n  \n[t]\nk=1\n"},
        Case{"[t]\nlast", "", "[t]\nlast\n[S]\nK=\n"}, Case{"[S]", "v", "[S]\r\nK=v\r\n"},
        Case{"[S]\r\na=1\r", "v", "[S]\r\na=1\r\nK=v\r\n"},
        Case{"caf\xE9\n[s]\nk=\xE9\n\xE9=1", "\xC3\xA9", "caf\xE9\n[s]\nk=\xE9\n\xE9=1"},
        Case{"", "\"v\"", "[S]\r\nK=\"\"v\"\"\r\n"}, Case{"", "a\r\nb\n", "[S]\r\nK=a  b \r\n"},
        Case{"", "\tv", "[S]\r\nK=\"\tv\"\r\n"}}) {
    std::string text(before);
    EXPECT_TRUE(WriteProfileValue(text, "S", "K", value)) << before;
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
  test::RandomText texts(1, {"[", "]", "=", ";", "'", "\"", " ", "\t", "\r", "\n", "\r\n", "[S]\n", "s", "K",
                             "k=", "1", "\xC3\xA9", "\xE9"});
  for (int round = 0; round < 20000; ++round) {
    const auto before = texts.Next(20);
    const auto key = texts.Below(2) == 0 ? "k" : texts.Next(3);
    const auto value = texts.Next(6);
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
