// Feeds as the Sotawatch service writes them.
#pragma once

#include <string>
#include <vector>

namespace brelwin::test {

// A pubDate of 24 November 2026, the day of the test clock.
inline std::string PubDate(const std::string& clockTime) {
  return "Tue, 24 Nov 2026 " + clockTime + " GMT";
}

inline std::string FeedItemText(const std::string& title, const std::string& pubDate,
                                const std::string& description = "CQ Posted by G4XYZ") {
  return "<item>\r\n<title>" + title + "</title>\r\n<description>" + description +
         "</description>\r\n<pubDate>" + pubDate + "</pubDate>\r\n</item>\r\n";
}

inline std::string FeedText(const std::vector<std::string>& items) {
  std::string text =
      "<?xml version=\"1.0\"?>\r\n<rss version=\"2.0\">\r\n<channel>\r\n<title>Sotawatch</title>\r\n"
      "<description>Spots Posted by many</description>\r\n<lastBuildDate>" +
      PubDate("12:00:00") + "</lastBuildDate>\r\n";
  for (const auto& item : items) text += item;
  return text + "</channel>\r\n</rss>\r\n";
}

}  // namespace brelwin::test
