// Plain text helpers shared by every room: trimming, case, splitting, replacing.
// Case is ASCII case: callsigns, keys and section names must not depend on a locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// Line ending of every file the program writes.
inline constexpr std::string_view LineEnd = "\r\n";

// The text without leading and trailing blanks (U+0020 only; tabs and line ends stay).
std::string_view Trim(std::string_view text);

// The text with "a" to "z" turned into "A" to "Z", and the other way round. All other bytes stay.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

// True when the two texts are equal but for ASCII letter case.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

// A number for hash tables that is the same for texts that are equal but for ASCII letter case.
std::size_t HashIgnoringCase(std::string_view text);

// True when `part` occurs in `text`, case-sensitively. An empty part always occurs.
bool Contains(std::string_view text, std::string_view part);

// The text with every occurrence of `what` replaced by `with`, left to right, without looking at the
// replacements again. An empty `what` changes nothing.
std::string Replace(std::string_view text, std::string_view what, std::string_view with);

// The text without every occurrence of `part`, found left to right.
std::string Without(std::string text, std::string_view part);

// The pieces between the delimiters: always one more than there are delimiters, so an empty text gives one
// empty piece. The pieces point into `text`. An empty delimiter gives the whole text as one piece.
std::vector<std::string_view> Split(std::string_view text, std::string_view delimiter);

// The lines of a file's text, ended by LF or CR LF; a last line without an end counts, an empty rest does
// not. The lines point into `text`.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace brelwin
