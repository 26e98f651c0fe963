// The addresses that are used where the settings file names no other: one host for each service.
#pragma once

#include <string_view>

namespace brelwin {

inline constexpr std::string_view TwitterSearchAddress =
    "https://search.twitter.com/search.json?q=from:SOTAwatch&include_entities=true&result_type=recent"
    "&since_id=ZZZZ";
inline constexpr std::string_view OperatorLookupAddress = "https://www.qrz.com/db/ZZZZ";
inline constexpr std::string_view SummitPageAddress = "https://www.sotawatch.org/summits.php?summit=ZZZZ";
inline constexpr std::string_view AlertsPageAddress = "https://www.sotawatch.org/alerts.php";
inline constexpr std::string_view RSSFeedAddress = "https://old.sota.org.uk/RssFeed";
inline constexpr std::string_view SpotliteFormAddress = "https://old.sota.org.uk/Spotlite/postSpot";
inline constexpr std::string_view RBNServer = "telnet.reversebeacon.net";

}  // namespace brelwin
