// Spots as lines of text: the fixed-width line of the list, with its header, and the delimited line of logs.
#pragma once

#include <string>
#include <string_view>

#include "spots/spot.h"

namespace brelwin {

// The captions over their columns and a line of "=" below, each ended by CR LF.
std::string SpotListHeader();

// The spot in the columns of the header, without a line end. Columns count characters.
std::string FixedWidthLine(const Spot& spot);
void AppendFixedWidthLine(std::string& text, const Spot& spot);

// The spot's values joined by the separator, whole and unquoted, without a line end.
std::string DelimitedLine(const Spot& spot, std::string_view separator);

// The fixed-width lines of all spots, each ended by CR LF.
std::string SpotListText(const SpotCollection& spots);

}  // namespace brelwin
