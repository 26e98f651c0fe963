// Typed access to INI files and the scrambling of secrets.
#include <gtest/gtest.h>

#include <random>

#include "base/encoding.h"
#include "core/ini_utilities.h"
#include "core/scrambling.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::TestHost;

TEST(Scrambling, ShiftsEveryCharacterByItsPlaceUpToTheCap) {
  EXPECT_EQ(ShiftEncode("AAA", 2), "CEG");
  EXPECT_EQ(ShiftDecode("CEG", 2), "AAA");
  EXPECT_EQ(ShiftEncode("", 5), "");
  const auto encoded = ShiftEncode(std::string(22, '!'), 5);
  EXPECT_EQ(encoded.substr(0, 2), "&+");
  std::string_view rest = encoded;
  for (int i = 1; i < 20; ++i) TakeCodePoint(rest);
  EXPECT_EQ(TakeCodePoint(rest), U'!' + 100U);
  EXPECT_EQ(rest, "ZZ");  // 57 further
}

TEST(Scrambling, KnowsTheCodesOfWindows1252InEveryForm) {
  const std::string plain = "\xE2\x82\xAC\xC3\xA9";  // codes 128 and 233
  EXPECT_EQ(ShiftEncode(plain, 2), "\xC2\x82\xC3\xAD");
  EXPECT_EQ(ShiftDecode("\xC2\x82\xC3\xAD", 2), plain);
  EXPECT_EQ(ShiftDecode("\x82\xED", 2), plain);              // the bytes themselves
  EXPECT_EQ(ShiftDecode("\xE2\x80\x9A\xC3\xAD", 2), plain);  // the characters of the bytes
}

struct IniFile {
  explicit IniFile(std::string text = {}) {
    ini.INIPath = "/f.ini";
    if (!text.empty()) host.Disk.Put("/f.ini", std::move(text));
  }
  std::string Text() const { return host.Disk.Text("/f.ini"); }

  TestHost host;
  clsINIUtilities ini{host.World};
};

TEST(IniUtilities, ReadsTypesLenientlyAndWritesThem) {
  IniFile file("[S]\nyes= yes \nn=12.5 minutes\nquoted=\" a \"\n");
  auto& ini = file.ini;
  EXPECT_TRUE(ini.ReadTrueFalseKey("S", "yes"));
  EXPECT_EQ(ini.ReadNumericKey("S", "n"), 12.5);
  EXPECT_EQ(ini.ReadStringKey("S", "quoted"), "a");
  ini.WriteTrueFalseKey("S", "a", 1);
  ini.WriteIntegerKey("S", "b", " 12.6 ");
  ini.WriteIntegerKey("S", "c", "2147483648");
  ini.WriteStringKey("S", "d", "  x ");
  EXPECT_TRUE(file.Text().ends_with("a=True\nb=13\nd=x\n")) << file.Text();
}

TEST(IniUtilities, EncryptedKeysGiveTheSecretBackWhateverItIs) {
  IniFile file;
  auto& ini = file.ini;
  std::mt19937 generator(1);
  for (std::size_t length = 1; length <= 99; ++length) {
    std::string secret(length, ' ');
    for (auto& c : secret) c = static_cast<char>(' ' + generator() % 95);
    ini.WriteEncryptedKey("S", "k", secret);
    ASSERT_EQ(ini.ReadEncryptedKey("S", "k"), secret);
  }
  ini.WriteEncryptedKey("S", "k", "\xE2\x82\xACuro");
  EXPECT_EQ(ini.ReadEncryptedKey("S", "k"), "\xE2\x82\xACuro");
  EXPECT_EQ(CharacterCount(ini.ReadStringKey("S", "k")), 1 + 4 + 5U);
  const auto before = file.Text();
  ini.WriteEncryptedKey("S", "k", std::string(100, 'x'));
  EXPECT_EQ(file.Text(), before);
}

}  // namespace
}  // namespace brelwin
