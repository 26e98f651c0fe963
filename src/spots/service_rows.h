// The rows of an answer of the JSON service: a list of objects, taken one by one, so that a broken row costs
// itself and nothing else.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/date_time.h"

namespace brelwin {

// The members of one row as text. A number is the text that the service wrote, so that none is too large.
class ServiceRow {
 public:
  // What the row says of this; empty for a name that is missing, or holds null, a list or an object.
  std::string_view Text(std::string_view name) const;

  // Whether its texts, but for dates and empty ones, are the word by which a service says that it has been
  // given up.
  bool IsSentinel() const;

  // The same as a date and time in UTC, which is meant where no zone is given.
  std::optional<DateTime> Time(std::string_view name) const;

  void Add(std::string name, std::string text, bool isText);

 private:
  struct Member {
    std::string Name;
    std::string Text;
    bool IsText = false;
  };
  std::vector<Member> members_;
};

// The row of the text of one list item. Empty when it is no object, breaks the rules of JSON, holds things
// within things 32 deep, or is longer than 256 KiB. Bytes that are not UTF-8 are read as Windows-1252.
std::optional<ServiceRow> ReadServiceRow(std::string_view text);

// Finds the items of a list without reading them.
class ServiceRowScanner {
 public:
  explicit ServiceRowScanner(std::string_view answer);

  // The text of the next item, without outer white space; empty behind the last one, behind the first 20,000,
  // and where the answer is cut.
  std::optional<std::string_view> NextRow();

  // Whether the answer is a list at all; whether its end has been reached; and whether it holds more items
  // than are taken.
  bool IsList() const { return isList_; }
  bool ReachedEnd() const { return reachedEnd_; }
  bool HasTooMany() const;

 private:
  std::string_view rest_;
  std::size_t rows_ = 0;
  bool isList_ = false;
  bool reachedEnd_ = false;
};

}  // namespace brelwin
