#include "intake/spot_intake.h"

#include <map>
#include <optional>
#include <utility>

#include "core/event_log.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "intake/delivered_spots.h"
#include "platform/wait.h"
#include "radio/frequency.h"
#include "spots/rss_feed.h"
#include "spots/service_terms.h"
#include "spots/spot_collections.h"
#include "spots/twitter_feed.h"

namespace brelwin {
namespace {

constexpr std::int64_t MaximumAgeInMinutes = std::int64_t{24} * 60;

std::int32_t CodeOf(FeedEnd end) {
  if (end == FeedEnd::NotOpened) return StatusNoConnection;
  return IsFailure(end) ? StatusNothingDone : StatusDone;
}

std::string OfService(const Spot& spot) {
  return "service ID\n" + spot.ID;
}

std::string SkippedText(const SkippedItem& item) {
  return item.IsBroken ? "A broken row was skipped: " : "An item without a station was skipped: ";
}

// What is remembered from read to read.
struct Memory {
  DeliveredSpots Delivered;
  std::string NewestID;  // of the RSS feed, up to which everything has been read
};

}  // namespace

struct SpotIntake::State {
  State(Host& host, ServiceClient& client) : World(host), Service(host, client) {}

  FeedReadResult ReadFeed(SpotSource source, const URLTemplates& addresses, const std::string& twitterSinceID,
                          CallsignCollection& knownActivators, SpotCollection& spots);
  FeedReadResult ReadService(const URLTemplates& addresses, CallsignCollection& knownActivators,
                             SpotCollection& spots);
  void NoteCondition(SpotSource source, const FeedReadResult& result);
  void LogSkippedItems(const FeedReadResult& result);
  bool IsNew(SpotSource source, Spot& spot);
  void Deliver(SpotSource source, const SpotCollection& spots, const CallsignCollection& trustedSpotters,
               SpotCollection& newSpots);
  void EndForgetting(SpotSource source, bool succeeded);

