#include "needs/log_file.h"

#include <algorithm>
#include <functional>

#include "base/text.h"
#include "needs/adif_reader.h"
#include "needs/sota_csv_reader.h"

namespace brelwin {
namespace {

std::size_t HashOf(std::string_view bytes) {
  return std::hash<std::string_view>{}(bytes);
}

// Every line of such a log begins with its version.
bool IsSotaCsv(std::string_view bytes) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
  bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
  return EqualsIgnoringCase(bytes.substr(0, 3), "V2,");
}

}  // namespace

LogChange LogFile::Look(const Files& files) {
  const bool wasThere = IsThere();
  const auto length = files.Length(path_);
  const bool hasRested = length == length_;
  if (hasRested && isResting_) return LogChange::None;
  const auto bytes = length ? files.Read(path_) : std::nullopt;
  const bool goesOn = bytes && GoesOn(*bytes);
  if (!goesOn) Forget();
  length_ = bytes ? length : std::nullopt;
  if (!bytes) return wasThere ? LogChange::Replaced : LogChange::None;
  const auto before = contactCount_;
  Read(*bytes, hasRested);
  isResting_ = hasRested;
  if (!goesOn) return LogChange::Replaced;
  return contactCount_ > before ? LogChange::Added : LogChange::None;
}

void LogFile::Forget() {
  *this = LogFile(path_);
}

bool LogFile::GoesOn(std::string_view bytes) const {
  return length_ && bytes.size() >= position_.Byte && HashOf(bytes.substr(0, position_.Byte)) == readHash_;
}

void LogFile::Read(std::string_view bytes, bool isWhole) {
  const auto take = [this](const Contact& contact) {
    worked_.Add(contact);
    ++contactCount_;
  };
  if (IsSotaCsv(bytes))
    ReadSotaCsv(bytes, position_, isWhole, take, faults_);
  else
    ReadAdif(bytes, position_, take, faults_);
  readHash_ = HashOf(bytes.substr(0, position_.Byte));
}

}  // namespace brelwin
