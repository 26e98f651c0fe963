// The pages of the practice network: the spot feed, the search answers, and what a browser sees.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "feed.h"

namespace practice {

// "G4ABC/P on G/LD-001 @ 7.032 CW"
std::string TitleOf(const ScriptedSpot& spot);

// RSS 2.0. `baseAddress` is where this network is reached, without a closing slash.
std::string RssPage(const std::vector<PublishedSpot>& newestFirst, std::int64_t now,
                    std::string_view baseAddress);

// The search answer with what is newer than `sinceId`. As in the service's own answers, the texts hold
// entities for markup characters.
std::string SearchPage(const std::vector<PublishedSpot>& newestFirst, std::int64_t sinceId);

// The list of all summits, as a file for users to download and import: a title, a header, a line a summit.
std::string SummitsListFile();

// A page about a summit or an operator. Both answer for anything asked.
std::string SummitPage(std::string_view reference);
std::string OperatorPage(std::string_view callsign);

}  // namespace practice
