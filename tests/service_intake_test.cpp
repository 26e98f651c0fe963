// The JSON service behind the intake and the alerts: what is asked when, and what comes of it.
#include <gtest/gtest.h>

#include "alerts/service_alerts.h"
#include "base/text.h"
#include "feed_text.h"
#include "intake/spot_intake.h"
#include "test_host.h"

namespace brelwin {
namespace {

using namespace std::chrono_literals;

const std::string Root = "http://127.0.0.1:8080/api/";
const std::string RSS = "http://feed.test/RssFeed";

std::string Row(int id, const std::string& station, const std::string& clockTime,
                const std::string& frequency) {
  return R"({"id":)" + std::to_string(id) + R"(,"timeStamp":"2026-11-24T)" + clockTime +
         R"(","activatorCallsign":")" + station + R"(","callsign":"M0XYZ","comments":"CQ","mode":"CW",)" +
         R"("summitCode":"G/LD-001","frequency":)" + frequency + "}";
}

std::string List(const std::vector<std::string>& rows) {
  std::string list;
  for (const auto& row : rows) list += (list.empty() ? "[" : ",") + row;
  return list.empty() ? "[]" : list + "]";
}

class ServiceStory : public testing::Test {
 protected:
  // What is asked for from here on.
  void Serve(const std::string& path, test::ScriptedAnswer answer) {
    host_.Internet.Forget(Root + path);
    host_.Internet.Answer(Root + path, std::move(answer));
  }
  void Serve(const std::string& path, const std::string& body) {
    Serve(path, test::ScriptedAnswer{.Body = body});
  }

  // The paths that were asked for since the last call.
  std::string Asked() {
    std::string paths;
    for (; told_ < host_.Internet.Queries.size(); ++told_)
      paths += host_.Internet.Queries[told_].Url.substr(Root.size()) + " ";
    return paths;
  }
  std::string HeaderOfLast(std::string_view name) const {
    for (const auto& header : host_.Internet.Queries.back().Headers)
      if (header.Name == name) return header.Value;
    return {};
  }

  test::TestHost host_;  // it is 2026-11-24 12:00 UTC
  ServiceClient client_{host_.World, [] { return 0.0; }};
  CallsignCollection known_;
  std::size_t told_ = 0;
};

class ServiceIntakeStory : public ServiceStory {
 protected:
  // The stations of the new spots, in order.
  std::string Take(SpotSource source = SpotSource::Service) {
    SpotCollection newSpots;
    std::string error;
    code_ = intake_.GetSotawatchSpots(source, addresses_, {}, known_, {}, sinceID_, newSpots, error);
    std::string stations;
    for (const auto& entry : newSpots) stations += entry.Item->Station + " ";
    return stations;
  }
  std::string TakeAfter(Milliseconds pause) {
    host_.Queue.RunFor(pause);
    return Take();
  }

  SpotIntake intake_{host_.World, client_};
  URLTemplates addresses_{.Twitter = {},
                          .Callsign = {},
                          .Summit = {},
                          .SotawatchAlerts = {},
                          .SotawatchRSS = RSS,
                          .SpotliteSpotSubmitURL = {},
                          .SotawatchAPI = Root,
                          .SotawatchAPITermsConfirmed = {}};
  std::string sinceID_;
  std::int32_t code_ = 0;
};

TEST_F(ServiceIntakeStory, AsksTheEpochFirstAndNoMoreThanOnceAMinute) {
  Serve("spots/epoch", "\"e1\"\n");
  Serve("spots/-24/all/all",
        {.Body = List({Row(2, "G4BBB", "11:58:00", "7.032")}), .Headers = {{"ETag", "\"t\""}}});
  EXPECT_EQ(Take(), "G4BBB ");
  EXPECT_EQ(Asked(), "spots/epoch spots/-24/all/all ");
  EXPECT_EQ(TakeAfter(59s), "");
  EXPECT_EQ(code_, -1);
  EXPECT_EQ(Asked(), "");
  EXPECT_EQ(TakeAfter(1s), "");
  EXPECT_EQ(Asked(), "spots/epoch ");  // which is the same
  Serve("spots/epoch", "e2");
  Serve("spots/100/all/all",
        List({Row(3, "G4CCC", "12:01:30", "7.1"), Row(2, "G4BBB", "11:58:00", "14.062")}));
  EXPECT_EQ(TakeAfter(60s), "G4CCC ");
  EXPECT_EQ(Asked(), "spots/epoch spots/100/all/all ");
  const auto changes = intake_.TakeChanges();
  ASSERT_EQ(changes.Edited.size(), 1U);
  EXPECT_TRUE(changes.Edited[0].IsNews() && changes.Edited[0].After->IsEdited);
  Serve("spots/-24/all/all", {.Status = 304});
  TakeAfter(180s);
  EXPECT_EQ(Asked(), "spots/epoch spots/-24/all/all ");  // the same epoch says nothing of deletions
  EXPECT_EQ(HeaderOfLast("If-None-Match"), "\"t\"");
  Serve("spots/-24/all/all", List({Row(3, "G4CCC", "12:01:30", "7.1")}));
  TakeAfter(300s);
  EXPECT_EQ(intake_.TakeChanges().Deleted.size(), 1U);
  intake_.Forget();
  EXPECT_EQ(Take(), "G4CCC ");  // what is known, while nothing may be asked
}

