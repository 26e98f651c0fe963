// The JSON of the service's rows, as the service wrote them of old and as it writes them since, and rows that
// no reader wants.
#pragma once

#include <string>

#include "random.h"
#include "service_rows.h"

namespace practice {

std::string JsonOf(const SpotRow& row);
std::string JsonOf(const AlertRow& row);

// A row that is broken, or stranger than it looks; `good`, the JSON of a good one, may come a second time.
// None is about a station that is ever heard, but for that.
std::string OddRow(Random& random, const std::string& good);

// Rows that say that the service is no more.
std::string DeprecatedSpot();
std::string DeprecatedAlert();

}  // namespace practice
