#include "spots/service_rows.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/encoding.h"
#include "radio/dates.h"
#include "spots/json_text.h"

namespace brelwin {
namespace {

using Json = nlohmann::json;

constexpr std::size_t MostRows = 20'000;
constexpr std::size_t LongestRow = std::size_t{256} * 1024;
constexpr std::size_t DeepestNesting = 32;
constexpr std::string_view WhiteSpace = " \t\r\n";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view SentinelWord = "DEPRECATED";

// Listens to the parser and keeps what stands directly in the row.
class RowListener final : public nlohmann::json_sax<Json> {
 public:
  explicit RowListener(ServiceRow& row) : row_(row) {}

  bool null() override { return depth_ > 0; }
  bool boolean(bool value) override { return Keep(value ? "true" : "false", false); }
  bool number_integer(number_integer_t value) override { return Keep(std::to_string(value), false); }
  bool number_unsigned(number_unsigned_t value) override { return Keep(std::to_string(value), false); }
  bool number_float(number_float_t, const string_t& text) override { return Keep(text, false); }
  bool string(string_t& value) override { return Keep(std::move(value), true); }
  bool binary(binary_t&) override { return false; }
  bool parse_error(std::size_t, const std::string&, const Json::exception&) override { return false; }

  bool key(string_t& name) override {
    if (depth_ == 1) name_ = std::move(name);
    return true;
  }
  bool start_object(std::size_t) override { return ++depth_ <= DeepestNesting; }
  bool start_array(std::size_t) override { return depth_ > 0 && ++depth_ <= DeepestNesting; }
  bool end_object() override { return Leave(); }
  bool end_array() override { return Leave(); }

 private:
  bool Leave() {
    --depth_;
    return true;
  }
  bool Keep(std::string text, bool isText) {
    if (depth_ == 1) row_.Add(name_, std::move(text), isText);
    return depth_ > 0;
  }

  ServiceRow& row_;
  std::size_t depth_ = 0;
  std::string name_;
};

void SkipWhiteSpace(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(WhiteSpace), text.size()));
}

// The length of the string at the start of the text, quotation marks included; all of it when it does not
// end.
std::size_t LengthOfString(std::string_view text) {
  std::size_t at = 1;
  while ((at = text.find_first_of("\"\\", at)) != std::string_view::npos) {
    if (text[at] == '"') return at + 1;
    at += 2;
  }
  return text.size();
}

// Where the item at the start of the text ends: at a comma or bracket that belongs to the list. The whole
// length when there is none.
std::size_t LengthOfItem(std::string_view text) {
  std::size_t depth = 0;
  std::size_t at = 0;
  while ((at = text.find_first_of("\"[]{},", at)) != std::string_view::npos) {
    const char c = text[at];
    if (depth == 0 && (c == ',' || c == ']')) return at;
    if (c == '{' || c == '[') ++depth;
    if ((c == '}' || c == ']') && depth > 0) --depth;
    at += c == '"' ? LengthOfString(text.substr(at)) : 1;
  }
  return text.size();
}

std::string_view WithoutTrailingWhiteSpace(std::string_view text) {
  return text.substr(0, text.find_last_not_of(WhiteSpace) + 1);
}

}  // namespace

std::string_view ServiceRow::Text(std::string_view name) const {
  const auto member = std::ranges::find(members_, name, &Member::Name);
  return member == members_.end() ? std::string_view() : std::string_view(member->Text);
}

std::optional<DateTime> ServiceRow::Time(std::string_view name) const {
  const auto time = ReadDateTime(Text(name));
  return time && !IsTimeAlone(*time) ? time : std::nullopt;
}

bool ServiceRow::IsSentinel() const {
  const auto isSentinel = [](const Member& member) { return member.IsText && member.Text == SentinelWord; };
  const auto isOther = [&](const Member& member) {
    const bool saysNothing = member.Name == "epoch" || member.Name == "type";
    return !saysNothing && member.IsText && !member.Text.empty() && !isSentinel(member) &&
           !IsDateNotNumber(member.Text);
  };
  return std::ranges::any_of(members_, isSentinel) && std::ranges::none_of(members_, isOther);
}

void ServiceRow::Add(std::string name, std::string text, bool isText) {
  members_.push_back({std::move(name), std::move(text), isText});
}

std::optional<ServiceRow> ReadServiceRow(std::string_view text) {
  if (text.size() > LongestRow) return {};
  std::optional<ServiceRow> row(std::in_place);
  RowListener listener(*row);
  if (!Json::sax_parse(MendSurrogates(TextFromBytes(text)), &listener)) return {};
  return row;
}

ServiceRowScanner::ServiceRowScanner(std::string_view answer) : rest_(answer) {
  if (rest_.starts_with(ByteOrderMark)) rest_.remove_prefix(ByteOrderMark.size());
  SkipWhiteSpace(rest_);
  isList_ = rest_.starts_with('[');
  if (!isList_) return;
  rest_.remove_prefix(1);
  SkipWhiteSpace(rest_);
  reachedEnd_ = rest_.starts_with(']');
}

bool ServiceRowScanner::HasTooMany() const {
  return rows_ == MostRows && !reachedEnd_ && !rest_.empty();
}

std::optional<std::string_view> ServiceRowScanner::NextRow() {
  if (!isList_ || reachedEnd_ || rest_.empty() || rows_ == MostRows) return {};
  ++rows_;
  const auto length = LengthOfItem(rest_);
  if (length == rest_.size()) {
    rest_ = {};
    return {};
  }
  const auto item = WithoutTrailingWhiteSpace(rest_.substr(0, length));
  reachedEnd_ = rest_[length] == ']';
  rest_.remove_prefix(length + 1);
  SkipWhiteSpace(rest_);
  return item;
}

}  // namespace brelwin