// Of the same time and by the same spotter, as a test beside a spot is.
TEST_F(ServiceIntakeStory, KeepsTheSecondStationsOfOneSecondApart) {
  const std::string two = "G4AAA AND G4BBB";
  Serve("spots/epoch", "e1");
  Serve("spots/-24/all/all", List({Row(3, two, "11:58:00", "7.032"), Row(2, two, "11:58:00", "14.062")}));
  EXPECT_EQ(Take(), "G4AAA G4BBB G4AAA G4BBB ");
  Serve("spots/epoch", "e2");
  Serve("spots/100/all/all", List({Row(4, two, "11:58:00", "21.062")}));
  EXPECT_EQ(TakeAfter(60s), "G4AAA G4BBB ");
}

TEST_F(ServiceIntakeStory, LeavesAServiceAloneThatWantsItOrIsGone) {
  Serve("spots/epoch", {.Status = 429, .Headers = {{"Retry-After", "Tue, 24 Nov 2026 12:10:00 GMT"}}});
  Take();
  EXPECT_EQ(code_, 0);
  EXPECT_EQ(client_.AskBeside(Root + "spots/-1/all/all").Outcome, ServiceOutcome::NotDue);
  TakeAfter(599s);
  EXPECT_EQ(Asked(), "spots/epoch ");
  Serve("spots/epoch", {.Status = 410});
  TakeAfter(2s);
  EXPECT_TRUE(intake_.IsFeedGone());
  EXPECT_TRUE(Contains(intake_.StatusText(), "Sotawatch feed gone"));
  Serve("spots/epoch", "e");
  Serve("spots/-24/all/all", List({Row(2, "G4BBB", "11:58:00", "7.032")}));
  EXPECT_EQ(TakeAfter(600s), "G4BBB ");
  EXPECT_FALSE(intake_.IsFeedGone());
  addresses_.SotawatchAPI = "https://service.test";
  Take();
  EXPECT_EQ(code_, -100);
  EXPECT_TRUE(Contains(intake_.StatusText(), "terms of service.test"));
  const auto log = host_.EventLog();
  EXPECT_TRUE(Contains(log, "Sotawatch feed gone") && Contains(log, "Sotawatch feed back")) << log;
}

TEST_F(ServiceIntakeStory, LosesNothingInAReloadThatBreaksOffAndShowsAgainWhatComesBack) {
  const auto a = Row(1, "G4AAA", "11:57:00", "7.032");
  const auto b = Row(2, "G4BBB", "11:58:00", "7.032");
  Serve("spots/epoch", "e1");
  Serve("spots/-24/all/all", List({a}));
  EXPECT_EQ(Take(), "G4AAA ");
  intake_.Forget();
  Serve("spots/epoch", "e2");
  Serve("spots/100/all/all", "[" + b + "," + a.substr(0, 40));
  EXPECT_EQ(TakeAfter(60s), "");
  Serve("spots/-24/all/all", List({b, a}));
  EXPECT_EQ(TakeAfter(600s), "G4BBB ");
  intake_.TakeChanges();
  Serve("spots/-24/all/all", List({a}));
  TakeAfter(300s);
  EXPECT_EQ(intake_.TakeChanges().Deleted.size(), 1U);
  Serve("spots/epoch", "e3");
  Serve("spots/100/all/all", List({b, a}));
  EXPECT_EQ(TakeAfter(60s), "G4BBB ");
}

