#include "intake/spot_intake.h"

#include <optional>
#include <utility>

#include "core/event_log.h"
#include "core/fetch_mark.h"
#include "core/trap.h"
#include "intake/delivered_spots.h"
#include "platform/wait.h"
#include "radio/frequency.h"
#include "spots/rss_feed_reader.h"
#include "spots/spot_collections.h"
#include "spots/twitter_feed_reader.h"

namespace brelwin {
namespace {

constexpr std::int32_t Success = -1;
constexpr std::int32_t NothingDone = 0;
constexpr std::int32_t NoConnection = -100;
constexpr std::int64_t MaximumAgeInMinutes = std::int64_t{24} * 60;

std::int32_t CodeOf(FeedEnd end) {
  if (end == FeedEnd::NotOpened) return NoConnection;
  return IsFailure(end) ? NothingDone : Success;
}

// What is remembered from read to read.
struct Memory {
  DeliveredSpots Delivered;
  std::string NewestID;  // of the RSS feed, up to which everything has been read
};

}  // namespace

struct SpotIntake::State {
  explicit State(Host& host) : World(host) {}

  FeedReadResult ReadFeed(bool viaRSS, const URLTemplates& addresses, const std::string& twitterSinceID,
                          CallsignCollection& knownActivators, SpotCollection& spots);
  void NoteCondition(bool viaRSS, const FeedReadResult& result);
  void LogSkippedItems(const FeedReadResult& result);
  void Deliver(const SpotCollection& spots, const CallsignCollection& trustedSpotters,
               SpotCollection& newSpots);
  void EndForgetting(bool succeeded);

  Host& World;
  Memory Remembered;
  std::optional<Memory> BeforeForget;
  std::string StatusText;
  std::string AgeText;
  bool RSSIsOut = false;
  bool TwitterIsOut = false;
};

FeedReadResult SpotIntake::State::ReadFeed(bool viaRSS, const URLTemplates& addresses,
                                           const std::string& twitterSinceID,
                                           CallsignCollection& knownActivators, SpotCollection& spots) {
  if (!viaRSS) {
    return ReadTwitterSpots(World, {addresses.Twitter, twitterSinceID, MaximumAgeInMinutes}, knownActivators,
                            spots);
  }
  return ReadSotawatchRSS(World, {addresses.SotawatchRSS, Remembered.NewestID, MaximumAgeInMinutes, false},
                          knownActivators, spots);
}

// One log line when a feed stops to answer as it should, and one when it is back, however the kind of its
// failure changes between.
void SpotIntake::State::NoteCondition(bool viaRSS, const FeedReadResult& result) {
  StatusText = result.StatusText;
  AgeText = result.AgeText;
  const bool isOut = IsFailure(result.End);
  if (std::exchange(viaRSS ? RSSIsOut : TwitterIsOut, isOut) != isOut)
    LogEvent(World, "GetSotawatchSpots - " + StatusText);
}

void SpotIntake::State::LogSkippedItems(const FeedReadResult& result) {
  const auto logOnce = [this](const std::string& identity, const std::string& text) {
    if (Remembered.Delivered.Note("skipped\n" + identity, World.Time.Now()))
      LogEvent(World, "GetSotawatchSpots - " + text);
  };
  for (const auto& item : result.SkippedItems)
    logOnce(item.Mark + "\n" + item.Text, "An item without a station was skipped: " + item.Text);
  if (const auto more = std::to_string(result.MoreSkippedItems); more != "0")
    logOnce(more, "More items without a station were skipped: " + more);
}

void SpotIntake::State::Deliver(const SpotCollection& spots, const CallsignCollection& trustedSpotters,
                                SpotCollection& newSpots) {
  const FetchMark mark(World);
  LongWork work(World);
  for (const auto& entry : spots) {
    if (!work.GoesOn()) return;
    auto& spot = *entry.Item;
    if (!Remembered.Delivered.Note(DeliveryIdentity(spot), World.Time.Now())) continue;
    spot.SpotterIsTrustedSpotter = ExistsInCollection(trustedSpotters, spot.SpotterBaseCallsign);
    if (spot.SpotKey.empty()) spot.SpotKey = DuplicateKey(spot.stationBaseCallsign, spot.FrequencyInMhz);
    AddSpotByID(entry.Item, newSpots);
  }
}

void SpotIntake::State::EndForgetting(bool succeeded) {
  if (BeforeForget && !succeeded) Remembered = std::move(*BeforeForget);
  BeforeForget.reset();
}

SpotIntake::SpotIntake(Host& host) : state_(std::make_unique<State>(host)) {}
SpotIntake::~SpotIntake() = default;

std::int32_t SpotIntake::GetSotawatchSpots(bool viaRSS, const URLTemplates& addresses,
                                           const TestSettings& /*test*/, CallsignCollection& knownActivators,
                                           const CallsignCollection& trustedSpotters,
                                           std::string& twitterSinceID, SpotCollection& newSpots,
                                           std::string& errorText) {
  errorText.clear();
  auto& state = *state_;
  if (state.World.FetchInProgress) return NothingDone;

  const auto code = LogErrors(state.World, "GetSotawatchSpots", NothingDone, [&] {
    SpotCollection read;
    const auto result = state.ReadFeed(viaRSS, addresses, twitterSinceID, knownActivators, read);
    if (state.World.ShuttingDown) return NothingDone;
    state.NoteCondition(viaRSS, result);
    state.LogSkippedItems(result);
    errorText = result.ErrorText;
    const auto readCode = CodeOf(result.End);
    if (readCode != Success && state.BeforeForget) return readCode;
    state.Deliver(read, trustedSpotters, newSpots);
    if (readCode == Success && !result.NewestID.empty())
      (viaRSS ? state.Remembered.NewestID : twitterSinceID) = result.NewestID;
    return readCode;
  });
  state.EndForgetting(code == Success);
  return code;
}

void SpotIntake::Forget() {
  if (state_->World.FetchInProgress || state_->BeforeForget) return;
  state_->BeforeForget = std::exchange(state_->Remembered, Memory());
}

const std::string& SpotIntake::StatusText() const {
  return state_->StatusText;
}

const std::string& SpotIntake::AgeText() const {
  return state_->AgeText;
}

}  // namespace brelwin
