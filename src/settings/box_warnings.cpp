#include "settings/box_warnings.h"

#include <string>

#include "base/encoding.h"
#include "base/text.h"
#include "platform/profile.h"

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
    for (const auto& any : *group) {
      const auto* box = std::get_if<TextBox*>(&any);
      if (box == nullptr) continue;
      Warn(**box);
      watches_.push_back((*box)->Text.WhenChanged([control = *box] { Warn(*control); }));
    }
  }
}

}  // namespace brelwin
