// A quick "no": tells of most texts that were never noted that they were not, with a look at a small table,
// where a search would touch memory far apart. ASCII letter case does not matter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace brelwin {

class PresenceMarks {
 public:
  void Note(std::string_view text) {
    const auto hash = HashIgnoringCase(text);
    marks_[FirstPlace(hash)] = true;
    marks_[SecondPlace(hash)] = true;
  }

  // False: the text was not noted. True: it may have been; of others, one in fifty passes by chance once
  // 75,000 texts are noted.
  bool MayHold(std::string_view text) const {
    const auto hash = HashIgnoringCase(text);
    return marks_[FirstPlace(hash)] && marks_[SecondPlace(hash)];
  }

 private:
  static constexpr std::size_t Places = std::size_t{1} << 20;

  static std::size_t FirstPlace(std::uint64_t hash) { return hash % Places; }
  static std::size_t SecondPlace(std::uint64_t hash) { return (hash >> 32) % Places; }

  std::vector<bool> marks_ = std::vector<bool>(Places);
};

}  // namespace brelwin
