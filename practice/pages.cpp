#include "pages.h"

#include <algorithm>

#include "escape.h"
#include "times.h"
#include "world.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

string Element(string_view name, string_view content) {
  return "<" + string(name) + ">" + string(content) + "</" + string(name) + ">";
}

string Item(const PublishedSpot& spot, const string& baseAddress) {
  const auto& what = spot.What;
  const auto description = what.Comment + " Posted by " + what.Spotter;
  return "    <item>\n      " + Element("title", MarkupText(TitleOf(what), Markup::NamedEntities)) +
         "\n      " + Element("link", baseAddress + "/summits.php?summit=" + what.Summit) + "\n      " +
         Element("description", MarkupText(description, what.Writing)) + "\n      " +
         (spot.IsDated ? Element("pubDate", RssTime(spot.Time)) : "") +
         "\n      <guid isPermaLink=\"false\">" + std::to_string(spot.Identity()) + "</guid>\n    </item>\n";
}

string SearchResult(const PublishedSpot& spot) {
  const auto& what = spot.What;
  const auto text = TitleOf(what) + " " + what.Comment + " (Posted by " + what.Spotter + ")";
  return "{\"created_at\":" + JsonString(SearchTime(spot.Time)) +
         ",\"from_user\":\"SOTAwatch\",\"id_str\":\"" + std::to_string(spot.Identity()) +
         "\",\"text\":" + JsonString(MarkupText(text, Markup::NamedEntities)) + "}";
}

string HtmlPage(string_view title, const string& body) {
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head><meta charset=\"utf-8\">" +
         Element("title", MarkupText(title, Markup::NamedEntities)) + "</head>\n<body>\n" +
         Element("h1", MarkupText(title, Markup::NamedEntities)) + "\n" + body + "\n</body>\n</html>\n";
}

}  // namespace

string TitleOf(const ScriptedSpot& spot) {
  return spot.Station + " on " + spot.Summit + " @ " + spot.Frequency + " " + spot.Mode;
}

string RssPage(const std::vector<PublishedSpot>& newestFirst, std::int64_t now, string_view baseAddress) {
  const string base(baseAddress);
  string page =
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss version=\"2.0\">\n  <channel>\n    "
      "<title>Sotawatch spots</title>\n    " +
      Element("link", base + "/") +
      "\n    <description>Who is on the air from which summit</description>\n    <language>en</language>\n   "
      " " +
      Element("lastBuildDate", RssTime(now)) + "\n";
  for (const auto& spot : newestFirst) page += Item(spot, base);
  return page + "  </channel>\n</rss>\n";
}

string SearchPage(const std::vector<PublishedSpot>& newestFirst, std::int64_t sinceId) {
  string results;
  for (const auto& spot : newestFirst) {
    if (spot.Identity() <= sinceId) break;
    results += (results.empty() ? "" : ",\n") + SearchResult(spot);
  }
  const auto newest = newestFirst.empty() ? sinceId : newestFirst.front().Identity();
  return "{\"max_id_str\":\"" + std::to_string(newest) + "\",\"results\":[" + results + "]}\n";
}

string SummitsListFile() {
  string text =
      "SOTA Summits List (Date=26/11/2026)\n"
      "SummitCode,AssociationName,RegionName,SummitName,AltM,AltFt,GridRef1,GridRef2,Longitude,Latitude,"
      "Points,"
      "BonusPoints,ValidFrom,ValidTo,ActivationCount,ActivationDate,ActivationCall\n";
  int activations = 0;
  for (const auto& summit : Summits()) {
    const auto place = std::to_string(summit.Longitude) + "," + std::to_string(summit.Latitude);
    text.append(summit.Reference).append(",Practice,Practice,\"").append(summit.Name).append("\",");
    text.append(std::to_string(summit.Meters)).append(",");
    text.append(std::to_string(summit.Meters * 3281 / 1000)).append(",");
    text.append(place).append(",").append(place).append(",").append(std::to_string(summit.Points));
    text.append(",0,01/01/2010,31/12/2099,").append(std::to_string(7 * activations++));
    text.append(",01/11/2026,G4ABC/P\n");
  }
  return text;
}

string SummitPage(string_view reference) {
  const auto summits = Summits();
  const auto found = std::ranges::find(summits, reference, &Summit::Reference);
  if (found == summits.end()) return HtmlPage(reference, Element("p", "This summit is not on our list."));
  return HtmlPage(reference, Element("p", MarkupText(found->Name, Markup::NamedEntities) + ", " +
                                              std::to_string(found->Meters) + " m, " +
                                              std::to_string(found->Points) + " points"));
}

string OperatorPage(string_view callsign) {
  return HtmlPage(callsign, Element("p", "An operator of the practice network."));
}

}  // namespace practice
