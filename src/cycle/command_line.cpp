#include "cycle/command_line.h"

#include "base/text.h"
#include "radio/numbers.h"

namespace brelwin {

float ReadStartupDelay(std::string_view commandLine) {
  constexpr std::string_view Keyword = "DELAY=";
  const auto text = UpperCase(Trim(commandLine));
  std::string_view seconds = text;
  if (seconds.starts_with(Keyword)) seconds.remove_prefix(Keyword.size());
  return ToSingle(ToDouble(Trim(seconds)));
}

}  // namespace brelwin
