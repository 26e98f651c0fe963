// The book of everything that the practice network received and served: one JSON object a line, each with its
// time, so that others can work out what a monitor ought to have done.
#pragma once

#include <cstdint>
#include <fstream>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace practice {

// An entry of the ledger: its kind, then what it says, in the order in which that is added.
class Record {
 public:
  explicit Record(std::string_view kind);

  Record& Number(std::string_view name, std::int64_t number);
  Record& Flag(std::string_view name, bool flag);

  // Bytes that are no UTF-8 are written under the name with "_bytes" added, each as the character of its
  // number.
  Record& Text(std::string_view name, std::string_view text);
  Record& Texts(std::string_view name, const std::vector<std::pair<std::string, std::string>>& members);

  const std::string& Members() const { return members_; }

 private:
  std::string members_;
};

// Milliseconds since 1970, UTC.
std::int64_t SystemMilliseconds();

class Ledger {
 public:
  using Clock = std::function<std::int64_t()>;

  // Lines are added to the end of the file. An empty name keeps no ledger.
  explicit Ledger(const std::string& fileName, Clock clock = SystemMilliseconds);

  // False when the file could not be opened.
  bool IsOpen() const { return !wanted_ || file_.is_open(); }

  // May be called from any thread.
  void Write(const Record& record);

 private:
  bool wanted_;
  Clock clock_;
  std::ofstream file_;
  std::mutex mutex_;
};

}  // namespace practice
