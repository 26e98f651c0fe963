// What procedures that read and send return. Rooms that tell more kinds of failures apart add their own.
#pragma once

#include <cstdint>

namespace brelwin {

inline constexpr std::int32_t StatusDone = -1;
inline constexpr std::int32_t StatusNothingDone = 0;  // what came cannot be used, or another one was at work
inline constexpr std::int32_t StatusNoConnection = -100;  // nobody answered: the next check tries again
inline constexpr std::int32_t StatusTimedOut = -200;      // it was begun: how it ended is not known

}  // namespace brelwin
