#include "base/csv_fields.h"

#include <algorithm>
#include <cstddef>

namespace brelwin {

const std::vector<std::string_view>& CsvFields::Read(std::string_view line) {
  fields_.clear();
  unquoted_.clear();
  unquoted_.reserve(line.size());  // fields point into it: it must not move
  bool more = true;
  while (more) {
    fields_.push_back(TakeField(line));
    more = !line.empty();
    if (more) line.remove_prefix(1);
  }
  return fields_;
}

// Leaves the comma behind the field where it is.
std::string_view CsvFields::TakeField(std::string_view& rest) {
  if (rest.starts_with('"')) return TakeQuoted(rest);
  const auto field = rest.substr(0, rest.find(','));
  rest.remove_prefix(field.size());
  return field;
}

std::string_view CsvFields::TakeQuoted(std::string_view& rest) {
  const auto begin = unquoted_.size();
  rest.remove_prefix(1);
  while (!rest.empty()) {
    const auto quote = std::min(rest.find('"'), rest.size());
    unquoted_ += rest.substr(0, quote);
    rest.remove_prefix(std::min(quote + 1, rest.size()));
    if (!rest.starts_with('"')) break;
    unquoted_ += '"';
    rest.remove_prefix(1);
  }
  rest.remove_prefix(std::min(rest.find(','), rest.size()));
  return std::string_view(unquoted_).substr(begin);
}

}  // namespace brelwin
