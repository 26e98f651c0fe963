// From the text of the alerts page to alerts: markup, windows, withdrawals, what is learned and logged.
#include <gtest/gtest.h>

#include "alert_properties.h"
#include "alerts/alert_window.h"
#include "alerts/alerts_page.h"
#include "alerts_page_text.h"
#include "random_text.h"
#include "test_host.h"

namespace brelwin {
namespace {

using test::Heading;
using test::Table;

class AlertsPageTest : public ::testing::Test {
 protected:
  std::int32_t Take(const std::string& page, std::int32_t maximumHoursAhead = 0) {
    std::string errorText;
    const AlertsPageRequest request{"", 60, maximumHoursAhead};
    return TakeAlertsFromPage(host_.World, page, page.size(), request, alerts_, known_, errorText);
  }

  std::string Keys() const {
    std::string keys;
    for (const auto& entry : alerts_.All()) keys += entry.Item.Alert->AlertKey + "\n";
    return keys;
  }

  std::string Modifications() const { return host_.Disk.Text("/brelwin/SOTAAlertModifications.txt"); }
  void PutModifications(const std::string& text) {
    host_.Disk.Put("/brelwin/SOTAAlertModifications.txt", text);
  }
  bool IsLogged(const std::string& text) const { return Contains(host_.EventLog(), text); }

