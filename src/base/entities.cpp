#include "base/entities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "base/encoding.h"

namespace brelwin {
namespace {

constexpr std::size_t LongestEntity = 12;
constexpr char32_t NoCharacter = 0xFFFD;

struct NamedCharacter {
  std::string_view Name;
  char32_t CodePoint;
};

constexpr std::array<NamedCharacter, 17> CommonNames = {{{"amp", U'&'},
                                                         {"lt", U'<'},
                                                         {"gt", U'>'},
                                                         {"quot", U'"'},
                                                         {"apos", U'\''},
                                                         {"euro", 0x20AC},
                                                         {"ndash", 0x2013},
                                                         {"mdash", 0x2014},
                                                         {"lsquo", 0x2018},
                                                         {"rsquo", 0x2019},
                                                         {"sbquo", 0x201A},
                                                         {"ldquo", 0x201C},
                                                         {"rdquo", 0x201D},
                                                         {"bdquo", 0x201E},
                                                         {"bull", 0x2022},
                                                         {"hellip", 0x2026},
                                                         {"trade", 0x2122}}};

// The names of U+00A0 to U+00FF in their order.
constexpr std::array<std::string_view, 96> Latin1Names = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

std::optional<char32_t> CodePointOfNumber(std::string_view number) {
  const bool hexadecimal = number.starts_with('x') || number.starts_with('X');
  if (hexadecimal) number.remove_prefix(1);
  std::uint32_t value = 0;
  const auto* const end = number.data() + number.size();
  const auto result = std::from_chars(number.data(), end, value, hexadecimal ? 16 : 10);
  if (result.ec != std::errc() || result.ptr != end) return {};
  return char32_t{value};
}

std::optional<char32_t> CodePointOfName(std::string_view name) {
  if (name.starts_with('#')) return CodePointOfNumber(name.substr(1));
  const auto common =
      std::ranges::find_if(CommonNames, [name](const auto& known) { return known.Name == name; });
  if (common != CommonNames.end()) return common->CodePoint;
  const auto latin1 = std::ranges::find(Latin1Names, name);
  if (latin1 == Latin1Names.end()) return {};
  return 0xA0 + static_cast<char32_t>(latin1 - Latin1Names.begin());
}

char32_t AsBrowsersRead(char32_t codePoint) {
  if (codePoint == 0) return NoCharacter;
  return codePoint < 0x100 ? CodePointOfWindows1252(static_cast<unsigned char>(codePoint)) : codePoint;
}

}  // namespace

std::optional<Entity> EntityAt(std::string_view text) {
  if (!text.starts_with('&')) return {};
  const auto semicolon = text.substr(0, LongestEntity).find(';');
  if (semicolon == std::string_view::npos) return {};
  const auto codePoint = CodePointOfName(text.substr(1, semicolon - 1));
  if (!codePoint) return {};
  return Entity{*codePoint, semicolon + 1};
}

std::string DecodeEntities(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  while (!text.empty()) {
    const auto plain = std::min(text.find('&'), text.size());
    decoded.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    const auto entity = EntityAt(text).value_or(Entity{U'&', 1});
    AppendCodePoint(decoded, AsBrowsersRead(entity.CodePoint));
    text.remove_prefix(entity.Length);
  }
  return decoded;
}

}  // namespace brelwin
