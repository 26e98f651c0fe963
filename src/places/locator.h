// The text by which an operator says where a place is: a Maidenhead locator, or latitude and longitude.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "places/geo_point.h"

namespace brelwin {

// The place a text names: the middle of a locator's square ("IN80", "IN80dk", "IN80DK25"), or latitude and
// longitude in degrees, parted by a comma ("40.4, -3.7" or "40.4N, 3.7W"). Letter case and blanks around do
// not matter. Empty for anything else.
std::optional<GeoPoint> ReadPlace(std::string_view text);

// The locator of six characters of the square that the place is in: "IN80dk".
std::string LocatorText(GeoPoint place);

}  // namespace brelwin