TEST_F(ServiceIntakeStory, AChangeOfTheSourceBringsNoSpotTwice) {
  const auto item = [](const std::string& station, const std::string& clockTime) {
    return test::FeedItemText(station + " on G/LD-001 @ 7.032 CW", test::PubDate(clockTime),
                              "CQ Posted by M0XYZ");
  };
  host_.Internet.AnswerAlways(RSS, test::FeedText({item("G4AAA", "11:57:00")}));
  EXPECT_EQ(Take(SpotSource::RSS), "G4AAA ");
  Serve("spots/epoch", "e1");
  Serve("spots/-24/all/all",
        List({Row(2, "G4BBB", "11:58:00", "7.032"), Row(1, "G4AAA", "11:57:00", "7.032")}));
  EXPECT_EQ(Take(), "G4BBB ");
  host_.Internet.AnswerAlways(RSS, test::FeedText({item("G4BBB", "11:58:00"), item("G4AAA", "11:57:00")}));
  EXPECT_EQ(Take(SpotSource::RSS), "");
  Serve("spots/epoch", "e2");
  Serve("spots/100/all/all", List({Row(1, "G4AAA", "11:57:00", "10.118")}));
  EXPECT_EQ(TakeAfter(60s), "");
  const auto changes = intake_.TakeChanges();
  ASSERT_EQ(changes.Edited.size(), 1U);
  EXPECT_EQ(changes.Edited[0].After->ID, "20261124115700G4AAAM0XYZ");  // the line that RSS brought
}

class ServiceAlertsStory : public ServiceStory {
 protected:
  std::int32_t Refresh() {
    return announced_.Refresh({"http://127.0.0.1:8080", 60, 72}, alerts_, known_, error_);
  }

  ServiceAlerts announced_{host_.World, client_};
  AlertCollection alerts_;
  std::string error_;
};

TEST_F(ServiceAlertsStory, RowsBecomeTheAlertsThatThePageWouldGive) {
  const auto row = [](const std::string& time, const std::string& callsign, const std::string& rest) {
    return R"({"dateActivated":"2026-11-24T)" + time + R"(","activatingCallsign":")" + callsign +
           R"(","associationCode":"G","summitCode":"LD-001",)" + rest + "}";
  };
  Serve("alerts/epoch", "first");
  Serve("alerts/8760/10000/all/all",
        List({row("14:00:00Z", "G4ABC/P", R"("comments":"CW +/- 30 min, S2S, S+2","activatorName":"Tom",
                   "posterCallsign":"M0XYZ","frequency":"7-cw","summitDetails":"Scafell, 978m, 10 points")"),
              row("13:30:30", "M0AAA and M0BBB", R"("comments":"mins +/-15; S2S wanted")"), "{]",
              row("13:00", "G4XYZ", R"("comments":"cancelled")")}));
  EXPECT_EQ(Refresh(), -1);
  std::string keys;
  for (const auto& entry : alerts_.All()) keys += entry.Item.Alert->AlertKey + "\n";
  EXPECT_EQ(keys,
            "2026-11-24 13:30:00_M0AAA_G/LD-001_mins+/-15;\n2026-11-24 13:30:00_M0BBB_G/LD-001_mins+/-15;\n"
            "2026-11-24 14:00:00_G4ABC_G/LD-001_!CUSTOM_WINDOW!\n");
  const auto& alert = *alerts_.Find("2026-11-24 14:00:00_G4ABC_G/LD-001_!CUSTOM_WINDOW!");
  EXPECT_EQ(alert.SummitDescription + "|" + alert.OperatorName + "|" + alert.Spotter + "|" +
                alert.FrequencyModes + "|" + alert.UTCAlertTimeStr,
            "Scafell, 978m, 10|Tom|M0XYZ|7-cw|14:00");
  EXPECT_EQ(alert.MaxMinutesBeforeAlertTime, 0);
  EXPECT_EQ(alert.MaxMinutesAfterAlertTime, 120);
  for (const std::string list : {"[", "[]", "<html>", R"([{"comments":"DEPRECATED"}])"}) {
    host_.Queue.RunFor(600s);
    Serve("alerts/epoch", "a" + std::to_string(list.size()));
    Serve("alerts/8760/10000/all/all", list);
    EXPECT_EQ(Refresh(), 0) << list;
    EXPECT_EQ(alerts_.Count(), 3U) << list;
  }
  EXPECT_TRUE(announced_.IsGone());
  host_.Queue.RunFor(600s);
  Serve("alerts/epoch", "a9");
  Serve("alerts/8760/10000/all/all",
        List({row("13:30:30", "M0AAA", R"("comments":"mins +/-15; S2S wanted")")}));
  EXPECT_EQ(Refresh(), -1);
  EXPECT_TRUE(alerts_.Contains("2026-11-24 13:30:00_M0AAA_G/LD-001_mins+/-15;"));
  EXPECT_FALSE(alerts_.Contains("2026-11-24 13:30:00_M0BBB_G/LD-001_mins+/-15;"))
      << "what has vanished is gone";
}

}  // namespace
}  // namespace brelwin
