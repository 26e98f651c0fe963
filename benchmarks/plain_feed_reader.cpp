#include "plain_feed_reader.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "base/date_time.h"
#include "taking.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::string_view Months = "JanFebMarAprMayJunJulAugSepOctNovDec";

// "Tue, 24 Nov 2026 10:00:00 GMT"
CalendarTime CalendarIn(std::string_view date) {
  return {NumberIn<int>(date.substr(12, 4)), static_cast<int>(Months.find(date.substr(8, 3)) / 3 + 1),
          NumberIn<int>(date.substr(5, 2)),  NumberIn<int>(date.substr(17, 2)),
          NumberIn<int>(date.substr(20, 2)), NumberIn<int>(date.substr(23, 2))};
}

void AppendTwoDigits(std::string& text, int number) {
  text.push_back(static_cast<char>('0' + number / 10));
  text.push_back(static_cast<char>('0' + number % 10));
}

void TakeTitle(Spot& spot, std::string_view title) {
  spot.Station = TakeUntil(title, " on ");
  spot.stationBaseCallsign = BaseOf(spot.Station);
  spot.SummitDesignator = TakeUntil(title, " ");
  TakeUntil(title, " ");
  spot.FrequencyString = TakeUntil(title, " ");
  spot.ModeString = title;
}

void TakeFrequency(Spot& spot) {
  spot.FormattedFrequencyString = spot.FrequencyString;
  spot.FrequencyInMhz = NumberIn<float>(spot.FrequencyString);
  const auto whole = static_cast<int>(spot.FrequencyInMhz);
  spot.BandInMhz = whole == 3     ? 3.5F
                   : whole == 145 ? 144.0F
                   : whole == 432 ? 420.0F
                                  : static_cast<float>(whole);
}

std::int16_t CodeOf(std::string_view mode) {
  constexpr std::array<std::string_view, 5> Codes = {"", "CW", "SSB", "FM", "PSK"};
  const auto code = std::ranges::find(Codes, mode);
  return static_cast<std::int16_t>(code == Codes.end() ? 0 : code - Codes.begin());
}

void TakeTime(Spot& spot, std::string_view date, const ReadingMoment& moment) {
  const auto parts = CalendarIn(date);
  const auto utc = *DateTimeFromCalendar(parts);
  spot.UTCDateTime = utc;
  spot.LocalDateAndTime = AddMinutes(utc, -moment.TimeZoneOffset);
  spot.TimeOfSpot = moment.Now - std::chrono::seconds(moment.UTCNow.Seconds - utc.Seconds);
  spot.UTCTime = date.substr(17, 5);
  spot.ID = date.substr(12, 4);
  for (const auto number : {parts.Month, parts.Day, parts.Hour, parts.Minute, parts.Second})
    AppendTwoDigits(spot.ID, number);
  spot.ID.append(spot.Station).append(spot.Spotter);
}

void TakeDescription(Spot& spot, std::string_view description) {
  spot.Comment = TakeUntil(description, " (Posted by ");
  spot.Spotter = TakeUntil(description, ")");
  spot.SpotterBaseCallsign = BaseOf(spot.Spotter);
  spot.IsSelfSpot = spot.SpotterBaseCallsign == spot.stationBaseCallsign;
}

}  // namespace

void ReadMadeFeed(std::string_view feed, const ReadingMoment& moment, CallsignCollection& knownActivators,
                  SpotCollection& spots) {
  std::int32_t order = 0;
  for (auto at = feed.find("<title>"); at != std::string_view::npos; at = feed.find("<title>")) {
    auto made = std::make_shared<Spot>();
    auto& spot = *made;
    spot.OrderReceived = ++order;
    feed.remove_prefix(at + std::string_view("<title>").size());
    TakeTitle(spot, TakeUntil(feed, "<"));
    TakeUntil(feed, "<pubDate>");
    const auto date = TakeUntil(feed, "<");
    TakeUntil(feed, "<description>");
    TakeDescription(spot, TakeUntil(feed, "<"));
    TakeFrequency(spot);
    spot.mode = CodeOf(spot.ModeString);
    TakeTime(spot, date, moment);
    spot.IsKnownActivator = !knownActivators.Add(spot.stationBaseCallsign, spot.stationBaseCallsign);
    spots.Add(std::move(made), spot.ID);
  }
}

}  // namespace brelwin::benchmarks
