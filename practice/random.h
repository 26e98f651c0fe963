// Chance that is the same from the same seed on every machine, which the standard distributions do not
// promise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace practice {

class Random {
 public:
  // `stream` tells apart what is drawn from one seed, such as the days of a script.
  Random(std::uint64_t seed, std::uint64_t stream) : state_(Mix(seed) ^ Mix(stream + 1)) {}

  // A whole number from least to most, both included.
  std::int64_t Between(std::int64_t least, std::int64_t most) {
    return least + static_cast<std::int64_t>(Next() % static_cast<std::uint64_t>(most - least + 1));
  }

  // True once in n times.
  bool OneIn(std::int64_t n) { return Between(1, n) == 1; }

  // One element of a range that has some.
  template <class Range>
  const auto& Pick(const Range& range) {
    return range[static_cast<std::size_t>(Next() % range.size())];
  }

 private:
  std::uint64_t Next() { return Mix(state_ += 0x9e3779b97f4a7c15); }

  // The finalizer of SplitMix64 (Steele, Lea, Flood 2014).
  static std::uint64_t Mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
    value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
    return value ^ (value >> 31);
  }

  std::uint64_t state_;
};

}  // namespace practice
