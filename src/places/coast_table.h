// The coast of the world as text; coast.h reads it.
#pragma once

#include <string_view>

namespace brelwin {

// Every ring is its corners, ended by "!". A corner is two numbers, longitude and latitude in hundredths of a
// degree, each as the step from the corner before (the first from 0, 0); a step in longitude takes the
// shorter way over the date line. A number is doubled, less one when it was negative, and written in digits
// of five bits from "0" on, the lowest first, with 32 added to each digit that another one follows.
std::string_view CoastTable();

}  // namespace brelwin
