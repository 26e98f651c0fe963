#include "platform/profile.h"

#include "base/encoding.h"
#include "platform/profile_text.h"

namespace brelwin {

std::string GetPrivateProfileString(const Files& files, std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size, std::string_view path) {
  if (size == 0) return {};
  const auto text = files.Read(path);
  const auto value = text ? ReadProfileValue(*text, section, key) : std::nullopt;
  return std::string(FirstCharacters(value ? *value : defaultValue, size - 1));
}

bool WritePrivateProfileString(Files& files, std::string_view section, std::string_view key,
                               std::string_view value, std::string_view path) {
  auto text = files.Read(path);
  if (!text && files.Exists(path)) return false;
  auto changed = text.value_or("");
  if (!WriteProfileValue(changed, section, key, value)) return false;
  if (text == changed) return true;
  return files.Write(path, changed, FileAccess::OwnerOnly).Done();
}

}  // namespace brelwin
