// The connection to the Reverse Beacon Network and what a check does with it, told as stories.
#include <gtest/gtest.h>

#include "rbn/open_connection.h"
#include "rbn/socket_events.h"
#include "rbn/stream.h"
#include "test_host.h"

namespace brelwin {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using test::ScriptedPeer;

constexpr std::string_view Prompt = "Please enter your call: ";
constexpr std::string_view Greeting = "Hello, Q0ZZ! Connected.\r\n";

std::string Line(std::string_view station) {
  return "DX de KM3T-2-#: 14062.0  " + std::string(station) + "  CW  24 dB  22 WPM  CQ  1201Z\r\n";
}

class RBNStream : public ::testing::Test {
 protected:
  RBNStream() {
    config_.RBNHost = "rbn.example";
    screen_.RBN.chkReverseBeaconSpotsEnabled.Value = true;
    screen_.RBN.txtRBNCallsign.Text = " Q0ZZ ";
    screen_.RBN.txtRBNMaxMinutesSinceLastRawSpotReceived.Text = "5";
    screen_.Spots.lblNoConnectionToRBN.Visible = false;
    screen_.tmrCheckSpots.Enabled = true;
  }

  static ScriptedPeer LetsIn() {
    return ScriptedPeer().Accepts().Sends("Welcome\r\n" + std::string(Prompt)).Expects("Q0ZZ\r\n");
  }

  // One check; gives the stations of the new spots.
  std::string Check() {
    CloseSilentConnection(stream_);
    const bool foundNoConnection = !stream_.Connected;
    SpotCollection spots;
    std::vector<std::string> unmatched;
    TakeRBNSpots(stream_, filter_, known_, alerts_, recent_, spots, unmatched);
    if (foundNoConnection) ConnectToRBN(stream_);
    std::string stations;
    for (const auto& entry : spots) stations += (stations.empty() ? "" : " ") + entry.Item->Station;
    return stations;
  }

  void Pass(Milliseconds time) { host_.Queue.RunFor(time); }

  bool Says(std::string_view message) { return Contains(host_.EventLog(), ": " + std::string(message)); }

  bool ShowsNoConnection() { return screen_.Spots.lblNoConnectionToRBN.Visible; }

