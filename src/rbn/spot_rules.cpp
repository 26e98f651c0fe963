#include "rbn/spot_rules.h"

namespace brelwin {

SpotRules::SpotRules(const SpotFilter& filter)
    : anyType_(filter.IncludeAllSpotTypes),
      knownActivatorsOnly_(filter.FilterKnownActivators),
      matchedOnly_(filter.FilterSotawatchMatchingAlert),
      dropRepeated_(filter.FilterDuplicateSpots),
      stations_(filter.RBNStation),
      bands_(filter.RBNBand),
      modes_(filter.RBNMode),
      spotters_(filter.RBNSpotter),
      excludedSpotters_(filter.RBNSpotterExclude) {}

SpotVerdict SpotRules::Decide(SpotFacts& facts) const {
  if (!anyType_ && !facts.IsCQ()) return SpotVerdict::OtherType;
  if (knownActivatorsOnly_ && !facts.IsKnownActivator()) return SpotVerdict::UnknownActivator;
  if (matchedOnly_ && !facts.IsMatchedToAlert()) return SpotVerdict::NoMatchingAlert;
  if (dropRepeated_ && facts.IsRepeated()) return SpotVerdict::Repeated;
  return DecideByLists(facts);
}

SpotVerdict SpotRules::DecideByLists(SpotFacts& facts) const {
  const auto isMissing = [](const FilterList& list, auto&& value) {
    return !list.MatchesEverything() && !list.Matches(value());
  };
  if (isMissing(stations_, [&] { return facts.StationBaseCallsign(); })) return SpotVerdict::StationNotWanted;
  if (isMissing(bands_, [&] { return facts.BandText(); })) return SpotVerdict::BandNotWanted;
  if (isMissing(modes_, [&] { return facts.ModeText(); })) return SpotVerdict::ModeNotWanted;
  if (isMissing(spotters_, [&] { return facts.SpotterBaseCallsign(); })) return SpotVerdict::SpotterNotWanted;
  const bool isExcluded =
      !excludedSpotters_.MatchesEverything() && excludedSpotters_.Matches(facts.SpotterBaseCallsign());
  return isExcluded ? SpotVerdict::SpotterExcluded : SpotVerdict::Kept;
}

}  // namespace brelwin
