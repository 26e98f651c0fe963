// What the server's page says about the spot that was posted.
#pragma once

#include <cstdint>
#include <string_view>

#include "gateway/spotlite_form.h"

namespace brelwin {

// Accepted when the page does not speak of failure and shows the callsign, frequency, mode and comment of the
// form; unrecognised when one of them is missing; else the status of the failure that it names. Letter case
// matters.
std::int32_t ClassifySpotliteAnswer(std::string_view page, const SpotliteForm& form);

}  // namespace brelwin
