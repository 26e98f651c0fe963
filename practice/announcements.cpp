#include "announcements.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <utility>

#include "day_script.h"
#include "escape.h"
#include "feed.h"
#include "random.h"
#include "times.h"
#include "world.h"

namespace practice {
namespace {

using std::string;
using std::string_view;

constexpr std::int64_t Minute = 60;
constexpr std::int64_t Hour = 60 * Minute;
constexpr std::int64_t DaysAhead = 3;

constexpr std::array<string_view, 15> Remarks{
    "CW first, then SSB if there is time",
    "",
    "start may be late S+2",
    "perhaps early S-1.5 and late S+3",
    "Weather permitting & battery > 50 %, \"QRP\" only",
    "CANCELLED, too much snow",
    "Not today - canceled",
    "RBNN please",
    "no tarnlink, I spot myself",
    "Schöne Grüße, 73 à tous",
    "ascent with <b>two</b> dogs || one rope",
    "Family walk, short activation",
    "S2S very welcome",
    "time is +/- 30 minutes",
    "yesterday GM/SS-064, today here",
};

string MegahertzAndMode(const ScriptedSpot& spot) {
  auto mode = spot.Mode;
  std::ranges::transform(mode, mode.begin(), [](char c) { return static_cast<char>(c | 0x20); });
  return spot.Frequency + "-" + mode;
}

string JoinedByAmpersand(string station) {
  if (const auto at = station.find(" AND "); at != string::npos) station.replace(at, 5, " & ");
  return station;
}

// What an operator tells beforehand of an activation, of which `spot` is the first spot.
Announcement Announce(Random& random, const ScriptedSpot& spot, const Playing& playing) {
  Announcement announcement;
  announcement.Time = PresentTime(spot.Second, playing.Speed, playing.Origin) / Minute * Minute;
  announcement.Station = JoinedByAmpersand(spot.Station);
  announcement.Summit = spot.Summit;
  announcement.FrequencyModes = MegahertzAndMode(spot);
  announcement.Comment = SomeRemark(random);
  announcement.Poster = spot.Station.substr(0, spot.Station.find(' '));
  return announcement;
}

// Some announce two summits for about the same time, and see in the morning.
Announcement OtherPlan(Random& random, Announcement announcement) {
  announcement.Time += (random.OneIn(2) ? 1 : -1) * random.Between(20, 90) * Minute;
  announcement.Summit = random.Pick(Summits()).Reference;
  announcement.Comment = "or the other one, if the weather is better there";
  return announcement;
}

void AnnounceDay(const Playing& playing, std::int64_t day, std::vector<Announcement>& announcements) {
  Random random(playing.Seed, static_cast<std::uint64_t>(day + 1000));
  std::map<std::pair<string, string>, bool> seen;  // station and summit: whether it was announced
  for (const auto& spot : ScriptDay(playing.Seed, day, playing.Crowd)) {
    const auto [activation, isNew] = seen.try_emplace({spot.Station, spot.Summit}, !random.OneIn(4));
    if (!activation->second) continue;
    if (isNew) {
      const auto announcement = Announce(random, spot, playing);
      if (random.OneIn(5)) announcements.push_back(OtherPlan(random, announcement));
      announcements.push_back(announcement);
    } else if (announcements.back().Summit == spot.Summit) {
      announcements.back().FrequencyModes += ", " + MegahertzAndMode(spot);
    }
  }
}

string SummitPopUp(string_view reference) {
  const auto summits = Summits();
  const auto found = std::ranges::find(summits, reference, &Summit::Reference);
  if (found == summits.end()) return {};
  return MarkupText(found->Name, Markup::NumericEntities) + ", " + std::to_string(found->Meters) + "m, " +
         std::to_string(found->Points) + (found->Points == 1 ? " point." : " points.");
}

string Table(const Announcement& announcement) {
  const auto text = [](string_view plain) { return MarkupText(plain, Markup::NamedEntities); };
  return "<table class=\"spots\">\n<tr onMouseOver=\"return overlib('<strong>Operator:</strong> " +
         text(announcement.Poster) + "<br><strong>Summit:</strong> " + SummitPopUp(announcement.Summit) +
         "', WIDTH, 300);\" onMouseOut=\"return nd();\">\n<td width=\"60\"><strong>" +
         ClockTime(announcement.Time) + "</strong></td>\n<td width=\"220\"><strong>" +
         text(announcement.Station) + "</strong> on <a href=\"summits.php?summit=" + announcement.Summit +
         "\">" + announcement.Summit + "</a></td>\n<td>" + text(announcement.FrequencyModes) +
         "</td>\n</tr>\n<tr><td></td><td colspan=\"2\"><span class=\"comment\">" +
         text(announcement.Comment) + "</span> <span class=\"poster\">(Posted by " +
         text(announcement.Poster) + ")</span></td></tr>\n</table>\n";
}

}  // namespace

std::string SomeRemark(Random& random) {
  return string(random.Pick(Remarks));
}

std::vector<Announcement> OpeningAct(std::int64_t origin) {
  const auto at = [origin](std::int64_t minutes) { return origin / Minute * Minute + minutes * Minute; };
  return {{at(-13), "G7ABC/P", "G/SP-004", "7.032-cw", "only a quarter of an hour S-0.25 S+0.25", "G7ABC"},
          {at(-20), "OE7ABC/P", "OE/TI-015", "14.062-cw", "CANCELLED, thunderstorm", "OE7ABC"},
          {at(10), "DL7XYZ/P", "DM/BW-012", "10.118-cw", "RBNN please", "DL7XYZ"}};
}

std::vector<Announcement> AnnouncementBook::Announcements(std::int64_t now) {
  const auto today =
      static_cast<std::int64_t>(static_cast<double>(now - playing_.Origin) * playing_.Speed) / SecondsOfDay;
  if (today != today_) {
    all_.clear();
    for (auto day = today - 1; day <= today + DaysAhead; ++day) AnnounceDay(playing_, day, all_);
    if (playing_.HasOpeningAct) std::ranges::copy(OpeningAct(playing_.Origin), std::back_inserter(all_));
    std::ranges::stable_sort(all_, {}, &Announcement::Time);
    today_ = today;
  }
  const auto first = std::ranges::lower_bound(all_, now - Hour, {}, &Announcement::Time);
  return {first, all_.end()};
}

string AlertsPage(const std::vector<Announcement>& announcements) {
  string page =
      "<!DOCTYPE html>\n<html>\n<head><meta charset=\"utf-8\"><title>Sotawatch "
      "alerts</title></head>\n<body>\n";
  string heading;
  for (const auto& announcement : announcements) {
    if (const auto day = DayHeading(announcement.Time); day != heading) {
      heading = day;
      page += "<p><span class=\"alertDate\">" + day + "</span></p>\n";
    }
    page += Table(announcement);
  }
  return page + "</body>\n</html>\n";
}

}  // namespace practice
