// The whole program on the test host: its settings, its addresses, and what comes to it.
#pragma once

#include <string>
#include <string_view>

#include "alerts_page_text.h"
#include "cycle/program.h"
#include "feed_text.h"
#include "spots/spot_text.h"
#include "test_host.h"

namespace brelwin::test {

inline constexpr auto FeedAddress = "http://feed.test/rss";
inline constexpr auto AlertsAddress = "http://alerts.test/page";

inline const std::string HeardLine =
    "DX de KM3T-2-#:  14062.0  G4ABC          CW    24 dB  22 WPM  CQ      1201Z\r\n";

struct ProgramStory : TestHost {
  ProgramStory() {
    Internet.AnswerAlways(FeedAddress, FeedText({}));
    Internet.AnswerAlways(AlertsAddress, Heading() + Table({.Time = "12:10"}));
  }

  // Lines of the settings file by their sections; of two for the same setting the first counts.
  void Settings(const std::string& general, const std::string& stream = {}, const std::string& gateway = {}) {
    Disk.Put("/brelwin/Brelwin.INI",
             "[General]\r\n" + general + "SotawatchSpotsViaRSS=1\r\n[ReverseBeaconNetwork]\r\n" + stream +
                 "RBNCallsign=Q0ZZ\r\nMaxMinutesBeforeAlertTime=60\r\nMaxMinutesAfterAlertTime=60\r\n"
                 "SOTAAlertsRefreshInterval=5\r\n[Gateway]\r\n" +
                 gateway + "[URLTemplates]\r\nSotawatchRSS=" + FeedAddress + "\r\nSotawatchAlerts=" +
                 AlertsAddress + "\r\nTwitter=http://twitter.test/search?since_id=ZZZZ\r\n");
  }

  static ScriptedPeer LoggingIn() {
    return ScriptedPeer()
        .Accepts()
        .Sends("Please enter your callsign: ")
        .Expects("Q0ZZ\r\n")
        .Sends("Hello, Q0ZZ!\r\n");
  }

  std::size_t ReadsOf(std::string_view url) const {
    std::size_t reads = 0;
    for (const auto& query : Internet.Queries) reads += query.Url == url ? 1U : 0U;
    return reads;
  }

  Screen& Window() { return Brelwin.Controls(); }
  SpotListBox& List() { return Window().Spots.txtSPOTList; }

  // The spots of the list, top first.
  const SpotRows& ListedSpots() { return std::get<SpotRows>(List().Contents.Get()); }

  // The list as it reads on the screen: its text, or the lines of its spots.
  std::string ListText() {
    if (const auto* text = std::get_if<std::string>(&List().Contents.Get())) return *text;
    std::string lines;
    for (const auto& spot : ListedSpots()) lines += FixedWidthLine(*spot) + std::string(LineEnd);
    return lines;
  }

  Program Brelwin{World};
};

}  // namespace brelwin::test
