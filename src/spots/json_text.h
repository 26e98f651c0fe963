// Text of JSON, made fit for a parser that is stricter than those who write it.
#pragma once

#include <string>
#include <string_view>

namespace brelwin {

// The text with every half of a surrogate pair, which cutting a text leaves behind, as the escape of U+FFFD.
// Everything else stays as it is.
std::string MendSurrogates(std::string_view json);

}  // namespace brelwin
