// The JSON service: from its text to spots, and when it is asked.
#include <gtest/gtest.h>

#include "feed_properties.h"
#include "intake/service_intake.h"
#include "radio/dates.h"
#include "random_text.h"
#include "spots/service_client.h"
#include "spots/service_feed.h"
#include "spots/service_terms.h"

namespace brelwin {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view NewRow =
    R"({"id":41,"timeStamp":"2026-11-24T11:58:00.1234567Z","activatorCallsign":"G4ABC/P","activatorName":"Tom",)"
    R"("callsign":"M0XYZ","comments":"CQ \ud83d CQ","frequency":14.062,"mode":"CW","summitCode":"G/TW-004",)"
    R"("summitName":"Cringle Moor","AltM":432,"AltFt":1417,"points":2,"userID":7,"type":"NORMAL"})";

struct Reading {
  explicit Reading(std::string_view text) { test::ReadServiceList(text, Spots, Result); }
  std::string IDs() const {
    std::string ids;
    for (const auto& made : Spots) ids += made.First->ID + " ";
    return ids;
  }

  std::vector<MadeSpots> Spots;
  FeedReadResult Result;
};

std::string Row(std::string_view members) {
  return std::string(
             R"({"id":1,"timeStamp":"2026-11-24T11:58:00","activatorCallsign":"G4ABC","callsign":"M0XYZ")")
      .append(members.empty() ? "" : ",")
      .append(members)
      .append("}");
}

std::string InWords(const Spot& spot) {
  const std::string kinds[] = {"", "gone", "test"};
  return spot.Station + "|" + spot.SummitDesignator + "|" + spot.FrequencyString + "|" + spot.ModeString +
         "|" + spot.Comment + "|" + spot.Spotter + "|" + spot.SummitName + "|" +
         std::to_string(spot.SummitElevationInMeters) + "|" + std::to_string(spot.SummitPoints) + "|" +
         kinds[static_cast<std::size_t>(spot.Kind)];
}

TEST(ServiceRows, OfBothShapesBecomeSpots) {
  const std::pair<std::string, std::string> cases[] = {
      {std::string(NewRow), "G4ABC/P|G/TW-004|14.062|CW|CQ \xEF\xBF\xBD CQ|M0XYZ|Cringle Moor|432|2|"},
      {Row(R"("associationCode":"W5N","summitCode":"SI-001","summitDetails":"Palomas Peak, 2647m, 8 points",
              "frequency":"14.0620","mode":"cw","comments":null)"),
       "G4ABC|W5N/SI-001|14.0620|CW||M0XYZ|Palomas Peak|2647|8|"},
      {Row(R"("summitDetails":"7081, 2158m","frequency":null,"mode":["CW"],"comments":{"a":[1]})"),
       "G4ABC|||||M0XYZ|7081|2158|0|"},
      {Row(R"j("summitDetails":"Low, High, 99999999999m, 1 Point(s)","frequency":145,"mode":"FM")j"),
       "G4ABC||145|FM||M0XYZ|Low, High|0|1|"},
      {Row(R"("frequency":14.062,"mode":"CW","type":"QRT")"), "G4ABC|||||M0XYZ||0|0|gone"},
      {Row(R"("frequency":"7.000","mode":"Other","comments":"tnx all")"), "G4ABC||||tnx all|M0XYZ||0|0|gone"},
      {Row(R"("frequency":7.032,"mode":"CW","type":"TEST","points":"4")"),
       "G4ABC||7.032|CW||M0XYZ||0|4|test"}};
  for (const auto& [row, words] : cases) {
    const Reading read("[" + row + "]");
    EXPECT_EQ(read.Spots.empty() ? "" : InWords(*read.Spots[0].First), words) << row;
  }
  const Reading read("[" + std::string(NewRow) + "]");
  EXPECT_EQ(DateTimeText(*read.Spots[0].First->UTCDateTime), "2026-11-24 11:58:00");
}

TEST(ServiceRows, CostNoOtherRowWhateverIsInThem) {
  const std::string deep(40, '[');
  const auto text =
      "\xEF\xBB\xBF [ {\"id\":123456789012345678901234567890,\"activatorCallsign\":\"G4AAA\"}, null, "
      "{\"activatorCallsign\":}, 7, \"text, ]\", {\"id\":3}, {\"a\":" +
      deep + std::string(40, ']') +
      "}, {\"n\":1e999}, {\"id\":\"4\",\"activatorCallsign\":\"G4BBB\",\"comments\":\"a]},{\\\"\"} ]\n";
  const Reading read(text);
  EXPECT_EQ(read.IDs(), "123456789012345678901234567890 4 ");
  EXPECT_EQ(read.Result.End, FeedEnd::EndOfFeed);
  EXPECT_EQ(read.Result.SkippedItems.size(), 7U);
  EXPECT_EQ(std::ranges::count(read.Result.SkippedItems, false, &SkippedItem::IsBroken),
            1);  // has no station
}

TEST(ServiceRows, TellHowTheListEnds) {
  const std::string good = Row("");
  const std::string sentinel =
      R"({"id":0,"timeStamp":"2026-01-01T00:00:00","callsign":"DEPRECATED","mode":"DEPRECATED"})";
  std::string many = "[" + good;
  for (int i = 0; i < 20'000; ++i) many += ",{}";
  const std::pair<std::string, FeedEnd> cases[] = {{"[" + good + "]", FeedEnd::EndOfFeed},
                                                   {"[" + good + ",", FeedEnd::Cut},
                                                   {"[" + good, FeedEnd::Cut},
                                                   {"", FeedEnd::NoFeed},
                                                   {"{\"rows\":[]}", FeedEnd::NoFeed},
                                                   {"<html>", FeedEnd::NoFeed},
                                                   {"[]", FeedEnd::Gone},
                                                   {"[" + sentinel + "," + good + "]", FeedEnd::Gone},
                                                   {many + "]", FeedEnd::EndOfFeed}};
  for (const auto& [text, end] : cases) EXPECT_EQ(Reading(text).Result.End, end) << text.substr(0, 200);
  EXPECT_TRUE(Reading(many + "]").Result.HasMore);
}

TEST(ServiceRows, OfAnyBytesKeepTheirProperty) {
  test::RandomText lists(13, {NewRow, "[", "]", ",", "{", "}", "\"", "\\u", "\\", "null", "1e999", "\xFF"});
  for (int i = 0; i < 2000; ++i) {
    const auto text = "[" + lists.Next(12);
    EXPECT_TRUE(test::CutListGivesItsFirstRows(text, lists.Below(text.size() + 1))) << text;
  }
}

TEST(ServiceSchedule, AsksOnceAMinuteAndLessWhileItFails) {
  double random = 0;
  ServiceSchedule schedule([&random] { return random; });
  Instant now{1000s};
  const auto pause = [&] { return (*schedule.NextAsk(now) - now) / 1s; };
  EXPECT_TRUE(schedule.MayAsk(now));
  schedule.NoteAsked(now);
  EXPECT_EQ(pause(), 60);
  for (const int seconds : {60, 120, 240, 300, 300}) {
    schedule.NoteAsked(now);
    schedule.NoteFailure(now, {});
    EXPECT_EQ(pause(), seconds);
    now += 600s;
  }
  random = 0.999;
  schedule.NoteFailure(now, {});
  EXPECT_EQ(pause(), 599);
  EXPECT_TRUE(schedule.MayAskBeside(now));
  schedule.NoteFailure(now, 3600s);
  EXPECT_EQ(pause(), 3600);
  EXPECT_FALSE(schedule.MayAskBeside(now + 3599s));
  schedule.NoteSuccess();
  schedule.NoteAsked(now += 3600s);
  EXPECT_EQ(pause(), 60);
  EXPECT_TRUE(schedule.IsWholeListDue(now));
  schedule.NoteWholeList(now);
  EXPECT_FALSE(schedule.IsWholeListDue(now + 299s));
  EXPECT_TRUE(schedule.IsWholeListDue(now + 300s));
}

TEST(ServiceTerms, HoldOffWhatIsNotThisMachine) {
  const std::pair<std::string_view, ServiceObstacle> cases[] = {
      {" ", ServiceObstacle::NoAddress},
      {"http://127.0.0.1:8080/api/", ServiceObstacle::None},
      {"http://LOCALHOST/", ServiceObstacle::None},
      {"http://[::1]:80", ServiceObstacle::None},
      {"https://Service.Test/api", ServiceObstacle::None},
      {"https://127.0.0.1.evil.test/", ServiceObstacle::TermsNotConfirmed},
      {"http://127.0.0.1@evil.test/", ServiceObstacle::TermsNotConfirmed},
      {"https://", ServiceObstacle::TermsNotConfirmed}};
  for (const auto& [address, obstacle] : cases)
    EXPECT_EQ(ObstacleOfService(address, " service.test "), obstacle) << address;
}

class Listing : public testing::Test {
 protected:
  // "id:frequency" for each spot; what was changed, as "+added ~edited !edited with news -deleted".
  std::string Take(const std::vector<std::pair<std::string, float>>& listed, bool isWhole,
                   std::size_t unread = 0) {
    ListedRows rows{{}, isWhole, unread};
    for (const auto& [id, frequency] : listed) {
      auto spot = std::make_shared<Spot>();
      spot->ID = id;
      spot->FrequencyInMhz = frequency;
      spot->Comment = id.ends_with('c') ? std::to_string(frequency) : "";
      spot->UTCDateTime = AddMinutes(Now, id.starts_with("old") ? -1435 : -5);
      rows.Spots.push_back({spot, nullptr});
    }
    const auto changes = listing_.Take(std::move(rows), Now);
    std::string words;
    for (const auto& made : changes.Added) words += "+" + made.First->ID + " ";
    for (const auto& edit : changes.Edited) words += (edit.IsNews() ? "!" : "~") + edit.After->ID + " ";
    for (const auto& spot : changes.Deleted) words += "-" + spot->ID + " ";
    return words;
  }

  static constexpr DateTime Now{1'800'000'000};
  ServiceListing listing_;
};

TEST_F(Listing, TellsWhatIsNewEditedAndDeleted) {
  EXPECT_EQ(Take({{"3", 7}, {"2", 7}, {"old1", 7}}, true), "+3 +2 +old1 ");
  EXPECT_EQ(Take({{"4", 7}, {"3", 10}}, false), "+4 !3 ");  // the newest alone say nothing of the others
  EXPECT_EQ(Take({{"4", 7}, {"3", 10}}, true, 1), "");      // what is missing may be in the row
  EXPECT_EQ(Take({{"4", 7}, {"3", 10}}, true, 1), "-2 ");   // that row was there before
  EXPECT_EQ(listing_.All().size(), 2U);
}

}  // namespace
}  // namespace brelwin
