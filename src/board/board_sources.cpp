#include "board/board_sources.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_set>
#include <utility>

#include "alerts/matching.h"
#include "base/text.h"
#include "board/quit_words.h"
#include "radio/callsign.h"
#include "radio/dates.h"
#include "radio/frequency.h"

namespace brelwin {
namespace {

constexpr std::int64_t SecondsOfDay = 86'400;
constexpr std::int64_t MostSecondsOnTheWay = 120;

// Some services give no IDs.
const std::string& IdentityOf(const Spot& spot) {
  return spot.ID.empty() ? spot.SpotKey : spot.ID;
}

StationOnSummit StationOf(const SOTAAlert& alert) {
  return {alert.Station, alert.stationBaseCallsign, alert.SummitDesignator, alert.SummitName,
          alert.SummitPoints};
}

void AddAnnouncement(AnnouncementsRead& read, const SOTAAlert& alert, const SpotFilter& filter,
                     Withdrawal withdrawn) {
  if (!alert.UTCAlertDateAndTime) return;
  const auto planned = *alert.UTCAlertDateAndTime;
  const auto window = EffectiveWindow(alert, filter);
  const Announcement what{alert.AlertKey,
                          AddMinutes(planned, -window.MinutesBefore),
                          planned,
                          AddMinutes(planned, window.MinutesAfter),
                          alert.FrequencyModes,
                          alert.Comment,
                          withdrawn};
  read.All.push_back({StationOf(alert), what});
}

// The first characters up to a blank; what follows it is left. Words are short: searching for their end by
// the library costs more than looking.
std::string_view TakeWord(std::string_view& text) {
  std::size_t length = 0;
  while (length < text.size() && text[length] != ' ') ++length;
  const auto word = text.substr(0, length);
  text.remove_prefix(length);
  return word;
}

void SkipBlanks(std::string_view& text) {
  std::size_t count = 0;
  while (count < text.size() && text[count] == ' ') ++count;
  text.remove_prefix(count);
}

// The moment of that clock time which is nearest to now.
DateTime Nearest(DateTime clock, DateTime now) {
  const auto apart = clock.Seconds - now.Seconds;
  const auto days = std::llround(static_cast<double>(apart) / static_cast<double>(SecondsOfDay));
  return AddSeconds(clock, -days * SecondsOfDay);
}

// A skimmer whose clock is ahead heard it just now.
DateTime TimeHeard(SpotLine& line, DateTime utcNow) {
  const auto clock = ReadDateTime(UTCTimeText(line.Field(SpotField::Time)));
  if (!clock || !IsTimeAlone(*clock)) return utcNow;
  const auto time = Nearest(*clock, utcNow);
  return utcNow.Seconds - time.Seconds > MostSecondsOnTheWay ? time : utcNow;
}

std::int32_t Whole(float value) {
  return static_cast<std::int32_t>(std::lround(std::clamp(value, -1000.0F, 1000.0F)));
}

}  // namespace

AnnouncementsRead AnnouncementsOf(const AlertCollection& alerts, const SpotFilter& filter) {
  AnnouncementsRead read;
  for (const auto& [key, placed] : alerts.All())
    AddAnnouncement(read, *placed.Alert, filter, Withdrawal::None);
  std::unordered_set<std::string_view> keys;
  for (const auto& [station, withdrawn] : alerts.AllWithdrawn()) {
    for (const auto& [alert, reason] : withdrawn) {
      const bool isNew = !alerts.Contains(alert->AlertKey) && keys.insert(alert->AlertKey).second;
      if (isNew) AddAnnouncement(read, *alert, filter, reason);
    }
  }
  return read;
}

std::optional<SotawatchSpotRead> SotawatchSpotOf(const Spot& spot, DateTime utcNow) {
  if (spot.Kind == SpotKind::Test || spot.stationBaseCallsign.empty()) return {};
  const StationOnSummit who{spot.Station, spot.stationBaseCallsign, std::string(Trim(spot.SummitDesignator)),
                            spot.SummitName, spot.SummitPoints};
  const Report what{IdentityOf(spot),    spot.UTCDateTime.value_or(utcNow),
                    spot.FrequencyInMhz, UpperCase(spot.ModeString),
                    spot.Comment,        spot.Spotter,
                    spot.IsSelfSpot,     spot.Kind == SpotKind::Gone || SaysQRT(spot.Comment)};
  return SotawatchSpotRead{who, what};
}

SotawatchSpotTakenBack TakenBack(const Spot& spot) {
  return {spot.stationBaseCallsign, IdentityOf(spot)};
}

GatewayDecided DecisionOf(const Spot& spot, DateTime utcNow, bool wasSent, std::string_view words) {
  return {spot.stationBaseCallsign, {utcNow, wasSent, std::string(words)}};
}

std::string_view StationInLine(std::string_view line) {
  if (!line.starts_with(SpotLineStart)) return {};
  const auto end = line.find(':');
  if (end == std::string_view::npos) return {};
  line.remove_prefix(end + 1);
  SkipBlanks(line);
  TakeWord(line);
  SkipBlanks(line);
  return TakeWord(line);
}

std::optional<SkimmerHeard> SkimmerHeardIn(std::string_view line, DateTime utcNow) {
  if (!line.starts_with(SpotLineStart)) return {};
  SpotLine fields;
  fields.Read(Trim(line.substr(SpotLineStart.size())));
  SkimmerHeard heard;
  heard.Station = fields.Field(SpotField::Station);
  heard.BaseCallsign = GetBaseCallsign(heard.Station);
  if (heard.BaseCallsign.empty()) return {};
  auto& what = heard.What;
  what.When = TimeHeard(fields, utcNow);
  what.FrequencyInMhz = MhzFromKHz(fields.Field(SpotField::Frequency));
  what.Mode = UpperCase(fields.Field(SpotField::Mode));
  what.Skimmer = SkimmerCallsign(fields.Field(SpotField::Skimmer));
  what.Signal = Whole(NumberBefore("dB", fields.Field(SpotField::SignalToNoise)));
  what.Speed = Whole(NumberBefore("WPM", fields.Field(SpotField::Speed)));
  return heard;
}

}  // namespace brelwin
