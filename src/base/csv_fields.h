// The fields of one line of a table whose values are parted by commas.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brelwin {

// Reads line after line without new memory for each.
class CsvFields {
 public:
  // The fields of the line; they point into it or into this reader, until the next line is read. A field in
  // quotes may hold commas, and quotes written twice; one that the line does not close ends with it.
  const std::vector<std::string_view>& Read(std::string_view line);

 private:
  std::string_view TakeField(std::string_view& rest);
  std::string_view TakeQuoted(std::string_view& rest);

  std::vector<std::string_view> fields_;
  std::string unquoted_;
};

}  // namespace brelwin
