#include "ledger.h"

#include <chrono>

#include "escape.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

string Member(string_view name, string_view value) {
  return "," + JsonString(name) + ":" + string(value);
}

}  // namespace

Record::Record(string_view kind) : members_(Member("kind", JsonString(kind))) {}

Record& Record::Number(string_view name, std::int64_t number) {
  members_ += Member(name, std::to_string(number));
  return *this;
}

Record& Record::Flag(string_view name, bool flag) {
  members_ += Member(name, flag ? "true" : "false");
  return *this;
}

Record& Record::Text(string_view name, string_view text) {
  members_ += IsUtf8(text) ? Member(name, JsonString(text))
                           : Member(string(name) + "_bytes", JsonString(ByteCharacters(text)));
  return *this;
}

Record& Record::Texts(string_view name, const std::vector<std::pair<string, string>>& members) {
  string object;
  for (const auto& [key, value] : members)
    object += (object.empty() ? "" : ",") + JsonString(ByteCharacters(key)) + ":" +
              JsonString(IsUtf8(value) ? value : ByteCharacters(value));
  members_ += Member(name, "{" + object + "}");
  return *this;
}

std::int64_t SystemMilliseconds() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

Ledger::Ledger(const string& fileName, Clock clock) : wanted_(!fileName.empty()), clock_(std::move(clock)) {
  if (wanted_) file_.open(fileName, std::ios::app | std::ios::binary);
}

void Ledger::Write(const Record& record) {
  if (!wanted_) return;
  const std::scoped_lock lock(mutex_);
  file_ << "{\"t\":" << clock_() << record.Members() << "}\n" << std::flush;
}

}  // namespace practice