  test::TestHost host_;
  Screen screen_;
  Configuration config_;
  RBNConnection stream_{host_.World, config_, RBNControls(screen_)};
  SpotFilter filter_;
  CallsignCollection known_;
  AlertCollection alerts_;
  RecentRBNSpots recent_;
};

TEST_F(RBNStream, ConnectsLogsInAndHandsOverWholeLines) {
  host_.Sockets.Peer(ScriptedPeer().Refuses());
  Check();
  EXPECT_TRUE(ShowsNoConnection());
  EXPECT_TRUE(screen_.Spots.cmdReloadSpotList.Enabled);
  host_.Sockets.Peer(LetsIn().Sends(std::string(Greeting) + Line("K1AA") + "DX de K").Sends("M3T-2-#:  7"));
  EXPECT_EQ(Check(), "");
  EXPECT_EQ(host_.Sockets.Tried.front(), std::pair(std::string("rbn.example"), 7000));
  EXPECT_TRUE(screen_.tmrCheckSpots.Enabled);
  EXPECT_TRUE(screen_.Spots.cmdReloadSpotList.Enabled);
  EXPECT_EQ(Check(), "") << "not logged in";
  Pass(seconds(1));
  EXPECT_EQ(Check(), "K1AA");
  EXPECT_EQ(Check(), "");
  EXPECT_EQ(host_.Sockets.Unexpected, "");
  EXPECT_FALSE(ShowsNoConnection());
  EXPECT_EQ(host_.TakeMessages(),
            "WinsockArray_Error(0) 10061 Connection refused peer State=9\n"
            "OpenRBNConnection NOT Successful, Host=rbn.example Port=7000 WinsockArray(0) "
            "StateAfterConnect=0\n"
            "WinsockArray_Connect(0) State=7\n"
            "OpenRBNConnection Successful, Host=rbn.example Port=7000 WinsockArray(0) StateAfterConnect=7\n"
            "WinsockArray_DataArrival(0) - Sending callsign Q0ZZ\n"
            "WinsockArray_SendProgress(0) BytesSent=6 BytesRemaining=0 State=7\n"
            "WinsockArray_SendComplete(0) State=7\n");
}

TEST_F(RBNStream, FindsThePromptOfAnyServerHoweverItIsCut) {
  const std::string dialogue = "Please enter your callsign: " + std::string(Greeting) + Line("K1AA");
  for (std::size_t cut = 0; cut <= dialogue.size(); ++cut) {
    host_.Sockets.Peer(ScriptedPeer().Accepts().Sends(dialogue.substr(0, cut)).Sends(dialogue.substr(cut)));
    Check();
    Pass(seconds(1));
    ASSERT_EQ(Check(), "K1AA") << cut;
    std::string errorText;
    CloseRBNConnection(stream_, errorText);
  }
  EXPECT_EQ(EndOfPrompt("Please enter your password: "), std::nullopt);
}

TEST_F(RBNStream, FallsBackToThePublicServerAndRefusesPortsThatDoNotExist) {
  std::string errorText;
  EXPECT_TRUE(OpenRBNConnection(stream_, " ", -1, errorText));
  EXPECT_EQ(host_.Sockets.Tried.front(), std::pair(std::string("telnet.reversebeacon.net"), 7000));
  host_.TakeMessages();
  EXPECT_FALSE(OpenRBNConnection(stream_, "a", 65536, errorText));
  EXPECT_EQ(host_.TakeMessages(),
            "OpenRBNConnection Error, Number=9 Error=Port out of range (StateBeforeTryConnect=-9999) "
            "StateAfterTryConnect=-9999\n");
  EXPECT_TRUE(ShowsNoConnection());
  EXPECT_TRUE(screen_.tmrCheckSpots.Enabled);
}

TEST_F(RBNStream, WaitsNoLongerThanItsTimeOutButTakesALateAnswer) {
  config_.RBNConnectionTimeout = 0;
  bool timerRan = false;
  host_.Queue.OnYield = [&] { timerRan = timerRan || screen_.tmrCheckSpots.Enabled; };
  host_.Sockets.Peer(ScriptedPeer().Accepts(seconds(9)));
  const auto start = host_.Time.Now();
  Check();
  host_.Queue.OnYield = nullptr;
  EXPECT_EQ(host_.Time.Now() - start, seconds(5));
  EXPECT_FALSE(timerRan);
  EXPECT_TRUE(
      Says("OpenRBNConnection NOT Successful, Host=rbn.example Port=7000 WinsockArray(0) "
           "StateAfterConnect=6"));
  EXPECT_TRUE(Contains(StreamStatusText(stream_.Status, {}), "(no answer within 5 seconds)"));
  EXPECT_TRUE(ShowsNoConnection());
  Pass(seconds(5));
  EXPECT_TRUE(stream_.Connected);
  EXPECT_FALSE(ShowsNoConnection());
}

TEST_F(RBNStream, LeavesSocketsThatHangInClosingButTheFirst) {
  for (int i = 0; i < 3; ++i) host_.Sockets.Peer(LetsIn().Closes());
  for (int i = 0; i < 3; ++i) {
    Check();
    Pass(seconds(1));
    EXPECT_TRUE(ShowsNoConnection());
  }
  host_.TakeMessages();
  Check();
  EXPECT_TRUE(host_.TakeMessages().starts_with(
      "OpenRBNConnection - WinsockArray(2) is in hung State=8, loading new control index=3\n"
      "OpenRBNConnection - WinsockArray(3) loaded successfully\n"
      "OpenRBNConnection - WinsockArray(2) unloaded successfully\n"));
  EXPECT_EQ(host_.Sockets.Open, 2);
}

TEST_F(RBNStream, ReadsWhatCameBeforeTheConnectionEndedAndDropsTheRest) {
  for (const bool fails : {false, true}) {
    auto peer = LetsIn().Sends(Line("K1AA") + Line("K1BB") + Line("K1DD").substr(0, 56));
    host_.Sockets.Peer(fails ? peer.Fails({10060, "Connection timed out", "peer"}) : peer.Closes());
    host_.Sockets.Peer(LetsIn().Sends(Line("K1CC")));
    Check();
    Pass(seconds(1));
    EXPECT_FALSE(stream_.Connected);
    EXPECT_EQ(Check(), "K1AA K1BB");
    EXPECT_TRUE(stream_.Connected) << "the same check connects again";
    Pass(seconds(1));
    EXPECT_EQ(Check(), "K1CC");
    std::string errorText;
    CloseRBNConnection(stream_, errorText);
  }
}

TEST_F(RBNStream, ReconnectsWhenTextComesButNoSpots) {
  auto peer = LetsIn();
  for (int minute = 1; minute <= 7; ++minute) peer.Sends("WWV de W0MU\r\n", minutes(1));
  host_.Sockets.Peer(peer);
  host_.Sockets.Peer(LetsIn());
  Pass(minutes(60));  // what happened before the login does not count
  Check();
  Pass(seconds(1));
  for (int minute = 1; minute <= 6; ++minute) {
    EXPECT_EQ(host_.Sockets.Tried.size(), 1) << minute;
    Pass(minutes(1));
    Check();
  }
  EXPECT_EQ(host_.Sockets.Tried.size(), 2);
  EXPECT_TRUE(Says("CloseRBNConnection begin"));
  EXPECT_TRUE(Says("CloseRBNConnection successful"));
}

TEST_F(RBNStream, ReconnectsWhenTheTextNeverEndsItsLineButNotInTheMiddleOfASpot) {
  using Case = std::tuple<const char*, std::size_t, const char*>;
  for (const auto& [piece, attempts, last] :
       {Case{"garbage ", 2, ""}, Case{"WWV\r", 2, ""}, Case{"", 1, "K1AA"}}) {
    host_.Sockets.Tried.clear();
    auto peer = LetsIn();
    for (int minute = 1; minute <= 7 && *piece != 0; ++minute) peer.Sends(piece, minutes(1));
    const auto line = Line("K1AA");
    if (*piece == 0) peer.Sends(line.substr(0, 40), minutes(7)).Sends(line.substr(40), minutes(1));
    host_.Sockets.Peer(peer);
    host_.Sockets.Peer(LetsIn());
    std::string heard;
    for (int minute = 0; minute <= 8; ++minute) {
      heard += Check();
      Pass(minutes(1));
    }
    heard += Check();
    EXPECT_EQ(host_.Sockets.Tried.size(), attempts) << piece;
    EXPECT_EQ(heard, last);
    std::string errorText;
    CloseRBNConnection(stream_, errorText);
  }
}

TEST_F(RBNStream, GivesUpConnectionsThatSayNothingOrNeverAskForTheCallsign) {
  auto chatter = ScriptedPeer().Accepts();
  for (int i = 0; i < 60; ++i) chatter.Sends("Who are you?\r\n", minutes(1));
  // The peer, the setting, the minutes until the connection is closed, and why.
  const std::tuple<ScriptedPeer, const char*, int, const char*> cases[] = {
      {LetsIn(), "5", 15, "nothing received for 15 minutes"},
      {LetsIn(), "6", 18, "nothing received for 18 minutes"},
      {ScriptedPeer().Accepts(), "1", 15, "nothing received for 15 minutes"},
      {chatter, "5", 15, "no login for 15 minutes"},
      {LetsIn(), "0", 0, ""},
  };
  for (const auto& [peer, setting, minutesUntilClosed, reason] : cases) {
    screen_.RBN.txtRBNMaxMinutesSinceLastRawSpotReceived.Text = setting;
    host_.Sockets.Peer(peer);
    Check();
    Pass(seconds(1));
    for (int minute = 1; minute <= 40 && stream_.Connected; ++minute) {
      host_.TakeMessages();
      Pass(minutes(1));
      Check();  // there is no further peer, so that a closed connection stays so
      EXPECT_EQ(stream_.Connected, minute != minutesUntilClosed) << reason << minute;
    }
    const auto told = "CloseSilentRBNConnection - Connection closed, " + std::string(reason);
    EXPECT_EQ(Says(told), !stream_.Connected) << told;
    stream_.Socket().Close();
    ForgetLogin(stream_);
  }
}

TEST_F(RBNStream, SwitchingOffEndsEverythingAlsoAnAttempt) {
  auto& box = screen_.RBN.chkReverseBeaconSpotsEnabled;
  const auto switchOff = [&] {
    box.Value = false;
    chkReverseBeaconSpotsEnabled_Click(stream_);
  };
  host_.Sockets.Peer(ScriptedPeer().Accepts(seconds(2)));
  const auto click = host_.Queue.CallAfter(seconds(1), switchOff);
  Check();
  EXPECT_EQ(stream_.Socket().State(), SocketState::Closed);
  EXPECT_FALSE(ShowsNoConnection());
  EXPECT_EQ(StreamStatusText(stream_.Status, {}), "Reverse Beacon Network: off");

  box.Value = true;
  host_.Sockets.Peer(LetsIn().Sends(Line("K1AA")));
  chkReverseBeaconSpotsEnabled_Click(stream_);
  Pass(seconds(1));
  EXPECT_EQ(StreamStatusText(stream_.Status, {}),
            "Reverse Beacon Network: receiving from rbn.example:7000 since 12:00:01, 1 line, the last at "
            "12:00:01");
  switchOff();
  EXPECT_FALSE(stream_.Lines.HasLines());
}

TEST_F(RBNStream, SwitchingOnNeedsACallsign) {
  bool hasFocus = false;
  const auto watch = screen_.RBN.txtRBNCallsign.SetFocus.WhenRaised([&] { hasFocus = true; });
  screen_.RBN.txtRBNCallsign.Text = "  ";
  chkReverseBeaconSpotsEnabled_Click(stream_);
  EXPECT_TRUE(hasFocus);
  EXPECT_FALSE(screen_.RBN.chkReverseBeaconSpotsEnabled.Value);
  ASSERT_EQ(host_.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(
      host_.Dialogs.Shown.front().Text,
      "You must first enter your Reverse Beacon Network Login Callsign before enabling spots from Reverse "
      "Beacon Network.");
  Check();
  EXPECT_TRUE(host_.Sockets.Tried.empty());
}

TEST_F(RBNStream, ABurstIsHeldBackAndTakenOnFromCheckToCheckUntilAndAfterItsEnd) {
  stream_.Lines = LineBuffer({.MostWaiting = 2 * Line("K1AA").size()});
  auto peer = LetsIn();
  for (const auto* station : {"K1AA", "K1BB", "K1CC", "K1DD", "K1EE", "K1FF"}) peer.Sends(Line(station));
  host_.Sockets.Peer(peer);
  Check();
  Pass(seconds(1));
  EXPECT_EQ(Check(), "K1AA K1BB");
  EXPECT_EQ(Check(), "K1CC K1DD K1EE K1FF") << "what the socket holds is taken in one go";
  EXPECT_EQ(Check(), "");
  for (const auto* station : {"K1AA", "K1BB", "K1CC", "K1DD"}) peer.Sends(Line(station));
  for (const bool fails : {false, true}) {
    auto ending = peer;
    host_.Sockets.Peer(fails ? ending.Fails({10060, "Connection timed out", "peer"}) : ending.Closes());
    std::string errorText;
    CloseRBNConnection(stream_, errorText);
    Check();
    Pass(seconds(1));
    EXPECT_FALSE(stream_.Connected);
    EXPECT_EQ(stream_.Lines.TakeLines().size(), 10 * (Line("K1AA").size() + 1)) << "all of them";
  }
}

TEST_F(RBNStream, SaysOnceWhatTheLimitsDropped) {
  auto peer = LetsIn();
  for (int i = 0; i < 30; ++i) peer.Sends(std::string(10000, '\xE9'));
  host_.Sockets.Peer(peer.Sends("\n" + Line("K1AA")));
  Check();
  Pass(seconds(1));
  EXPECT_EQ(Check(), "K1AA");
  EXPECT_EQ(Split(host_.EventLog(), "WinsockArray_DataArrival(0) - Line of more than 64 KB dropped").size(),
            2U);
}

}  // namespace
}  // namespace brelwin
