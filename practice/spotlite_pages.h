// The pages of the Spotlite form.
#pragma once

#include <string>
#include <string_view>

#include "spotlite.h"

namespace practice {

// The first value of that name; empty when there is none.
std::string ValueOf(const FormFields& fields, std::string_view name);

// Shows what was posted; without fields nothing of it.
std::string AcceptedPage(const FormFields& fields);

// `reason` is a sentence, or empty.
std::string FailedPage(std::string_view reason);

std::string ServerErrorPage();

}  // namespace practice
