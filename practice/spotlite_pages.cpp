#include "spotlite_pages.h"

#include <algorithm>
#include <array>

#include "escape.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::array<std::pair<string_view, string_view>, 6> Shown{{{"Activator", "actCallsign"},
                                                                    {"Association", "assoc"},
                                                                    {"Summit", "summit"},
                                                                    {"Frequency", "freq"},
                                                                    {"Mode", "mode"},
                                                                    {"Comments", "comments"}}};

string Page(string_view title, const string& body) {
  return "<!DOCTYPE html>\n<html>\n<head><title>Spotlite</title></head>\n<body>\n<h1>" + string(title) +
         "</h1>\n" + body + "</body>\n</html>\n";
}

string Row(string_view caption, string_view value) {
  return "<tr><td>" + string(caption) + "</td><td>" + MarkupText(value, Markup::NamedEntities) +
         "</td></tr>\n";
}

}  // namespace

string ValueOf(const FormFields& fields, string_view name) {
  const auto found =
      std::ranges::find(fields, name, [](const auto& field) { return string_view(field.first); });
  return found == fields.end() ? string() : found->second;
}

string AcceptedPage(const FormFields& fields) {
  if (fields.empty()) return Page("Thank you", "<p>Your spot is on its way.</p>\n");
  string rows;
  for (const auto& [caption, name] : Shown) rows += Row(caption, ValueOf(fields, name));
  return Page("Your spot has been accepted", "<table>\n" + rows + "</table>\n");
}

// The words by which programs know a failure are in small letters.
string FailedPage(string_view reason) {
  auto sentence = string(reason);
  if (sentence.starts_with('T')) sentence[0] = 't';
  return Page("Spot", "<p>Your spot submission failed" + (sentence.empty() ? string(".") : ": " + sentence) +
                          "</p>\n");
}

string ServerErrorPage() {
  return Page("Internal Server Error", "<p>Please try again later.</p>\n");
}

}  // namespace practice
