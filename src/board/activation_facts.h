// What is known of one activation: what was announced, what skimmers heard, what Sotawatch and the gateway
// said. All times are UTC.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "alerts/alert_collection.h"
#include "base/date_time.h"

namespace brelwin {

// One announced time with the window in which a spot counts as this activation.
struct Announcement {
  std::string Key;  // of its alert
  DateTime Begin;
  DateTime Planned;
  DateTime End;
  std::string FrequencyModes;
  std::string Comment;
  Withdrawal Withdrawn = Withdrawal::None;
  bool IsGone = false;  // it was taken off the list of announcements before its time

  bool Stands() const { return Withdrawn == Withdrawal::None && !IsGone; }
  bool operator==(const Announcement&) const = default;
};

// One line of a skimmer.
struct Hearing {
  DateTime When;
  float FrequencyInMhz = 0;
  std::string Mode;
  std::string Skimmer;      // its callsign
  std::int32_t Signal = 0;  // dB over the noise
  std::int32_t Speed = 0;   // words per minute

  bool operator==(const Hearing&) const = default;
};

// One spot of Sotawatch.
struct Report {
  std::string ID;
  DateTime When;
  float FrequencyInMhz = 0;
  std::string Mode;
  std::string Comment;
  std::string Spotter;
  bool IsSelfSpot = false;
  bool SaysGone = false;  // by its type, or by "QRT" in its comment

  bool operator==(const Report&) const = default;
};

// The gateway's last word on the station.
struct GatewayWord {
  DateTime When;
  bool WasSent = false;
  std::string Words;

  bool operator==(const GatewayWord&) const = default;
};

// The best that skimmers heard on a band in one minute.
struct SignalPoint {
  DateTime Minute;
  float BandInMhz = 0;
  std::int32_t Signal = 0;

  bool operator==(const SignalPoint&) const = default;
};

// What skimmers said, put together over the whole activation.
struct HeardSummary {
  DateTime First;
  DateTime Last;
  std::int64_t Lines = 0;
  std::int32_t BestSignal = 0;
  std::int32_t LastSpeed = 0;

  bool operator==(const HeardSummary&) const = default;
};

struct ActivationFacts {
  std::vector<Announcement> Announcements;  // by planned time
  std::deque<Hearing> Hearings;             // of the last 10 minutes, oldest first
  std::optional<HeardSummary> Heard;
  std::vector<Report> Reports;  // oldest first
  std::optional<GatewayWord> Gateway;
  std::string MovedTo;  // the summit of the row that goes on
  std::optional<DateTime> MovedAt;

  bool operator==(const ActivationFacts&) const = default;
};

// Hearings older than this are only kept as a summary.
inline constexpr std::int64_t SecondsOfHearings = 600;

// Time of the newest report; empty without one.
std::optional<DateTime> LastReported(const ActivationFacts& facts);

// Time of the newest sign of life: a skimmer's line or a report. Empty without one.
std::optional<DateTime> LastActivity(const ActivationFacts& facts);

// When the activation begins and ends: from the first window, line or report to the last one. Announcements
// that do not stand count only where nothing else does. Empty when nothing is known.
struct TimeSpan {
  DateTime Begin;
  DateTime End;
};
std::optional<TimeSpan> SpanOf(const ActivationFacts& facts);

// The announcement that matters at `now`: one whose window holds it, else the next one, else the last one.
// Only those that stand are looked at. Null without one.
const Announcement* CurrentAnnouncement(const ActivationFacts& facts, DateTime now);

// By how many seconds `time` lies outside the span; 0 inside.
std::int64_t SecondsOutside(const TimeSpan& span, DateTime time);

// Whether the activator does not want to be spotted automatically: by every announcement's withdrawal that is
// left, or by the word in one of his own spots.
bool HasOptedOut(const ActivationFacts& facts);

}  // namespace brelwin
