#include "settings/settings.h"

#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "core/event_log.h"
#include "core/trap.h"
#include "platform/profile.h"
#include "settings/setting_value.h"
#include "settings/settings_notices.h"

namespace brelwin {
namespace {

// What was last known of one setting: what the file said, and what the screen showed then.
struct Remembered {
  std::optional<std::string> Stored;
  std::string Shown;
};

struct Notice {
  std::size_t Row = 0;  // of the table
  std::string Text;
};

struct SettingsFile {
  enum class State : std::uint8_t { Missing, Unreadable, Read };
  State Is = State::Missing;
  std::string Text;
};

// A file of 16-bit characters is no INI file that the program could write back.
bool HasWideCharacters(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

SettingsFile ReadSettingsFile(const Files& disk, const std::string& path) {
  auto bytes = disk.Read(path);
  if (!bytes && !disk.Exists(path)) return {};
  if (!bytes || HasWideCharacters(*bytes)) return {SettingsFile::State::Unreadable, {}};
  return {SettingsFile::State::Read, std::move(*bytes)};
}

}  // namespace

struct Settings::State {
  Host& World;
  SettingHolders Holders;
  std::string Path;
  std::string PasswordFromEnvironment;
  bool CouldNotBeRead = false;
  std::vector<Remembered> Known;  // one for each row of the table
  std::vector<Notice> Notices;

  void Load(std::string_view path, std::string_view password);
  bool Save();
  bool StillHolds(const Notice& notice) const;

 private:
  void NoteNotices();
  void LoadFrom(const SettingsFile& file);
  void SaveRow(const SettingRow& row, std::string& text, Remembered& known) const;
  std::string_view ReasonToLeave(const SettingRow& row, const std::optional<std::string>& stored,
                                 const std::string& shown, const Remembered& known) const;
  bool NotWritten(const std::string& why) const;
};

void Settings::State::Load(std::string_view path, std::string_view password) {
  Path = path;
  PasswordFromEnvironment = password;
  const auto file = ReadSettingsFile(World.Disk, Path);
  CouldNotBeRead = file.Is == SettingsFile::State::Unreadable;
  if (CouldNotBeRead) {
    LogEvent(World,
             "LoadSettings - " + Path +
                 " could not be read. The settings are the built-in ones and are not saved in this run.");
  }
  LoadFrom(file);
  if (file.Is == SettingsFile::State::Read) NoteNotices();
  if (!password.empty()) Holders.Controls.Gateway.txtSotawatchPassword.Text = PasswordFromEnvironment;
  for (std::size_t i = 0; i < Known.size(); ++i) Known[i].Shown = SettingText(SettingsTable()[i], Holders);
}

void Settings::State::LoadFrom(const SettingsFile& file) {
  Known.clear();
  for (const auto& row : SettingsTable()) {
    const bool isRead = file.Is == SettingsFile::State::Read;
    const auto stored = isRead ? ReadProfileValue(file.Text, row.Section, row.Key) : std::nullopt;
    const bool isLoaded = isRead && row.Use != SettingUse::SavedOnly;
    PutSetting(row, Holders, isLoaded ? stored.value_or("") : row.DesignValue);
    Known.push_back({stored, {}});
  }
}

void Settings::State::NoteNotices() {
  for (std::size_t i = 0; i < Known.size(); ++i) {
    auto text = NoticeOn(SettingsTable()[i], Known[i].Stored, Holders.Controls);
    if (text.empty()) continue;
    LogEvent(World, "LoadSettings - " + text);
    Notices.push_back({i, std::move(text)});
  }
}

bool Settings::State::StillHolds(const Notice& notice) const {
  const auto& row = SettingsTable()[notice.Row];
  const auto& known = Known[notice.Row];
  return SettingText(row, Holders) == known.Shown && !NoticeOn(row, known.Stored, Holders.Controls).empty();
}

bool Settings::State::Save() {
  if (Path.empty()) return false;
  if (CouldNotBeRead) return false;  // the load has said so
  auto file = ReadSettingsFile(World.Disk, Path);
  if (file.Is == SettingsFile::State::Unreadable) return NotWritten("it cannot be read");
  auto saved = Known;
  for (std::size_t i = 0; i < saved.size(); ++i) {
    if (file.Is == SettingsFile::State::Missing) saved[i].Stored.reset();
    SaveRow(SettingsTable()[i], file.Text, saved[i]);
  }
  const auto written = World.Disk.Write(Path, file.Text, FileAccess::OwnerOnly);
  if (!written.Done()) return NotWritten(written.ErrorText);
  Known = std::move(saved);
  return true;
}

void Settings::State::SaveRow(const SettingRow& row, std::string& text, Remembered& known) const {
  if (row.Use == SettingUse::LoadedOnly) return;
  const auto shown = SettingText(row, Holders);
  if (row.Use == SettingUse::Scrambled && !shown.empty() && shown == PasswordFromEnvironment) return;
  const auto stored = ReadProfileValue(text, row.Section, row.Key);
  const auto toStore = StoredForm(row, shown);
  if (stored && toStore && Trim(*stored) == *toStore) {
    known = {stored, shown};
    return;
  }
  const auto reason = toStore ? ReasonToLeave(row, stored, shown, known) : "the password has no stored form";
  if (!reason.empty()) {
    LogEvent(World, "SaveSettings - [" + std::string(row.Section) + "] " + std::string(row.Key) +
                        " is left as it is in the file: " + std::string(reason) + ".");
    return;
  }
  WriteProfileValue(text, row.Section, row.Key, *toStore);
  known = {ReadProfileValue(text, row.Section, row.Key), shown};
}

std::string_view Settings::State::ReasonToLeave(const SettingRow& row,
                                                const std::optional<std::string>& stored,
                                                const std::string& shown, const Remembered& known) const {
  if (shown != known.Shown || IsFact(row)) return {};
  if (stored != known.Stored) return "it was changed there after it was loaded";
  return stored ? ReasonNotShown(row, Holders, *stored) : std::string_view();
}

bool Settings::State::NotWritten(const std::string& why) const {
  LogEvent(World, "SaveSettings - " + Path + " was not written: " + why + ".");
  return false;
}

Settings::Settings(Host& host, Screen& screen, Configuration& configuration)
    : state_(new State{host, {host, screen, configuration}, {}, {}, false, {}, {}}) {}

Settings::~Settings() = default;

void Settings::LoadSettings(std::string_view path, std::string_view passwordFromEnvironment) {
  LogErrors(state_->World, "LoadSettings", false, [&] {
    state_->Load(path, passwordFromEnvironment);
    return true;
  });
}

bool Settings::PrepareFile() {
  if (state_->CouldNotBeRead) return false;
  return state_->World.Disk.Exists(state_->Path) || SaveSettings();
}

bool Settings::SaveSettings() {
  return LogErrors(state_->World, "SaveSettings", false, [&] { return state_->Save(); });
}

std::vector<std::string> Settings::Notices() {
  auto& notices = state_->Notices;
  std::erase_if(notices, [this](const Notice& notice) { return !state_->StillHolds(notice); });
  std::vector<std::string> texts;
  texts.reserve(notices.size());
  for (const auto& notice : notices) texts.push_back(notice.Text);
  return texts;
}

}  // namespace brelwin
