#include "places/coast.h"

#include <string_view>

#include "places/coast_table.h"

namespace brelwin {
namespace {

constexpr int MoreFollows = 32;

int TakeNumber(std::string_view& text) {
  int number = 0;
  for (int place = 1; !text.empty(); place *= MoreFollows) {
    const int digit = text.front() - '0';
    text.remove_prefix(1);
    number += digit % MoreFollows * place;
    if (digit < MoreFollows) break;
  }
  return number % 2 == 0 ? number / 2 : -(number + 1) / 2;
}

SphereRing TakeRing(std::string_view& text) {
  SphereRing ring;
  int longitude = 0;
  int latitude = 0;
  while (text.front() != '!') {
    longitude += TakeNumber(text);
    latitude += TakeNumber(text);
    ring.push_back(VectorOf({latitude / 100.0, longitude / 100.0}));
  }
  text.remove_prefix(1);
  return ring;
}

}  // namespace

std::vector<SphereRing> Coast() {
  std::vector<SphereRing> rings;
  for (auto text = CoastTable(); !text.empty();) rings.push_back(TakeRing(text));
  return rings;
}

}  // namespace brelwin
