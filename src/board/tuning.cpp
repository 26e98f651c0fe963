#include "board/tuning.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "radio/frequency.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::int64_t SecondsOfMedian = 180;
constexpr double FarthestInPlace = 0.002;  // MHz
constexpr double FloatNoise = 0.00005;     // MHz; skimmers tell a tenth of a kilohertz

using Newest = std::map<std::string_view, const Hearing*>;

Newest NewestOfSkimmers(const ActivationFacts& facts, DateTime since, DateTime now) {
  Newest newest;
  for (const auto& hearing : facts.Hearings) {
    if (hearing.When >= since && now.Seconds - hearing.When.Seconds <= SecondsOfMedian)
      newest[hearing.Skimmer] = &hearing;
  }
  return newest;
}

// Where as many skimmers are in one band as in another, the one heard last counts.
double BandOfMost(const Newest& newest) {
  struct Votes {
    int Count = 0;
    DateTime Last;
    auto operator<=>(const Votes&) const = default;
  };
  std::map<double, Votes> votes;
  for (const auto& [skimmer, hearing] : newest) {
    auto& band = votes[BandFromFrequency(hearing->FrequencyInMhz)];
    ++band.Count;
    band.Last = std::max(band.Last, hearing->When);
  }
  return std::ranges::max_element(votes, {}, [](const auto& entry) { return entry.second; })->first;
}

Tuning TuningOf(const Report& report) {
  return {report.FrequencyInMhz, report.Mode, report.When, report.IsSelfSpot};
}

std::int64_t LinesSince(const ActivationFacts& facts, DateTime since) {
  return std::ranges::count_if(facts.Hearings, [&](const Hearing& hearing) { return hearing.When >= since; });
}

struct NamedBand {
  float FromMhz;
  float ToMhz;
  std::string_view Name;
};

// The widest edges of the band plans of the three regions.
constexpr std::array<NamedBand, 20> NamedBands = {{
    {0.1357F, 0.1378F, "2200m"}, {0.472F, 0.479F, "630m"},   {1.8F, 2.0F, "160m"},
    {3.5F, 4.0F, "80m"},         {5.06F, 5.45F, "60m"},      {7.0F, 7.3F, "40m"},
    {10.1F, 10.15F, "30m"},      {14.0F, 14.35F, "20m"},     {18.068F, 18.168F, "17m"},
    {21.0F, 21.45F, "15m"},      {24.89F, 24.99F, "12m"},    {28.0F, 29.7F, "10m"},
    {50.0F, 54.0F, "6m"},        {69.9F, 71.0F, "4m"},       {144.0F, 148.0F, "2m"},
    {219.0F, 225.0F, "1.25m"},   {420.0F, 450.0F, "70cm"},   {902.0F, 928.0F, "33cm"},
    {1240.0F, 1300.0F, "23cm"},  {2300.0F, 2450.0F, "13cm"},
}};

}  // namespace

std::string_view BandName(float mhz) {
  const auto* const band = std::ranges::find_if(
      NamedBands, [&](const NamedBand& named) { return named.FromMhz <= mhz && mhz <= named.ToMhz; });
  return band == NamedBands.end() ? std::string_view() : band->Name;
}

// The edge of some is the whole MHz below.
std::string_view NameOfBand(double edge) {
  const auto* const band = std::ranges::find_if(NamedBands, [&](const NamedBand& named) {
    return edge <= double{named.ToMhz} && double{named.FromMhz} < edge + 1;
  });
  return band == NamedBands.end() ? std::string_view() : band->Name;
}

bool IsNameOfBand(std::string_view word) {
  return std::ranges::any_of(NamedBands,
                             [&](const NamedBand& named) { return EqualsIgnoringCase(named.Name, word); });
}

bool IsQSY(const Tuning& from, const Tuning& to) {
  if (!from.Mode.empty() && !to.Mode.empty() && !EqualsIgnoringCase(from.Mode, to.Mode)) return true;
  const auto distance = std::fabs(double{from.FrequencyInMhz} - double{to.FrequencyInMhz});
  return distance > FarthestInPlace + FloatNoise ||
         BandFromFrequency(from.FrequencyInMhz) != BandFromFrequency(to.FrequencyInMhz);
}

std::optional<Tuning> TuningBySkimmers(const ActivationFacts& facts, DateTime since, DateTime now) {
  const auto newest = NewestOfSkimmers(facts, since, now);
  if (newest.empty()) return {};
  const auto band = BandOfMost(newest);
  std::vector<const Hearing*> inBand;
  for (const auto& [skimmer, hearing] : newest) {
    if (BandFromFrequency(hearing->FrequencyInMhz) == band) inBand.push_back(hearing);
  }
  const auto median = inBand.begin() + static_cast<std::ptrdiff_t>((inBand.size() - 1) / 2);
  std::ranges::nth_element(inBand, median, {}, &Hearing::FrequencyInMhz);
  return Tuning{(*median)->FrequencyInMhz, (*median)->Mode, (*median)->When, false};
}

std::optional<Tuning> TuningAfterHearing(const std::optional<Tuning>& before, const ActivationFacts& facts) {
  if (facts.Hearings.empty()) return before;
  const auto now = facts.Hearings.back().When;
  if (!before) return TuningBySkimmers(facts, {}, now);
  const auto since = before->IsByActivator ? before->Since : DateTime{};
  auto heard = TuningBySkimmers(facts, since, now);
  if (!heard) return before;
  if (before->IsByActivator && (!IsQSY(*before, *heard) || LinesSince(facts, since) < 2)) return before;
  return heard;
}

std::optional<Tuning> TuningAfterReport(const std::optional<Tuning>& before, const ActivationFacts& facts) {
  if (facts.Reports.empty() || facts.Reports.back().FrequencyInMhz <= 0) return before;
  const auto& report = facts.Reports.back();
  const bool skimmersKnow = TuningBySkimmers(facts, {}, report.When).has_value();
  if (before && !report.IsSelfSpot && skimmersKnow) return before;
  return TuningOf(report);
}

std::string KilohertzText(float mhz) {
  std::array<char, 48> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), RoundedToThreeDecimals(mhz),
                                     std::chars_format::fixed, 3);
  return {text.data(), written.ptr};
}

std::string TuningText(const Tuning& tuning) {
  auto text = KilohertzText(tuning.FrequencyInMhz);
  return tuning.Mode.empty() ? text : text + " " + tuning.Mode;
}

}  // namespace brelwin
