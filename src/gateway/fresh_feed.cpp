#include "gateway/fresh_feed.h"

#include <algorithm>

#include "alerts/alert_commands.h"
#include "alerts/sota_alert.h"
#include "radio/callsign.h"
#include "radio/frequency.h"
#include "spots/rss_feed.h"
#include "spots/service_feed.h"
#include "spots/service_terms.h"
#include "spots/spot_collections.h"

namespace brelwin {
namespace {

// The spotter is the station itself, if by another form of its callsign, or is trusted.
bool SpeaksForStation(const Spot& held, const Spot& spot) {
  if (!MayBeSameStation(held.Station, spot.Station)) return false;
  auto word = held;
  word.IsSelfSpot = held.IsSelfSpot || MayBeSameStation(held.Spotter, held.Station);
  return IsAlertCommand(word);
}

void ReadByRSS(Gateway& gateway, std::int32_t maximumAgeInMinutes, FreshFeed& feed) {
  RSSReadRequest request;
  request.Url = gateway.Settings.Addresses.SotawatchRSS;
  request.MaximumAgeInMinutes = maximumAgeInMinutes;
  request.KeyByStationAndFrequency = true;
  request.All = &feed.All;
  ReadSotawatchRSS(gateway.World, request, gateway.KnownActivators, feed.ByKey);
}

void ReadByService(Gateway& gateway, std::int32_t maximumAgeInMinutes, FreshFeed& feed) {
  const auto& addresses = gateway.Settings.Addresses;
  const auto obstacle = ObstacleOfService(addresses.SotawatchAPI, addresses.SotawatchAPITermsConfirmed);
  feed.MayBeAsked =
      obstacle == ServiceObstacle::None && gateway.Service->Schedule().MayAskBeside(gateway.World.Time.Now());
  if (!feed.MayBeAsked) return;
  feed.All = ReadServiceBeside(gateway.World, *gateway.Service, addresses.SotawatchAPI, maximumAgeInMinutes,
                               gateway.KnownActivators);
  for (const auto& spot : feed.All)
    AddObjectToCollection(spot, DuplicateKey(spot->stationBaseCallsign, spot->FrequencyInMhz), feed.ByKey);
}

}  // namespace

FreshFeed ReadFreshFeed(Gateway& gateway, std::int32_t maximumAgeInMinutes) {
  FreshFeed feed;
  const bool isByService = gateway.ServiceBox != nullptr && gateway.ServiceBox->Value;
  (isByService ? ReadByService : ReadByRSS)(gateway, maximumAgeInMinutes, feed);
  std::erase_if(feed.All, [&](const auto& spot) { return gateway.Posted.Holds(*spot); });
  for (const auto& spot : feed.All)
    spot->SpotterIsTrustedSpotter = gateway.TrustedSpotters.Contains(spot->SpotterBaseCallsign);
  return feed;
}

DupeSearch SearchFeed(const FreshFeed& feed, const Spot& spot, DupeAge age) {
  if (!feed.MayBeAsked) return {DupeFinding::NotAsked, nullptr};
  const auto speaks = [&](const SpotPointer& held) { return SpeaksForStation(*held, spot); };
  const auto optOut = std::ranges::find_if(
      feed.All, [&](const auto& held) { return HoldsOptOutWord(held->Comment) && speaks(held); });
  if (optOut != feed.All.end() && std::none_of(feed.All.begin(), optOut, speaks))
    return {DupeFinding::OptedOut, *optOut};
  return SearchFeedSpots(feed.ByKey, spot, age);
}

}  // namespace brelwin
