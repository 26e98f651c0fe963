// What the skimmers of the practice network hear: the activators that are on the air in CW, among many
// stations of no interest.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "feed.h"
#include "random.h"

namespace practice {

class Skimmers {
 public:
  explicit Skimmers(std::uint64_t seed) : random_(seed, 77) {}

  // The next line of the stream, with its line end, given who has come on the air last. Most lines are of
  // stations of no interest; now and then one is not about a station at all.
  std::string NextLine(const std::vector<PublishedSpot>& onTheAir, std::int64_t now);

 private:
  std::string ActivatorLine(const PublishedSpot& spot, std::int64_t now);
  std::string OtherLine(std::int64_t now);
  std::string Notice();

  Random random_;
};

}  // namespace practice
