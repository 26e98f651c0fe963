// Any settings file that is loaded and saved keeps what is not ours, and shows the same in the next run.
#include <cstdint>
#include <cstdlib>

#include "file_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view data(reinterpret_cast<const char*>(bytes), size);
  const auto typed = data.substr(0, data.find('\xFE'));
  const std::string file(data.substr(std::min(typed.size() + 1, data.size())));
  const auto text = brelwin::IsUtf8(typed) ? typed : std::string_view("typed");
  if (!brelwin::test::BreachOfSettingsSave(file, text).empty()) std::abort();
  return 0;
}
