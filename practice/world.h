// The cast and the stage of the practice network: summits, operators, chasers, bands and what people say.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

struct Summit {
  std::string_view Reference;
  std::string_view Name;
  int Meters;
  int Points;
  double Latitude;   // degrees, north is positive
  double Longitude;  // degrees, east is positive
};

// Where a mode is used: from and to in units of 100 Hz, and the distance of neighbouring channels.
struct BandPlan {
  std::string_view Mode;
  std::int64_t From;
  std::int64_t To;
  std::int64_t Step;
};

std::span<const Summit> Summits();
std::span<const std::string_view> Operators();
std::span<const std::string_view> Chasers();

// The callsigns of so many more operators, none of them among the others.
std::vector<std::string> CrowdCallsigns(std::size_t count);

std::span<const BandPlan> BandPlans();

// Comments as everybody writes them, and those that are hard on a reader: markup characters, quotes, the
// feed's own words, very long, other alphabets, several lines, separators of log files.
std::span<const std::string_view> OrdinaryComments();
std::span<const std::string_view> AwkwardComments();

}  // namespace practice
