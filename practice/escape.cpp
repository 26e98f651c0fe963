#include "escape.h"

#include <algorithm>
#include <charconv>

namespace practice {
namespace {

using std::string;
using std::string_view;

string Hexadecimal(unsigned value, std::size_t digits) {
  string text;
  for (; value != 0 || text.size() < digits; value /= 16) text.insert(0, 1, "0123456789abcdef"[value % 16]);
  return text;
}

string NamedEntity(char c) {
  switch (c) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return {c};
  }
}

// Every code point of valid UTF-8; the callback gets its number and its bytes.
template <class Function>
void ForEachCodePoint(string_view text, Function function) {
  while (!text.empty()) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    unsigned number = length == 1 ? lead : lead & (0x7fU >> length);
    for (std::size_t i = 1; i < length && i < text.size(); ++i)
      number = (number << 6) | (static_cast<unsigned char>(text[i]) & 0x3fU);
    function(number, text.substr(0, length));
    text.remove_prefix(std::min(length, text.size()));
  }
}

string NumericEntity(unsigned number, bool hexadecimal) {
  return hexadecimal ? "&#x" + Hexadecimal(number, 1) + ";" : "&#" + std::to_string(number) + ";";
}

string WithNumericEntities(string_view text) {
  string result;
  bool hexadecimal = false;
  ForEachCodePoint(text, [&](unsigned number, string_view bytes) {
    const bool plain =
        number >= ' ' && number < 0x80 && string_view("&<>\"'").find(bytes) == string_view::npos;
    result += plain ? string(bytes) : NumericEntity(number, hexadecimal);
    if (!plain) hexadecimal = !hexadecimal;
  });
  return result;
}

string WithNamedEntities(string_view text) {
  string result;
  for (const char c : text) result += NamedEntity(c);
  return result;
}

// How many bytes the character at the front has; 0 for what is no UTF-8.
std::size_t SequenceLength(string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xc2 && lead < 0xe0   ? 2
                             : (lead & 0xf0) == 0xe0       ? 3
                             : lead >= 0xf0 && lead < 0xf5 ? 4
                                                           : 0;
  if (length == 0 || text.size() < length) return 0;
  const auto rest = text.substr(1, length - 1);
  return std::ranges::all_of(rest, [](char c) { return (static_cast<unsigned char>(c) & 0xc0) == 0x80; })
             ? length
             : 0;
}

string JsonCharacter(unsigned number) {
  if (number == '"' || number == '\\') return {'\\', static_cast<char>(number)};
  if (number >= ' ' && number < 0x7f) return {static_cast<char>(number)};
  if (number < 0x10000) return "\\u" + Hexadecimal(number, 4);
  const auto offset = number - 0x10000;  // above the first plane JSON wants a pair of surrogates
  return "\\u" + Hexadecimal(0xd800 + (offset >> 10), 4) + "\\u" + Hexadecimal(0xdc00 + (offset & 0x3ff), 4);
}

}  // namespace

string MarkupText(string_view text, Markup writing) {
  switch (writing) {
    case Markup::NamedEntities: return WithNamedEntities(text);
    case Markup::NumericEntities: return WithNumericEntities(text);
    case Markup::CData: return "<![CDATA[" + string(text) + "]]>";
  }
  return {};
}

string JsonString(string_view text) {
  const auto isPlain = [](char c) { return c >= ' ' && c < 0x7f && c != '"' && c != '\\'; };
  string result = "\"";
  while (!text.empty()) {
    const auto plain = static_cast<std::size_t>(std::ranges::find_if_not(text, isPlain) - text.begin());
    result.append(text.substr(0, plain));
    text.remove_prefix(plain);
    const auto special = static_cast<std::size_t>(std::ranges::find_if(text, isPlain) - text.begin());
    ForEachCodePoint(text.substr(0, special),
                     [&](unsigned number, string_view) { result += JsonCharacter(number); });
    text.remove_prefix(special);
  }
  return result + '"';
}

bool IsUtf8(string_view text) {
  while (!text.empty()) {
    const auto length = SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

string ByteCharacters(string_view bytes) {
  string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) text += static_cast<char>(0xc0 | (byte >> 6));
    text += static_cast<char>(byte < 0x80 ? byte : 0x80 | (byte & 0x3f));
  }
  return text;
}

string PercentDecoded(string_view text) {
  string result;
  while (!text.empty()) {
    unsigned code = 0;
    const bool isCode = text[0] == '%' && text.size() > 2 &&
                        std::from_chars(text.data() + 1, text.data() + 3, code, 16).ptr == text.data() + 3;
    result += isCode ? static_cast<char>(code) : text[0] == '+' ? ' ' : text[0];
    text.remove_prefix(isCode ? 3 : 1);
  }
  return result;
}

}  // namespace practice