  test::TestHost host_;  // it is 2026-11-24 12:00 UTC
  AlertCollection alerts_;
  CallsignCollection known_;
};

TEST_F(AlertsPageTest, ReadsEveryFieldAsPeopleReadIt) {
  const auto table =
      Table({.Time = "13:30",
             .Callsign = "EA8/G4ABC/P",
             .Summit = "EA8/TF-001",
             .Comment = " Hors d&#146;\xC5\x93uvre &amp;amp;\r\n\tS+&nbsp;2 &#0;",
             .Poster = "M0XYZ",
             .PopUp = "<strong>Operator:</strong> Jos&#xE9;&nbsp;B<br><strong>Summit:</strong> "
                      "Pico &lt;Alto&gt;,&nbsp;1.950m,&#160;1 point.",
             .Frequencies = "14.062-cw,&nbsp;<strong>7</strong>-ssb"});
  EXPECT_EQ(Take("<html>" + Heading() + table), -1);
  ASSERT_EQ(alerts_.Count(), 1U);
  const auto& alert = *alerts_.All().begin()->Item.Alert;
  EXPECT_EQ(alert.OperatorName, "Jos\xC3\xA9 B");
  EXPECT_EQ(alert.SummitName, "Pico <Alto>");
  EXPECT_EQ(alert.SummitElevationInMeters, 1);
  EXPECT_EQ(alert.SummitPoints, 1);
  EXPECT_EQ(alert.SummitDescription, "Pico <Alto>, 1.950m, 1");
  EXPECT_EQ(alert.Station, "G4ABC");
  EXPECT_EQ(alert.SummitDesignator, "EA8/TF-001");
  EXPECT_EQ(alert.FrequencyModes, "14.062-cw, 7 -ssb");
  EXPECT_EQ(alert.Comment, "Hors d\xE2\x80\x99\xC5\x93uvre &amp;   S+ 2 \xEF\xBF\xBD");
  EXPECT_EQ(alert.MaxMinutesAfterAlertTime, 120);
  EXPECT_EQ(alert.Spotter, "M0XYZ");
  EXPECT_EQ(alert.AlertKey, "2026-11-24 13:30:00_G4ABC_EA8/TF-001_!CUSTOM_WINDOW!");
  EXPECT_EQ(alert.LocalDateAndTimeRetrieved, host_.Time.LocalNow());
  EXPECT_EQ(alert.UTCAlertTimeStr, "13:30");
  EXPECT_TRUE(alerts_.WereRead());
}

TEST_F(AlertsPageTest, DaysAndStationsMakeAlertsOfTheirOwn) {
  EXPECT_EQ(Take(Heading("Monday 1st December 2026") +
                 Table({.Callsign = "G4ABC &amp; M0XYZ", .Comment = "Hors d'\xC5\x93uvre"}) +
                 Table({.Callsign = "G4ABC & M0XYZ", .Comment = "Hors d'\xC5\x93uvres"}) +
                 Heading("someday") + Table({}) + Heading("Friday 3rd January 2027") +
                 Table({.Time = "noon"}) + "<table class=\"spots\"><tr></tr></table>" +
                 Table({.Summit = "lost"}) + Heading("Monday 4th January 2027") + Table({}) +
                 "<table class=\"spots\"></table>" + Table({.Summit = "lost"})),
            -1);
  EXPECT_EQ(Keys(),
            "2026-12-01 10:00:00_G4ABC_G/LD-001_Horsd'\xC5\x93uvr\n"
            "2026-12-01 10:00:00_M0XYZ_G/LD-001_Horsd'\xC5\x93uvr\n_G4ABC_G/LD-001_\n"
            "2027-01-04 10:00:00_G4ABC_G/LD-001_\n");
  const auto unreadable = alerts_.Find("_G4ABC_G/LD-001_");
  ASSERT_TRUE(unreadable);
  EXPECT_FALSE(unreadable->UTCAlertDate);
  EXPECT_EQ(unreadable->UTCAlertDateStr, "");
  EXPECT_TRUE(unreadable->UTCAlertTime);
}

TEST_F(AlertsPageTest, CallsignsAreFoundHoweverTheWordOnIsSetAndMarkupIsNone) {
  const std::pair<const char*, const char*> cases[] = {
      // the cell, and the key without its time
      {"<strong>G4ABC</strong>&nbsp;on&nbsp;<a href=x>G/LD-001</a>", "G4ABC_G/LD-001_"},
      {"<strong>G4ABC</strong><br>on <a href=x>G/LD-001</a>", "G4ABC_G/LD-001_"},
      {"G4ABC\ton<a href=x>G/LD-001</a>", "G4ABC_G/LD-001_"},
      {"K1ONE one on <a href=x>G/LD-001</a>", "K1ONE ONE_G/LD-001_"},
      {"<a href=y>G4ABC</a> on <a href=x>G/LD-001</a>", ""},
      {"G4ABC&lt; on <a href=x>G/LD-001</a>", ""},
      {"<a href=x>G/LD-001</a>", ""},
      {"G4ABC", ""},
  };
  for (const auto& [cell, key] : cases) {
    const auto table = Table({.Callsign = "here", .Summit = "there"});
    const auto begin = table.find("<td><strong>here") + 4;
    Take(Heading() + table.substr(0, begin) + cell + table.substr(table.find("</td>", begin)));
    EXPECT_EQ(Keys(), *key == 0 ? "" : "2026-11-24 10:00:00_" + std::string(key) + "\n") << cell;
  }
  for (const auto& [callsign, item] : known_) EXPECT_FALSE(Contains(callsign, "<")) << callsign;
}

TEST_F(AlertsPageTest, MarkersAndOverridesGiveAnAlertItsOwnWindow) {
  host_.Disk.Put("/brelwin/SOTAAlertDurationOverrides.ini",
                 "[m0xyz]\nMaxMinutesBeforeAlertTime=30\nMaxMinutesAfterAlertTime=\"45\"\n[M0XYZ]\n"
                 "MaxMinutesAfterAlertTime=99\n[K1AA]\nMaxMinutesBeforeAlertTime=0\n");
  const auto overrides = DurationOverrides::Load(host_.World);
  using Case = std::tuple<std::string, std::string, AlertWindow, bool>;
  const std::int32_t most = std::numeric_limits<std::int32_t>::max();
  for (const auto& [station, comment, window, isCustom] :
       std::vector<Case>{{"G4ABC", "QRP S+2 S-1.5", {90, 120}, true},
                         {"G4ABC", "s+ 1 . 5h s+9", {0, 90}, true},
                         {"G4ABC", "S+ S-x S+3", {0, 0}, false},
                         {"G4ABC", "S+0.001", {0, 0}, true},
                         {"G4ABC", "S+99999999", {0, most}, true},
                         {"G4ABC", "S+" + std::string(400, '9'), {0, most}, true},
                         {"G4ABC", "S+0" + std::string(60, '0') + "1", {0, 60}, true},
                         {"G4ABC", "S+.." + std::string(60, '9'), {0, 0}, false},
                         {"M0XYZ", "", {30, 45}, true},
                         {"M0XYZ", "S+2", {30, 120}, true},
                         {"K1AA", "", {0, 0}, false}}) {
    const auto found = WindowOfAlert(overrides.Of(station), comment);
    EXPECT_EQ(found.Window, window) << comment << " " << found.Window.MinutesAfter;
    EXPECT_EQ(found.IsCustom, isCustom) << comment;
  }
}

TEST_F(AlertsPageTest, AnAlertWithItsOwnWindowIsWrittenToTheModificationsOnce) {
  const auto page = Heading() + Table({.Comment = "S+4"});
  for (int i = 0; i < 3; ++i) Take(page);
  const std::string key = "2026-11-24 10:00:00_G4ABC_G/LD-001_!CUSTOM_WINDOW!";
  const auto entry =
      "ADD||2026-11-24 10:00:00||10:00||G4ABC||G4ABC||G/LD-001||Ann||S+4||G4ABC||14.062-cw||0||240||0||" +
      key + "\r\n";
  EXPECT_EQ(Modifications(), entry);

  // The same alert with other words comes with another window; the old entry must not remain.
  Take(Heading() + Table({.Comment = "S+9"}));
  EXPECT_EQ(Modifications(), Replace(Replace(entry, "S+4", "S+9"), "240", "540"));

  // Gone from the page, it comes back from the file.
  Take(Heading() + Table({.Callsign = "M0XYZ"}));
  EXPECT_EQ(alerts_.All().begin()->Item.Alert->AlertKey, key);
  EXPECT_EQ(alerts_.Count(), 2U);

  // Written over with a word of withdrawal, it does not.
  Take(Heading() + Table({.Comment = "CANCELLED"}) + Table({.Callsign = "M0XYZ"}));
  EXPECT_EQ(alerts_.Count(), 1U);
  EXPECT_FALSE(host_.Disk.Exists("/brelwin/SOTAAlertModifications.txt"));
}

TEST_F(AlertsPageTest, WithdrawnAlertsAreLoggedAndRemembered) {
  Take(Heading() + Table({.Comment = "canceled"}) + Table({.Comment = "r B n&#110;"}) +
       Table({.Comment = "No TarnLink"}) + Table({.Comment = "RB-NN"}) +
       Table({.Callsign = "M0XYZ", .Comment = "Cancelled, rbnn"}));
  EXPECT_EQ(alerts_.Count(), 1U);
  const auto both = host_.EventLog();
  EXPECT_EQ(Split(both, "||Cancelled, rbnn||").size(), 3U) << "logged for either word";
  EXPECT_EQ(alerts_.WithdrawnOf("M0XYZ").size(), 1U);
  EXPECT_TRUE(IsLogged("GetAlertsFromSotawatchHTMLPage - A cancelled alert was not saved:\r\n"));
  EXPECT_TRUE(
      IsLogged("GetAlertsFromSotawatchHTMLPage - An alert containing NOTARNLINK/RBNN was not saved:\r\n"));
  EXPECT_TRUE(IsLogged(": 2026-11-24 10:00:00||10:00||G4ABC||G4ABC||G/LD-001||Ann||r B nn||G4ABC||"));
  EXPECT_EQ(alerts_.WithdrawnOf("G4ABC").size(), 3U);
  EXPECT_FALSE(IsLogged("NO alerts"));
}

TEST_F(AlertsPageTest, TheFetchIsTakenWithItsFaults) {
  const AlertsPageRequest request{"http://sotawatch/alerts.php", 60, 72};
  std::string errorText = "old";
  const auto fetch = [&] {
    return GetAlertsFromSotawatchHTMLPage(host_.World, request, alerts_, known_, errorText);
  };
  Take(Heading() + Table({}));
  EXPECT_EQ(fetch(), -100);
  EXPECT_EQ(errorText, "Unable to open URL");
  EXPECT_EQ(alerts_.Count(), 1U);

  host_.Internet.Answer(request.Url, {.Status = 200, .Body = ""});
  EXPECT_EQ(fetch(), 0);
  EXPECT_EQ(errorText, "The page came empty");
  EXPECT_EQ(alerts_.Count(), 1U);
  EXPECT_TRUE(IsLogged(
      "GetAlertsFromSotawatchHTMLPage - Attempted to download Alert HTML from Sotawatch but ZERO bytes"
      " received.\r\n"));

  host_.Internet.Forget(request.Url);
  host_.Internet.Answer(request.Url, {.Body = Heading() + "<table", .ErrorText = "Reset by peer"});
  EXPECT_EQ(fetch(), 0);
  EXPECT_EQ(errorText, "The page broke off: Reset by peer");
  EXPECT_EQ(alerts_.Count(), 1U) << "what is behind the break is unknown";
  EXPECT_TRUE(IsLogged("GetAlertsFromSotawatchHTMLPage - The page broke off: Reset by peer\r\n"));
  host_.Internet.Forget(request.Url);
  host_.Internet.Answer(request.Url, {.Body = Heading() + Table({.Callsign = "M0XYZ"}) + "</HTML>\r\n",
                                      .ErrorText = "Reset by peer"});
  EXPECT_EQ(fetch(), -1) << "the page is whole";
  EXPECT_EQ(Keys(), "2026-11-24 10:00:00_M0XYZ_G/LD-001_\n");
  host_.World.ShuttingDown = true;
  EXPECT_NE(fetch(), -1);
  EXPECT_EQ(alerts_.Count(), 1U);
  host_.World.ShuttingDown = false;

  host_.Internet.Forget(request.Url);
  host_.Internet.Answer(request.Url, {.Body = Heading() + "caf\xE9"});
  EXPECT_EQ(fetch(), -1);
  EXPECT_TRUE(IsLogged("GetAlertsFromSotawatchHTMLPage - Alert HTML was downloaded from Sotawatch (" +
                       std::to_string(Heading().size() + 4) +
                       " bytes) but NO alerts were successfully parsed.\r\n"));
}

TEST_F(AlertsPageTest, NewActivatorsAreLearned) {
  const auto page = Heading() + Table({.Callsign = "G4ABC"}) + Table({.Callsign = "K1"}) +
                    Table({.Callsign = "M0XYZ", .Comment = "S+3"});
  known_.Add("M0XYZ", "M0XYZ");
  Take(page);
  EXPECT_TRUE(known_.Contains("G4ABC"));
  EXPECT_FALSE(known_.Contains("K1"));
  EXPECT_FALSE(host_.Disk.Exists("/brelwin/SOTAActivators.txt"));

  known_.Clear();
  host_.Disk.Put("/brelwin/SOTAActivators.txt", "mine\nunfinished");
  Take(page);
  EXPECT_EQ(host_.Disk.Text("/brelwin/SOTAActivators.txt"), "mine\nunfinished\r\nG4ABC\r\nM0XYZ\r\n");
}

TEST_F(AlertsPageTest, ACutPageGivesTheBeginningOfTheWhole) {
  const auto page = Heading() + Table({.Comment = "a &amp; b"}) + Table({.Callsign = "G4ABC & M0XYZ"}) +
                    Heading("Wednesday 25th November 2026") + Table({.Comment = "S+2"});
  ASSERT_EQ(test::ActivationsOf(page).size(), 3U);
  for (std::size_t length = 0; length < page.size(); ++length)
    ASSERT_TRUE(test::CutPageAnnouncesFirstAlerts(page, length)) << length;

  const auto heading = Heading();
  const auto table = Table({});
  test::RandomText random(3, {heading, table, "<table class=\"spots\">", "</table>", "<td>", "</td>",
                              "<span class=\"comment\">", "</span>", "', ", "&#10;", "\n"});
  for (int round = 0; round < 300; ++round) {
    const auto strange = random.Next(30);
    ASSERT_TRUE(test::CutPageAnnouncesFirstAlerts(strange, random.Below(strange.size() + 1))) << strange;
  }
}

}  // namespace
}  // namespace brelwin
