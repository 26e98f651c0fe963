// What must hold of INI files and settings whatever is in them; for seeded tests and for fuzzers.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/encoding.h"
#include "base/text.h"
#include "platform/profile.h"
#include "settings/settings.h"
#include "settings/settings_table.h"
#include "test_host.h"

namespace brelwin::test {

// What a written value is to read as.
inline std::string ReadForm(std::string_view value) {
  const auto line = Replace(Replace(value.substr(0, value.find('\0')), "\r", " "), "\n", " ");
  return std::string(Trim(line));
}

// Whether `after` is `before` with at most a part of one line replaced.
inline bool DiffersInOneLine(std::string_view before, std::string_view after) {
  const auto [left, unused] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  before.remove_prefix(static_cast<std::size_t>(left - before.begin()));
  after.remove_prefix(static_cast<std::size_t>(unused - after.begin()));
  const auto right = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend()).first;
  before.remove_suffix(static_cast<std::size_t>(right - before.rbegin()));
  return !Contains(before, "\n");
}

// Writing a value into any text makes it read back, and touches nothing else. Says what broke, or nothing.
inline std::string BreachOfProfileWrite(const std::string& before, std::string_view section,
                                        std::string_view key, std::string_view value) {
  auto after = before;
  if (!WriteProfileValue(after, section, key, value)) return after == before ? "" : "refused, yet changed";
  if (!DiffersInOneLine(before, after)) return "touched other lines";
  const bool isText = IsUtf8(section) && IsUtf8(key) && IsUtf8(value);
  const auto read = ReadProfileValue(after, section, key);
  if (!read) return "not found again";
  if (isText && *read != ReadForm(value)) return "reads differently";
  auto again = after;
  WriteProfileValue(again, section, key, value);
  return again == after || !isText ? "" : "not stable";
}

struct SettingsRun {
  explicit SettingsRun(TestHost& host) : File(host.World, Controls, Config) {
    File.LoadSettings("/brelwin/Brelwin.INI", {});
  }

  // What the screen shows of every setting that is both loaded and saved.
  std::string Shown() {
    std::string text;
    for (auto* group : Controls.Groups()) {
      for (const auto& control : *group) {
        if (const auto* box = std::get_if<TextBox*>(&control)) text += (*box)->Text.Get();
        if (const auto* box = std::get_if<CheckBox*>(&control)) text += (*box)->Value ? '1' : '0';
        if (const auto* options = std::get_if<OptionGroup*>(&control))
          text += std::to_string((*options)->Value.Get());
        text += '\n';
      }
    }
    return text;
  }

  Screen Controls;
  Configuration Config;
  Settings File;
};

// Whether the lines that are no settings of ours still stand there, in their order.
inline bool KeepsForeignLines(std::string_view before, std::string_view after) {
  const auto isOurs = [](std::string_view line) {
    return std::any_of(SettingsTable().begin(), SettingsTable().end(), [&](const SettingRow& row) {
      return line.find('=') != std::string_view::npos &&
             EqualsIgnoringCase(row.Key, line.substr(line.find_first_not_of(" \t"), row.Key.size()));
    });
  };
  constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
  if (before.starts_with(ByteOrderMark) != after.starts_with(ByteOrderMark)) return false;
  if (before.starts_with(ByteOrderMark)) {
    before.remove_prefix(ByteOrderMark.size());
    after.remove_prefix(ByteOrderMark.size());
  }
  const auto linesAfter = SplitLines(after);
  auto next = linesAfter.begin();
  for (const auto line : SplitLines(before)) {
    if (line.empty() || isOurs(line)) continue;
    next = std::find(next, linesAfter.end(), line);
    if (next == linesAfter.end()) return false;
    ++next;
  }
  return true;
}

// Loading any file and saving it keeps what was not ours, and the next run shows the same; what a person
// typed meanwhile comes back too. Says what broke, or nothing.
inline std::string BreachOfSettingsSave(const std::string& file, std::string_view typed) {
  constexpr auto Path = "/brelwin/Brelwin.INI";
  TestHost host;
  host.Disk.Put(Path, file);
  SettingsRun first(host);
  first.Controls.Filters.txtFilterStation.Text = std::string(Trim(FirstCharacters(ReadForm(typed), 127)));
  const bool isSaved = first.File.SaveSettings();
  const auto saved = host.Disk.Text(Path);
  if (!isSaved) return saved == file ? "" : "not saved, yet changed";
  if (!KeepsForeignLines(file, saved)) return "lost a line";
  if (SettingsRun(host).Shown() != first.Shown()) return "shows differently";
  first.File.SaveSettings();
  return host.Disk.Text(Path) == saved ? "" : "not stable";
}

}  // namespace brelwin::test
