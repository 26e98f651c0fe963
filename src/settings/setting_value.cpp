#include "settings/setting_value.h"

#include <type_traits>

#include "base/encoding.h"
#include "base/text.h"
#include "core/ini_utilities.h"
#include "core/scrambling.h"
#include "platform/profile.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr int PasswordShift = 2;

// The option button that the text stands for; empty when there is none.
std::optional<int> OptionOf(const OptionGroup& group, std::string_view text) {
  const auto number = text.empty() ? 0 : NumberOfWholeText(text).value_or(-1);
  if (!(number >= 0 && number < group.Count) || number != WholeNumber(text)) return {};
  return WholeNumber(text);
}

void Put(TextBox& box, std::string_view text) {
  box.Text = std::string(text);
}
void Put(CheckBox& box, std::string_view text) {
  box.Value = IsTrueWord(text);
}
void Put(OptionGroup& group, std::string_view text) {
  group.Value = OptionOf(group, text).value_or(0);
}
void Put(KeptText& kept, std::string_view text) {
  kept.Text = std::string(text);
}
void Put(std::string& field, std::string_view text) {
  field = text;
}
void Put(std::int32_t& field, std::string_view text) {
  field = WholeNumber(text);
}
void Put(bool& field, std::string_view text) {
  field = IsTrueWord(text);
}

std::string Text(const TextBox& box) {
  return box.Text;
}
std::string Text(const CheckBox& box) {
  return box.Value ? "1" : "0";
}
std::string Text(const OptionGroup& group) {
  return std::to_string(group.Value.Get());
}
std::string Text(const KeptText& kept) {
  return kept.Text;
}
std::string Text(const std::string& text) {
  return text;
}
std::string Text(std::int32_t number) {
  return std::to_string(number);
}
std::string Text(bool flag) {
  return flag ? "1" : "0";
}

template <class Access>
decltype(auto) Target(Access access, SettingHolders holders) {
  if constexpr (std::is_invocable_v<Access, Screen&>) {
    return access(holders.Controls);
  } else if constexpr (std::is_invocable_v<Access, Configuration&>) {
    return access(holders.Config);
  } else {
    return access(holders.World);
  }
}

bool TakesFallback(FallbackWhen when, std::string_view text) {
  switch (when) {
    case FallbackWhen::Never: return false;
    case FallbackWhen::Empty: return text.empty();
    case FallbackWhen::Zero: return WholeNumber(text) == 0;
    case FallbackWhen::BelowOne: return WholeNumber(text) < 1;
    case FallbackWhen::NotANumber: return !NumberOfWholeText(text);
  }
  return false;
}

// Whether the file gives the text back as it was written.
bool SurvivesTheFile(std::string_view text) {
  std::string file;
  WriteProfileValue(file, "section", "key", text);
  const auto read = ReadProfileValue(file, "section", "key");
  return read == text && text == Trim(text) && CharacterCount(text) <= LongestProfileValue;
}

constexpr std::size_t LongestKeptText = 4000;

// Several paths stand there one behind the other.
constexpr std::string_view SectionOfPaths = "Places";

bool HasNoOption(const SettingRow& row, SettingHolders holders, std::string_view stored) {
  const auto* access = std::get_if<OptionGroup& (*)(Screen&)>(&row.Target);
  return access != nullptr && !OptionOf((*access)(holders.Controls), Trim(stored));
}

}  // namespace

std::size_t LongestValue(const SettingRow& row) {
  const bool isKept = std::holds_alternative<KeptText& (*)(Screen&)>(row.Target);
  return isKept || row.Section == SectionOfPaths ? LongestKeptText : LongestProfileValue;
}

void PutSetting(const SettingRow& row, SettingHolders holders, std::string_view stored) {
  auto text = std::string(Trim(FirstCharacters(stored, LongestValue(row))));
  if (row.Use == SettingUse::Scrambled) text = ShiftDecode(text, PasswordShift);
  if (TakesFallback(row.When, text)) text = row.Fallback;
  std::visit(
      [&](auto access) {
        if constexpr (!std::is_invocable_v<decltype(access), const Host&>) Put(Target(access, holders), text);
      },
      row.Target);
}

std::string SettingText(const SettingRow& row, SettingHolders holders) {
  return std::visit([&](auto access) { return Text(Target(access, holders)); }, row.Target);
}

std::optional<std::string> StoredForm(const SettingRow& row, std::string_view text) {
  if (row.Use != SettingUse::Scrambled) return std::string(Trim(text));
  const auto scrambled = ShiftEncode(text, PasswordShift);
  if (scrambled.empty() != text.empty() || !SurvivesTheFile(scrambled)) return {};
  return scrambled;
}

std::string_view ReasonNotShown(const SettingRow& row, SettingHolders holders, std::string_view stored) {
  if (CharacterCount(stored) > LongestValue(row)) return "it is longer than 127 characters";
  if (HasNoOption(row, holders, stored)) return "no option button stands for its value";
  const auto text = Trim(stored);
  if (row.Use == SettingUse::Scrambled && ShiftDecode(text, PasswordShift).empty() != text.empty())
    return "it could not be decoded";
  return {};
}

bool IsFact(const SettingRow& row) {
  return std::holds_alternative<std::string (*)(const Host&)>(row.Target);
}

}  // namespace brelwin
