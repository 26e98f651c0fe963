// Spots as lines of text: the fixed-width line of the list, with its header, and the delimited line of logs.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "spots/spot.h"

namespace brelwin {

// The captions over their columns and a line of "=" below, each ended by CR LF.
std::string SpotListHeader();

// Characters in all columns of the list; a line in which slashes were unescaped is shorter.
inline constexpr std::size_t SpotLineWidth = 170;

// The spot in the columns of the header, without a line end. Columns count characters.
std::string FixedWidthLine(const Spot& spot);
void AppendFixedWidthLine(std::string& text, const Spot& spot);

// The spot's values joined by the separator, whole and unquoted, without a line end.
std::string DelimitedLine(const Spot& spot, std::string_view separator);

}  // namespace brelwin
