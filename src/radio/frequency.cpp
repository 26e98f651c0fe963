#include "radio/frequency.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "base/text.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr float KHzInMhz = 1000;

struct Band {
  double FromMhz;  // whole MHz, both included
  double ToMhz;
  double Edge;
};

constexpr std::array<Band, 23> Bands = {{
    {0, 0, 0.135},
    {1, 2, 1.8},
    {3, 4, 3.5},
    {28, 30, 28},
    {50, 55, 50},
    {144, 148, 144},
    {420, 450, 420},
    {219, 225, 220},
    {902, 928, 902},
    {1240, 1300, 1240},
    {2300, 2350, 2300},
    {3300, 3500, 3300},
    {5650, 5925, 5700},
    {10000, 10500, 10000},
    {24000, 24250, 24000},
    {47000, 47200, 47000},
    {75500, 81000, 76000},
    {119980, 120020, 120000},
    {122000, 123000, 122000},
    {134000, 136000, 134000},
    {136001, 141000, 136000},
    {142000, 149000, 142000},
    {241000, 250000, 250000},
}};

double WholeMhz(float mhz) {
  return SingleHasDecimals(mhz) ? std::trunc(double{mhz}) : 0;
}

// Empty without text and for a number that does not fit.
std::optional<float> ReadFrequency(std::string_view text, float unitsInMhz) {
  if (Trim(text).empty()) return {};
  const double number = ToDouble(text);
  if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) return {};
  return ToSingle(number) / unitsInMhz;
}

std::string FormatFrequency(std::string_view text, float unitsInMhz, float& mhz) {
  const auto frequency = ReadFrequency(text, unitsInMhz);
  mhz = frequency.value_or(0.0F);
  return frequency ? FormatSingle(mhz) : std::string();
}

}  // namespace

double BandFromFrequency(float mhz) {
  const double whole = WholeMhz(mhz);
  for (const auto& band : Bands) {
    if (whole >= band.FromMhz && whole <= band.ToMhz) return band.Edge;
  }
  return whole;
}

std::string FormatFrequencyKHz(std::string_view text, float& mhz) {
  return FormatFrequency(text, KHzInMhz, mhz);
}

std::string FormatFrequencyMHz(std::string_view text, float& mhz) {
  return FormatFrequency(text, 1, mhz);
}

float MhzFromKHz(std::string_view text) {
  return ReadFrequency(text, KHzInMhz).value_or(0.0F);
}

std::string DuplicateKey(std::string_view stationBaseCallsign, float mhz) {
  return std::string(stationBaseCallsign).append(RoundedToThreeDecimalsText(mhz));
}

double MetersToFeet(double meters) {
  return meters * 3.2808399;
}

}  // namespace brelwin
