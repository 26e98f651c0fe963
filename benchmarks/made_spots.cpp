#include "made_spots.h"

#include <algorithm>
#include <array>
#include <random>
#include <tuple>

#include "base/text.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/numbers.h"

namespace brelwin::benchmarks {

const std::vector<std::string_view> Prefixes = {"G4",  "W6",  "K6",  "DL2", "HB9",
                                                "EA2", "OE5", "VK3", "JA1", "F5"};
const std::vector<std::string_view> Regions = {"G/LD-",   "W6/CT-", "W7/NG-",  "DL/AL-", "HB/BE-",
                                               "EA2/NV-", "OE/OO-", "VK3/VC-", "JA/NN-", "F/AB-"};
const std::vector<std::string_view> Modes = {"CW", "SSB",  "FM",  "PSK", "RTTY",
                                             "AM", "DATA", "FT8", "DV",  "OTHER"};
const std::vector<float> Frequencies = {3.532F,  7.032F,  10.118F, 14.062F,  14.285F,
                                        18.086F, 21.062F, 28.062F, 145.525F, 432.1F};

namespace {

constexpr std::array<std::string_view, 4> Comments = {
    "CQ CQ", "on top now, good signals", "QSY from 40 m, last call before descent, thanks for the points",
    "test"};

// The same choice for the same spot, whoever asks.
struct Dice {
  explicit Dice(std::size_t number) : Generator(static_cast<std::mt19937::result_type>(number)) {}
  std::size_t Throw(std::size_t sides) { return Generator() % sides; }
  template <class Choices>
  const auto& Pick(const Choices& choices) {
    return choices[Throw(choices.size())];
  }

  std::minstd_rand Generator;
};

// A thousand stations: as many as a busy day has.
std::string Callsign(Dice& dice) {
  std::string callsign(dice.Pick(Prefixes));
  for (int i = 0; i < 2; ++i) callsign.push_back(static_cast<char>('A' + dice.Throw(10)));
  return callsign;
}

std::string Reference(Dice& dice) {
  const auto number = std::to_string(1000 + dice.Throw(300));
  return std::string(dice.Pick(Regions)) + number.substr(1);
}

// "Tue, 24 Nov 2026 10:00:00 GMT"; no reader looks at the day's name.
std::string FeedDate(DateTime time) {
  const auto text = MonthFirstText(time);
  const auto parts = Split(text, " ");
  return "Tue, " + std::string(parts[1]) + " " + std::string(parts[0]) + " " + std::string(parts[2]) + " " +
         std::string(parts[3]) + " GMT";
}

std::string FeedItem(const Spot& spot, const std::string& date, const std::string& link) {
  return "<item>\r\n<title>" + spot.Station + " on " + spot.SummitDesignator + " 10pts " +
         spot.FormattedFrequencyString + " " + spot.ModeString + "</title>\r\n<link>" + link +
         "</link>\r\n<guid isPermaLink=\"true\">" + link + "</guid>\r\n<pubDate>" + date +
         "</pubDate>\r\n<description>" + spot.Comment + " (Posted by " + spot.Spotter +
         ")</description>\r\n</item>\r\n";
}

}  // namespace

SpotPointer MakeSpot(std::size_t number) {
  Dice dice(number);
  auto spot = std::make_shared<Spot>();
  spot->stationBaseCallsign = Callsign(dice);
  spot->Station = spot->stationBaseCallsign + (dice.Throw(2) == 0 ? "/P" : "");
  spot->Spotter = spot->SpotterBaseCallsign = Callsign(dice);
  spot->SummitDesignator = Reference(dice);
  spot->SummitName = "A summit with a name";
  spot->SummitPoints = static_cast<std::int16_t>(1 + dice.Throw(10));
  spot->FrequencyInMhz = dice.Pick(Frequencies);
  spot->FormattedFrequencyString = FormatSingle(spot->FrequencyInMhz);
  spot->BandInMhz = static_cast<float>(BandFromFrequency(spot->FrequencyInMhz));
  spot->ModeString = dice.Pick(Modes);
  spot->Comment = dice.Pick(Comments);
  spot->UTCTime = "10:05";
  spot->ID = std::to_string(20261124100500U + number) + spot->Station + spot->Spotter;
  return spot;
}

SpotCollection MakeSpots(std::size_t first, std::size_t count) {
  SpotCollection spots;
  for (std::size_t number = first; number < first + count; ++number) {
    auto spot = MakeSpot(number);
    spots.Add(spot, spot->ID);
  }
  return spots;
}

std::string MakeFeed(std::size_t count, DateTime newest) {
  std::string feed = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<rss version=\"2.0\">\r\n<channel>\r\n";
  for (std::size_t i = 0; i < count; ++i) {
    const auto time = AddSeconds(newest, -static_cast<std::int64_t>(i));
    feed += FeedItem(*MakeSpot(i), FeedDate(time), "http://localhost/spots/" + std::to_string(i));
  }
  return feed + "</channel>\r\n</rss>\r\n";
}

namespace {

auto TextsOf(const Spot& spot) {
  return std::tie(spot.Comment, spot.FormattedFrequencyString, spot.FrequencyString, spot.ID,
                  spot.LogLineFollowing, spot.LogLinePreceeding, spot.ModeString, spot.OperatorName,
                  spot.Spot, spot.SpotKey, spot.Spotter, spot.SpotterBaseCallsign, spot.SpotTypeString,
                  spot.Station, spot.stationBaseCallsign, spot.SummitDescription, spot.SummitDesignator,
                  spot.SummitName, spot.UTCTime, spot.WindowReference);
}

auto NumbersOf(const Spot& spot) {
  return std::tie(spot.BandInMhz, spot.FrequencyInMhz, spot.LocalDateAndTime, spot.Kind, spot.mode,
                  spot.OrderReceived, spot.SignalToNoiseRatio, spot.Speed, spot.SummitElevationInFeet,
                  spot.SummitElevationInMeters, spot.SummitPoints, spot.UTCDateTime, spot.TimeOfSpot);
}

auto FlagsOf(const Spot& spot) {
  return std::tie(spot.HiddenFromDisplay, spot.IsKnownActivator, spot.IsMatchedToAlert, spot.IsAPRSSpot,
                  spot.IsEdited, spot.IsRBNSpot, spot.IsSMSSpot, spot.IsSelfSpot,
                  spot.SpotterIsTrustedSpotter);
}

}  // namespace

bool AreSameSpots(const SpotCollection& left, const SpotCollection& right) {
  return std::equal(
      left.begin(), left.end(), right.begin(), right.end(), [](const auto& one, const auto& other) {
        return one.Key == other.Key && TextsOf(*one.Item) == TextsOf(*other.Item) &&
               NumbersOf(*one.Item) == NumbersOf(*other.Item) && FlagsOf(*one.Item) == FlagsOf(*other.Item);
      });
}

}  // namespace brelwin::benchmarks