  Host& World;
  Memory Remembered;
  std::optional<Memory> BeforeForget;
  ServiceIntake Service;
  std::string StatusText;
  std::string AgeText;
  std::map<SpotSource, bool> IsOut;  // of those that were asked
  bool ServiceIsGone = false;
};

FeedReadResult SpotIntake::State::ReadFeed(SpotSource source, const URLTemplates& addresses,
                                           const std::string& twitterSinceID,
                                           CallsignCollection& knownActivators, SpotCollection& spots) {
  switch (source) {
    case SpotSource::Service: return ReadService(addresses, knownActivators, spots);
    case SpotSource::Twitter:
      return ReadTwitterSpots(World, {addresses.Twitter, twitterSinceID, MaximumAgeInMinutes},
                              knownActivators, spots);
    case SpotSource::RSS: break;
  }
  return ReadSotawatchRSS(World, {addresses.SotawatchRSS, Remembered.NewestID, MaximumAgeInMinutes, false},
                          knownActivators, spots);
}

FeedReadResult SpotIntake::State::ReadService(const URLTemplates& addresses,
                                              CallsignCollection& knownActivators, SpotCollection& spots) {
  const auto obstacle = ObstacleOfService(addresses.SotawatchAPI, addresses.SotawatchAPITermsConfirmed);
  if (obstacle == ServiceObstacle::None)
    return Service.Read(addresses.SotawatchAPI, knownActivators, BeforeForget.has_value(), spots);
  FeedReadResult result;
  result.ErrorText = result.StatusText = ObstacleInWords(obstacle, addresses.SotawatchAPI);
  return result;
}

// One log line when a feed stops to answer as it should, and one when it is back, however the kind of its
// failure changes between. That the service is gone is told whatever was told before.
void SpotIntake::State::NoteCondition(SpotSource source, const FeedReadResult& result) {
  StatusText = result.StatusText;
  AgeText = result.AgeText;
  const bool isOut = IsFailure(result.End);
  const bool wasGone = ServiceIsGone;
  if (source == SpotSource::Service) ServiceIsGone = result.End == FeedEnd::Gone || (isOut && wasGone);
  const bool hasChanged = std::exchange(IsOut[source], isOut) != isOut || wasGone != ServiceIsGone;
  const auto back = wasGone && !ServiceIsGone ? "Sotawatch feed back. " : "";
  if (hasChanged) LogEvent(World, "GetSotawatchSpots - " + (back + StatusText));
}

void SpotIntake::State::LogSkippedItems(const FeedReadResult& result) {
  const auto logOnce = [this](const std::string& identity, const std::string& text) {
    if (Remembered.Delivered.Note("skipped\n" + identity, World.Time.Now()))
      LogEvent(World, "GetSotawatchSpots - " + text);
  };
  for (const auto& item : result.SkippedItems)
    logOnce(item.Mark + "\n" + item.Text, SkippedText(item) + item.Text);
  if (const auto more = std::to_string(result.MoreSkippedItems); more != "0")
    logOnce(more, "More items without a station were skipped: " + more);
}

// The service's IDs tell its spots apart. One that another feed has delivered is known by that feed's ID.
bool SpotIntake::State::IsNew(SpotSource source, Spot& spot) {
  const auto now = World.Time.Now();
  const auto identity = DeliveryIdentity(spot);
  const auto ofService = "service\n" + identity;
  if (source != SpotSource::Service) {
    const bool isNew = Remembered.Delivered.Note(identity, now);
    return isNew && !Remembered.Delivered.Knows(ofService);
  }
  const bool isDelivered = Remembered.Delivered.Knows(identity);
  const bool isNew = Remembered.Delivered.Note(OfService(spot), now);
  Remembered.Delivered.Note(ofService, now);
  if (isDelivered && spot.UTCDateTime) spot.ID = identity;
  return isNew && !isDelivered;
}

void SpotIntake::State::Deliver(SpotSource source, const SpotCollection& spots,
                                const CallsignCollection& trustedSpotters, SpotCollection& newSpots) {
  const ActivityMark mark(World.Going, Activity::FetchInProgress);
  LongWork work(World);
  for (const auto& deleted : Service.Changes().Deleted) Remembered.Delivered.Forget(OfService(*deleted));
  for (const auto& entry : spots) {
    if (!work.GoesOn()) return;
    auto& spot = *entry.Item;
    if (!IsNew(source, spot)) continue;
    spot.SpotterIsTrustedSpotter = ExistsInCollection(trustedSpotters, spot.SpotterBaseCallsign);
    if (spot.SpotKey.empty()) spot.SpotKey = DuplicateKey(spot.stationBaseCallsign, spot.FrequencyInMhz);
    AddSpotByID(entry.Item, newSpots);
  }
}

// The lists hold what was read just now: of the service nothing but what it delivered itself.
void SpotIntake::State::EndForgetting(SpotSource source, bool succeeded) {
  if (BeforeForget && succeeded && source != SpotSource::Service) Service.Forget();
  if (BeforeForget && !succeeded) Remembered = std::move(*BeforeForget);
  BeforeForget.reset();
}

SpotIntake::SpotIntake(Host& host, ServiceClient& service) : state_(std::make_unique<State>(host, service)) {}

SpotIntake::~SpotIntake() = default;

std::int32_t SpotIntake::GetSotawatchSpots(SpotSource source, const URLTemplates& addresses,
                                           const TestSettings& /*test*/, CallsignCollection& knownActivators,
                                           const CallsignCollection& trustedSpotters,
                                           std::string& twitterSinceID, SpotCollection& newSpots,
                                           std::string& errorText) {
  errorText.clear();
  auto& state = *state_;
  if (!state.World.Going.LetStart(Work::Fetch)) return StatusNothingDone;

  const auto code = LogErrors(state.World, "GetSotawatchSpots", StatusNothingDone, [&] {
    SpotCollection read;
    const auto result = state.ReadFeed(source, addresses, twitterSinceID, knownActivators, read);
    if (state.World.ShuttingDown) return StatusNothingDone;
    state.NoteCondition(source, result);
    state.LogSkippedItems(result);
    errorText = result.ErrorText;
    const auto readCode = CodeOf(result.End);
    if (readCode != StatusDone && state.BeforeForget) {
      if (source == SpotSource::Service) state.Service.Forget();  // what it holds was not delivered
      return readCode;
    }
    state.Deliver(source, read, trustedSpotters, newSpots);
    if (readCode == StatusDone && !result.NewestID.empty())
      (source == SpotSource::RSS ? state.Remembered.NewestID : twitterSinceID) = result.NewestID;
    return readCode;
  });
  state.EndForgetting(source, code == StatusDone);
  return code;
}

void SpotIntake::Forget() {
  if (!state_->World.Going.LetStart(Work::Fetch) || state_->BeforeForget) return;
  state_->BeforeForget = std::exchange(state_->Remembered, Memory());
}

SpotChanges SpotIntake::TakeChanges() {
  auto changes = state_->Service.TakeChanges();
  for (const auto& edit : changes.Edited)
    state_->Remembered.Delivered.Note("service\n" + DeliveryIdentity(*edit.After), state_->World.Time.Now());
  return changes;
}

bool SpotIntake::IsFeedGone() const {
  return state_->ServiceIsGone;
}

const std::string& SpotIntake::StatusText() const {
  return state_->StatusText;
}

const std::string& SpotIntake::AgeText() const {
  return state_->AgeText;
}

}  // namespace brelwin
