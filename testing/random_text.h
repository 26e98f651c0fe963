// Texts put together at random, from a seed, of pieces that matter to the reader under test.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace brelwin::test {

class RandomText {
 public:
  RandomText(unsigned seed, std::vector<std::string_view> pieces)
      : generator_(seed), pieces_(std::move(pieces)) {}

  // A text of so many pieces at most; now and then a piece is any single byte.
  std::string Next(std::size_t mostPieces) {
    std::string text;
    for (auto count = Below(mostPieces + 1); count > 0; --count) {
      const auto choice = Below(pieces_.size() + 1);
      if (choice == pieces_.size()) {
        text.push_back(static_cast<char>(Below(256)));
      } else {
        text.append(pieces_[choice]);
      }
    }
    return text;
  }

  std::size_t Below(std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(generator_);
  }

 private:
  std::mt19937 generator_;
  std::vector<std::string_view> pieces_;
};

}  // namespace brelwin::test
