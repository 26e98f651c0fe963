#include "platform/profile.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/text.h"

namespace brelwin {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

std::string_view TrimBlanksAndTabs(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// A line and where it stands in the text. Its end is not part of it.
struct Line {
  std::size_t Begin = 0;
  std::size_t End = 0;   // of the line without its line end
  std::size_t Next = 0;  // where the next line begins
  std::string_view Content;
};

class LineReader {
 public:
  explicit LineReader(std::string_view text)
      : text_(text), next_(text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0) {}

  std::optional<Line> Next() {
    if (next_ >= text_.size()) return {};
    Line line;
    line.Begin = next_;
    const auto lineFeed = text_.find('\n', next_);
    line.Next = lineFeed == std::string_view::npos ? text_.size() : lineFeed + 1;
    line.End = std::min(lineFeed, text_.size());
    if (line.End > line.Begin && text_[line.End - 1] == '\r') --line.End;
    line.Content = TrimBlanksAndTabs(text_.substr(line.Begin, line.End - line.Begin));
    next_ = line.Next;
    return line;
  }

 private:
  std::string_view text_;
  std::size_t next_;
};

// The name between the brackets of a section line; what follows them does not matter.
std::optional<std::string_view> SectionName(std::string_view line) {
  if (!line.starts_with('[')) return {};
  const auto end = line.find(']');
  if (end == std::string_view::npos) return {};
  return TrimBlanksAndTabs(line.substr(1, end - 1));
}

std::optional<std::string_view> KeyName(std::string_view line) {
  const auto equals = line.find('=');
  if (equals == std::string_view::npos || line.starts_with(';')) return {};
  return TrimBlanksAndTabs(line.substr(0, equals));
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

std::string ValueOfLine(std::string_view line) {
  const auto decoded = TextFromBytes(line);
  auto value = TrimBlanksAndTabs(std::string_view(decoded).substr(decoded.find('=') + 1));
  if (IsQuoted(value)) value = value.substr(1, value.size() - 2);
  return std::string(value);
}

// What the text holds of a section and a key.
struct Place {
  std::optional<Line> Section;    // its "[name]" line
  std::optional<Line> Key;        // its "key=value" line
  std::optional<Line> LastInUse;  // the last line of the section that is not blank
};

Place Find(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  LineReader reader(text);
  while (const auto line = reader.Next()) {
    const auto name = SectionName(line->Content);
    if (place.Section && name) break;
    if (name && EqualsIgnoringCase(*name, section)) place.Section = line;
    if (!place.Section) continue;
    if (!line->Content.empty()) place.LastInUse = line;
    const auto keyName = name ? std::nullopt : KeyName(line->Content);
    if (!keyName || !EqualsIgnoringCase(*keyName, key)) continue;
    place.Key = line;
    break;
  }
  return place;
}

bool IsOneLine(std::string_view name) {
  return !name.empty() && name.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

bool CanBeFoundAgain(std::string_view section, std::string_view key) {
  return IsOneLine(section) && section.find(']') == std::string_view::npos && IsOneLine(key) &&
         key.find('=') == std::string_view::npos && !key.starts_with(';') && !key.starts_with('[');
}

// The value as it is written behind the "=".
std::string WrittenForm(std::string_view value) {
  std::string written(value.substr(0, value.find('\0')));
  std::replace(written.begin(), written.end(), '\r', ' ');
  std::replace(written.begin(), written.end(), '\n', ' ');
  const auto inner = Trim(written);
  const bool hasOuterTab = inner.starts_with('\t') || inner.ends_with('\t');
  return IsQuoted(inner) || hasOuterTab ? '"' + std::string(inner) + '"' : written;
}

std::string_view LineEndOf(std::string_view text) {
  const auto lineFeed = text.find('\n');
  if (lineFeed == std::string_view::npos || (lineFeed > 0 && text[lineFeed - 1] == '\r')) return LineEnd;
  return "\n";
}

// What the line before `position` lacks to be a finished one; a file may be cut between CR and LF.
std::string_view MissingLineEnd(std::string_view text, std::size_t position) {
  if (position == 0 || text == ByteOrderMark || text[position - 1] == '\n') return {};
  return text[position - 1] == '\r' ? "\n" : LineEndOf(text);
}

// Puts a new line behind the one that ends at `position`, which may lack its own line end.
void InsertLine(std::string& text, std::size_t position, const std::string& line) {
  std::string inserted(MissingLineEnd(text, position));
  inserted.append(line).append(LineEndOf(text));
  text.insert(position, inserted);
}

}  // namespace

std::optional<std::string> ReadProfileValue(std::string_view text, std::string_view section,
                                            std::string_view key) {
  const auto place = Find(text, TrimBlanksAndTabs(section), TrimBlanksAndTabs(key));
  if (!place.Key) return {};
  return ValueOfLine(place.Key->Content);
}

std::vector<ProfileEntry> ReadProfileSection(std::string_view text, std::string_view section) {
  std::vector<ProfileEntry> entries;
  bool inSection = false;
  LineReader reader(text);
  while (const auto line = reader.Next()) {
    const auto name = SectionName(line->Content);
    if (inSection && name) break;
    if (name && EqualsIgnoringCase(*name, TrimBlanksAndTabs(section))) inSection = true;
    const auto key = inSection && !name ? KeyName(line->Content) : std::nullopt;
    if (key) entries.push_back({TextFromBytes(*key), ValueOfLine(line->Content)});
  }
  return entries;
}

std::vector<ProfileSection> SplitProfile(std::string_view text) {
  std::vector<ProfileSection> sections;
  std::size_t begin = 0;
  LineReader reader(text);
  while (const auto line = reader.Next()) {
    if (const auto name = SectionName(line->Content)) {
      sections.push_back({*name, {}});
      begin = line->Begin;
    }
    if (!sections.empty()) sections.back().Text = text.substr(begin, line->Next - begin);
  }
  return sections;
}

bool WriteProfileValue(std::string& text, std::string_view section, std::string_view key,
                       std::string_view value) {
  section = TrimBlanksAndTabs(section);
  key = TrimBlanksAndTabs(key);
  if (!CanBeFoundAgain(section, key)) return false;
  const auto line = std::string(key) + "=" + WrittenForm(value);
  const auto place = Find(text, section, key);
  if (place.Key) {
    if (ValueOfLine(place.Key->Content) != ValueOfLine(line))
      text.replace(place.Key->Begin, place.Key->End - place.Key->Begin, line);
  } else if (place.Section) {
    InsertLine(text, place.LastInUse->Next, line);
  } else {
    InsertLine(text, text.size(), "[" + std::string(section) + "]");
    InsertLine(text, text.size(), line);
  }
  return true;
}

std::string GetPrivateProfileString(const Files& files, std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size, std::string_view path) {
  if (size == 0) return {};
  const auto text = files.Read(path);
  const auto value = text ? ReadProfileValue(*text, section, key) : std::nullopt;
  return std::string(FirstCharacters(value ? *value : defaultValue, size - 1));
}

bool WritePrivateProfileString(Files& files, std::string_view section, std::string_view key,
                               std::string_view value, std::string_view path) {
  auto text = files.Read(path);
  if (!text && files.Exists(path)) return false;
  auto changed = text.value_or("");
  if (!WriteProfileValue(changed, section, key, value)) return false;
  if (text == changed) return true;
  return files.Write(path, changed, FileAccess::OwnerOnly).Done();
}

}  // namespace brelwin
