// Builds alerts pages for tests.
#pragma once

#include <string>

namespace brelwin::test {

struct PageAlert {
  std::string Time = "10:00";
  std::string Callsign = "G4ABC/P";
  std::string Summit = "G/LD-001";
  std::string Comment = {};
  std::string Poster = "G4ABC";
  std::string PopUp =
      "<strong>Operator:</strong> Ann<br><strong>Summit:</strong> Scafell Pike, 978m, 10 points.";
  std::string Frequencies = "14.062-cw";
};

inline std::string Heading(const std::string& date = "Tuesday 24th November 2026") {
  return "<p><span class=\"alertDate\">" + date + "</span></p>\n";
}

inline std::string Table(const PageAlert& alert) {
  return "<table class=\"spots\">\n<tr onMouseOver=\"return overlib('" + alert.PopUp +
         "', CAPTION, 'Summit');\" onMouseOut=\"return nd();\">\n<td width=\"50\"><strong>" + alert.Time +
         "</strong>&nbsp;</td>\n<td><strong>" + alert.Callsign + "</strong>\n\ton <a href=\"/Summit/" +
         alert.Summit + "\" title=\"map\">" + alert.Summit + "</a></td><td>" + alert.Frequencies +
         "</td>\n<td>ignored</td></tr>\n<tr><td><span class=\"comment\">" + alert.Comment +
         "</span> <span class=\"poster\">(Posted by " + alert.Poster + ")</span></td></tr></table>\n";
}

}  // namespace brelwin::test
