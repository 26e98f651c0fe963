#include "spots/spot_maker.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/mode.h"
#include "spots/known_activators.h"

namespace brelwin {
namespace {

// A spot that the gateway posted under the activator's own callsign is not the activator's own.
bool IsSelfSpot(const Spot& spot) {
  return spot.SpotterBaseCallsign == spot.stationBaseCallsign && !Contains(spot.Comment, "{Via Tarnlink}");
}

// No spot is younger than its reading: one dated later was stamped before the wall clock was set back.
void SetTime(Spot& spot, std::optional<DateTime> utc, const ReadingMoment& moment) {
  if (!utc) return;
  spot.UTCDateTime = utc;
  spot.UTCTime = ClockText(*utc);
  spot.LocalDateAndTime = AddMinutes(*utc, -moment.TimeZoneOffset);
  const auto age = std::max<std::int64_t>(0, moment.UTCNow.Seconds - utc->Seconds);
  spot.TimeOfSpot = moment.Now - std::chrono::seconds(age);
}

void SetFrequencyAndMode(Spot& spot, const SpotTitle& title) {
  spot.FrequencyString = title.Frequency;
  spot.FormattedFrequencyString = FormatFrequencyMHz(title.Frequency, spot.FrequencyInMhz);
  spot.BandInMhz = static_cast<float>(BandFromFrequency(spot.FrequencyInMhz));
  spot.ModeString = UpperCase(title.Mode);
  spot.mode = ModeCode(spot.ModeString);
}

void SetSummit(Spot& spot, const FeedItem& item) {
  spot.SummitDesignator = item.Title.Summit;
  spot.SummitName = item.Summit.Name;
  spot.SummitPoints = item.Summit.Points;
  spot.SummitElevationInMeters = item.Summit.ElevationInMeters;
  spot.SummitElevationInFeet =
      static_cast<std::int32_t>(std::lround(MetersToFeet(item.Summit.ElevationInMeters)));
  spot.SummitDescription = SummitDescriptionText(item.Summit);
}

// A spot that came by APRS was sent by the station itself.
void SetSpotter(Spot& spot, std::string_view spotter) {
  spot.IsAPRSSpot = Contains(spotter, "APRS");
  spot.Spotter = spot.IsAPRSSpot ? spot.Station : std::string(spotter);
  spot.SpotterBaseCallsign = spot.IsAPRSSpot ? spot.stationBaseCallsign : GetBaseCallsign(spotter);
}

}  // namespace

ReadingMoment ReadingMomentOf(const Host& host) {
  return {UTCNow(host.Time), host.Time.Now(), TimeZoneOffsetInMinutes(host.Time)};
}

MadeSpots SpotMaker::MakeSpots(const FeedItem& item) {
  std::string secondCallsign;
  const auto first = MakeFirst(item, secondCallsign);
  if (first == nullptr || secondCallsign.empty()) return {first, nullptr};
  return {first, MakeSecond(*first, secondCallsign)};
}

SpotPointer SpotMaker::MakeFirst(const FeedItem& item, std::string& secondCallsign) {
  auto callsign = GetBaseCallsign(item.Title.Callsigns, secondCallsign);
  if (callsign.empty()) return nullptr;

  auto spot = std::make_shared<Spot>();
  spot->Kind = item.Kind;
  spot->Station = item.Title.Station;
  spot->stationBaseCallsign = std::move(callsign);
  spot->OperatorName = item.OperatorName;
  SetSummit(*spot, item);
  spot->Comment = item.Comment;
  spot->OrderReceived = item.OrderReceived;
  SetTime(*spot, item.UTCDateTime, moment_);
  SetFrequencyAndMode(*spot, item.Title);
  SetSpotter(*spot, item.Spotter);
  spot->IsSelfSpot = IsSelfSpot(*spot);
  spot->IsKnownActivator = WasKnown(*spot);
  spot->ID = item.ID.empty() ? Identity(*spot) : std::string(item.ID);
  return spot;
}

SpotPointer SpotMaker::MakeSecond(const Spot& first, const std::string& callsign) {
  auto spot = std::make_shared<Spot>();
  spot->CopyMyPropertiesFromThisSpot(&first);
  spot->Station = callsign;
  spot->stationBaseCallsign = callsign;
  spot->HiddenFromDisplay = false;
  spot->IsSelfSpot = IsSelfSpot(*spot);
  spot->IsKnownActivator = WasKnown(*spot);
  spot->SpotKey = first.ID;
  spot->ID = Identity(*spot);
  return spot;
}

bool SpotMaker::WasKnown(const Spot& spot) {
  if (spot.Kind == SpotKind::Test) return knownActivators_.Contains(spot.stationBaseCallsign);
  return LearnActivator(spot.stationBaseCallsign, ShortestSpottedCallsign, knownActivators_,
                        learnedActivators_);
}

std::string SpotMaker::Identity(const Spot& spot) const {
  return CompactText(spot.UTCDateTime.value_or(moment_.UTCNow)) + spot.Station + spot.Spotter;
}

}  // namespace brelwin
