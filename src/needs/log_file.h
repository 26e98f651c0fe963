// The operator's log on the disk, which grows while the operator works: read once, then only what was added.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/record_faults.h"
#include "needs/contact.h"
#include "needs/worked_log.h"
#include "platform/files.h"

namespace brelwin {

// What a look at the file came to.
enum class LogChange : std::uint8_t {
  None,
  Added,    // contacts came to those that were known
  Replaced  // the file is another one, or gone: everything was read anew
};

class LogFile {
 public:
  // The path of the file; an empty one is no log. It is read at the first look.
  explicit LogFile(std::string_view path) : path_(path) {}

  // Reads what came since the last look; cheap when the file's length is the same. Records whose end is still
  // to come wait, a last line without line end until the file has rested from one look to the next. A change
  // within the file that keeps its length is noticed when more is added.
  LogChange Look(const Files& files);

  const WorkedLog& Worked() const { return worked_; }
  const RecordFaults& Faults() const { return faults_; }

  // How many records were read since the file was there or replaced.
  std::size_t ContactCount() const { return contactCount_; }

  // Whether the file could be read at the last look.
  bool IsThere() const { return length_.has_value(); }

 private:
  void Forget();
  void Read(std::string_view bytes, bool isWhole);
  bool GoesOn(std::string_view bytes) const;

  std::string path_;
  std::optional<std::uint64_t> length_;
  bool isResting_ = true;  // nothing waits for the next look
  LogPosition position_;
  std::size_t readHash_ = 0;  // of everything before the position
  std::size_t contactCount_ = 0;
  WorkedLog worked_;
  RecordFaults faults_;
};

}  // namespace brelwin
