#include "platform/http.h"

#include <algorithm>

#include "base/text.h"

namespace brelwin {

std::optional<std::string> HeaderValue(const std::vector<HttpHeader>& headers, std::string_view name) {
  const auto hasName = [name](const HttpHeader& header) { return EqualsIgnoringCase(header.Name, name); };
  const auto found = std::ranges::find_if(headers, hasName);
  return found == headers.end() ? std::nullopt : std::optional(found->Value);
}

}  // namespace brelwin
