// Feeds as the Sotawatch service writes them.
#pragma once

#include <string>
#include <vector>

namespace brelwin::test {

struct FeedItem {
  std::string Title;               // "G4ABC/P on G/LD-001 @ 7.032 CW"
  std::string Date;                // "24 Nov 2026 11:58:00"
  std::string Description = "CQ";  // the comment
  std::string PostedBy = "G4XYZ";
};

inline std::string FeedText(const std::vector<FeedItem>& items) {
  std::string text =
      "<?xml version=\"1.0\"?>\n<rss version=\"2.0\">\n<channel>\n<title>SOTAwatch</title>\n"
      "<lastBuildDate>Tue, 24 Nov 2026 12:00:00 GMT</lastBuildDate>\n";
  for (const auto& item : items) {
    text += "<item>\n<title>" + item.Title + "</title>\n<description>" + item.Description + " Posted by " +
            item.PostedBy + "</description>\n<pubDate>Tue, " + item.Date + " GMT</pubDate>\n</item>\n";
  }
  return text + "</channel>\n</rss>\n";
}

}  // namespace brelwin::test
