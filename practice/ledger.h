// The book of everything that the practice network received and served: one line each, with the time.
#pragma once

#include <fstream>
#include <mutex>
#include <string>
#include <string_view>

namespace practice {

class Ledger {
 public:
  // Lines are added to the end of the file. An empty name keeps no ledger.
  explicit Ledger(const std::string& fileName);

  // False when the file could not be opened.
  bool IsOpen() const { return !wanted_ || file_.is_open(); }

  // `kind` is one word, "received" or "served". May be called from any thread.
  void Write(std::string_view kind, std::string_view text);

 private:
  bool wanted_;
  std::ofstream file_;
  std::mutex mutex_;
};

}  // namespace practice
