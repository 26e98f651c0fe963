#include "settings/settings_notices.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "platform/profile.h"
#include "settings/setting_value.h"

namespace brelwin {

namespace {

std::string LengthWarning(std::string_view text) {
  const auto length = CharacterCount(Trim(text));
  if (length <= LongestProfileValue) return {};
  return std::to_string(length) + " characters: the settings keep only the first 127 for the next start.";
}

void Warn(TextBox& box) {
  box.Warning = LengthWarning(box.Text.Get());
}

}  // namespace

BoxWarnings::BoxWarnings(Screen& screen) {
  for (auto* group : screen.Groups()) {
    if (group == &screen.Places.Controls) continue;  // its texts may be long
    for (const auto& any : *group) {
      const auto* box = std::get_if<TextBox*>(&any);
      if (box == nullptr) continue;
      Warn(**box);
      watches_.push_back((*box)->Text.WhenChanged([control = *box] { Warn(*control); }));
    }
  }
}

namespace {

bool Always(const Screen& /*screen*/) {
  return true;
}

// Who has written a login callsign means to listen.
bool HasLogin(const Screen& screen) {
  return !Trim(screen.RBN.txtRBNCallsign.Text.Get()).empty();
}

// A key without which something else is read than in a file that the program wrote.
struct DecidingKey {
  std::string_view Key;
  std::string_view Consequence;
  bool (*Matters)(const Screen&);
};

constexpr std::array<DecidingKey, 2> DecidingKeys = {{
    {"SotawatchSpotsViaRSS",
     "spots are read from the Twitter feed. For the RSS feed tick \"Spots via RSS feed\" on the Spots tab, "
     "or "
     "write SotawatchSpotsViaRSS=1 below [General].",
     Always},
    {"RBNSpotsEnabled",
     "neither the Reverse Beacon Network nor the alerts are read. To read them tick \"Spots from the Reverse "
     "Beacon Network\" on its tab, or write RBNSpotsEnabled=1 below [ReverseBeaconNetwork].",
     HasLogin},
}};

std::string OnMissingKey(std::string_view key, const Screen& screen) {
  const auto* found = std::ranges::find(DecidingKeys, key, &DecidingKey::Key);
  if (found == DecidingKeys.end() || !found->Matters(screen)) return {};
  return "The settings file has no key " + std::string(key) + ": " + std::string(found->Consequence);
}

}  // namespace

std::string NoticeOn(const SettingRow& row, const std::optional<std::string>& stored, const Screen& screen) {
  if (row.Use == SettingUse::SavedOnly) return {};
  if (!stored) return OnMissingKey(row.Key, screen);
  if (CharacterCount(*stored) <= LongestValue(row)) return {};
  return "[" + std::string(row.Section) + "] " + std::string(row.Key) +
         " is longer than 127 characters: only the first 127 are used.";
}

}  // namespace brelwin
