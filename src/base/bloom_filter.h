// A Bloom filter of texts: a quick "no" for most texts that were never added, with a look at a small table,
// where a search would touch memory far apart. ASCII letter case does not matter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace brelwin {

class BloomFilter {
 public:
  void Add(std::string_view text) {
    const auto hash = HashIgnoringCase(text);
    bits_[FirstBit(hash)] = true;
    bits_[SecondBit(hash)] = true;
  }

  // False: the text was not added. True: it may have been; of others, one in fifty passes by chance once
  // 75,000 texts are added.
  bool MayContain(std::string_view text) const {
    const auto hash = HashIgnoringCase(text);
    return bits_[FirstBit(hash)] && bits_[SecondBit(hash)];
  }

 private:
  static constexpr std::size_t Bits = std::size_t{1} << 20;

  static std::size_t FirstBit(std::uint64_t hash) { return hash % Bits; }
  static std::size_t SecondBit(std::uint64_t hash) { return (hash >> 32) % Bits; }

  std::vector<bool> bits_ = std::vector<bool>(Bits);
};

}  // namespace brelwin
