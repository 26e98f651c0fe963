#include "ledger.h"

#include <chrono>

#include "escape.h"
#include "times.h"

namespace practice {

Ledger::Ledger(const std::string& fileName) : wanted_(!fileName.empty()) {
  if (wanted_) file_.open(fileName, std::ios::app | std::ios::binary);
}

void Ledger::Write(std::string_view kind, std::string_view text) {
  if (!wanted_) return;
  const auto line = std::string(kind) + " " + OneLine(text);
  const std::scoped_lock lock(mutex_);
  file_ << LedgerTime(std::chrono::system_clock::now()) << ' ' << line << '\n' << std::flush;
}

}  // namespace practice
