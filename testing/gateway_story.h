// A gateway with everything around it, and servers that behave as the real ones do.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "feed_text.h"
#include "gateway/gateway_processing.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "test_host.h"

namespace brelwin::test {

// The values of a form's body, decoded, as a server takes them.
inline std::map<std::string, std::string> FormFields(const std::string& body) {
  std::map<std::string, std::string> fields;
  for (const auto field : Split(body, "&")) {
    const auto equals = field.find('=');
    std::string value;
    for (auto rest = field.substr(equals + 1); !rest.empty();) {
      const bool isEncoded = rest[0] == '%';
      value.push_back(isEncoded ? static_cast<char>(std::stoi(std::string(rest.substr(1, 2)), nullptr, 16))
                                : rest[0]);
      rest.remove_prefix(isEncoded ? 3 : 1);
    }
    fields[std::string(field.substr(0, equals))] = value;
  }
  return fields;
}

inline std::string AcceptedPage(const HttpRequest& request) {
  auto fields = FormFields(request.Body);
  return "<html>Spot of " + fields["actCallsign"] + " on " + fields["assoc"] + "/" + fields["summit"] + ", " +
         fields["freq"] + " MHz, " + fields["mode"] + ": " + fields["comments"] + "</html>";
}

// Looks at the login, then at the association, as the real form does.
inline ScriptedAnswer ServeSpotlite(const HttpRequest& request) {
  auto fields = FormFields(request.Body);
  if (fields["password"] != "secret")
    return {.Body = "submission failed: the password you gave was incorrect"};
  if (fields["assoc"] == "Z8") return {.Body = "submission failed: the association you gave was not valid"};
  return {.Body = AcceptedPage(request)};
}

// How often a spot of the station reached the server.
inline std::size_t PostsOf(const ScriptedInternet& internet, const std::string& station) {
  std::size_t count = 0;
  for (const auto& request : internet.Posts) count += FormFields(request.Body)["actCallsign"] == station;
  return count;
}

struct ListedSpot {
  std::string Station;
  std::string Frequency;  // MHz
  int MinutesAgo = 0;
  std::string Description = "CQ Posted by G4XYZ";
};

struct GatewayStory : TestHost {
  GatewayTab Tab;
  RBNTab RBN;
  Configuration Config;
  SpotCollection Recent;
  CallsignCollection Excluded;
  CallsignCollection Known;
  CallsignCollection Trusted;
  StallWatch Stalls;
  Gateway TheGateway{World, Tab, RBN, Config, &Recent, Excluded, Trusted, Known, Stalls};
  GatewayValues Values;
  std::string Message;

  GatewayStory() {
    Config.Addresses.SotawatchRSS = "https://feed.test/RssFeed";
    Config.Addresses.SpotliteSpotSubmitURL = "https://form.test/Spotlite/postSpot";
    RBN.chkReverseBeaconSpotsEnabled.Value = true;
    Tab.txtSotawatchLogin.Text = "q0zz";
    Tab.txtSotawatchPassword.Text = "secret";
    Tab.txtSpotCommentTemplate.Text = "CQ CQ at XXX wpm. S/N=YYY dB at ZZZ {Via Tarnlink}";
    Tab.chkRBNSendAllSpotsToSotawatch.Value = true;
    RBN.txtRBNCallsign.Text = "Q0ZZ";
    RBN.chkRBNFilterDuplicateSpots.Value = true;
    RBN.txtDuplicateSpotFilteringPeriod.Text = "10";
    Internet.ServePost = ServeSpotlite;
    Feed({{"HB9XYZ", "7.032", 5}});
    Recent = {};
    Recent.Add(SotawatchSpot({"HB9XYZ", "7.032", 5}), "first");
  }

  // What the feed answers from now on, newest first.
  void Feed(const std::vector<ListedSpot>& items) {
    std::vector<std::string> texts;
    texts.reserve(items.size());
    for (const auto& item : items) texts.push_back(ItemText(item));
    Internet.AnswerAlways(Config.Addresses.SotawatchRSS, FeedText(texts));
  }

  // A spot as the intake holds it.
  SpotPointer SotawatchSpot(const ListedSpot& item) const {
    auto spot = std::make_shared<Spot>();
    spot->Station = item.Station;
    spot->stationBaseCallsign = item.Station;
    spot->FormattedFrequencyString = FormatFrequencyMHz(item.Frequency, spot->FrequencyInMhz);
    spot->BandInMhz = static_cast<float>(BandFromFrequency(spot->FrequencyInMhz));
    spot->SpotKey = DuplicateKey(item.Station, spot->FrequencyInMhz);
    spot->TimeOfSpot = Time.Now() - std::chrono::minutes(item.MinutesAgo);
    spot->LocalDateAndTime = AddMinutes(Time.LocalNow(), -item.MinutesAgo);
    spot->UTCTime = ClockText(*spot->LocalDateAndTime);
    spot->Spotter = "G4XYZ";
    spot->ID = item.Station + item.Frequency;
    return spot;
  }

  // An alert-matched spot of a skimmer.
  SpotPointer SkimmerSpot(const std::string& station, const std::string& frequency) const {
    auto spot = SotawatchSpot({station, frequency, 0});
    spot->ID = "RBN" + spot->ID;
    spot->SpotTypeString = "CQ";
    spot->IsRBNSpot = true;
    spot->IsMatchedToAlert = true;
    spot->SummitDesignator = "G/LD-001";
    spot->ModeString = "CW";
    spot->Speed = 22;
    spot->SignalToNoiseRatio = 17;
    spot->Spotter = "DL8LAS";
    return spot;
  }

  std::int32_t Process(const std::vector<SpotPointer>& spots) {
    SpotCollection matched;
    for (const auto& spot : spots) matched.Add(spot, spot->ID);
    return PerformGatewayProcessing(TheGateway, matched, Time.Now(), Values, Message);
  }

  std::size_t Posts(const std::string& station) const { return PostsOf(Internet, station); }

  // The event log's lines without their times, and without those of other procedures.
  std::string GatewayEvents() const {
    constexpr std::string_view Mark = "PerformGatewayProcessing - ";
    std::string events;
    const auto log = EventLog();
    for (const auto line : SplitLines(log)) {
      if (const auto at = line.find(Mark); at != std::string_view::npos)
        events.append(line.substr(at + Mark.size())).append("\n");
    }
    return events;
  }

  std::string GatewayLog() const { return Disk.Text("/brelwin/GatewaySpotLog.txt"); }

 private:
  std::string ItemText(const ListedSpot& item) const {
    const auto time = AddMinutes(Time.LocalNow(), -item.MinutesAgo);
    return FeedItemText(item.Station + " ON G/LD-001 at " + item.Frequency + " CW",
                        "Tue, " + DateTimeText(time) + " GMT", item.Description);
  }
};

}  // namespace brelwin::test
