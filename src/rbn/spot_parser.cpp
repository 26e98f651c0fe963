#include "rbn/spot_parser.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

#include "alerts/alert_window.h"
#include "alerts/matching.h"
#include "base/text.h"
#include "core/status_codes.h"
#include "core/trap.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "radio/mode.h"
#include "radio/numbers.h"
#include "rbn/spot_line.h"
#include "rbn/spot_rules.h"
#include "spots/spot_collections.h"
#include "spots/spot_text.h"

namespace brelwin {

namespace {

// Rounded half to even and held within 32 bits.
std::int32_t Whole(float value) {
  constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double Highest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::nearbyint(double{value}), Lowest, Highest));
}

void TakeStations(Spot& spot, SpotLine& line, LineFacts& facts) {
  spot.Station = line.Field(SpotField::Station);
  spot.stationBaseCallsign = facts.StationBaseCallsign();
  spot.Spotter = SkimmerCallsign(line.Field(SpotField::Skimmer));
  spot.IsKnownActivator = facts.IsKnownActivator();
}

void TakeFrequency(Spot& spot, SpotLine& line, LineFacts& facts) {
  spot.FrequencyString = line.Field(SpotField::Frequency);
  spot.FormattedFrequencyString = FormatFrequencyKHz(spot.FrequencyString, spot.FrequencyInMhz);
  spot.BandInMhz = static_cast<float>(BandFromFrequency(spot.FrequencyInMhz));
  spot.SpotKey = facts.DuplicateKeyText();
}

void TakeAlert(Spot& spot, const LineFacts& facts) {
  const auto& alert = facts.Alert;
  if (alert == nullptr) return;
  spot.IsMatchedToAlert = true;
  spot.WindowReference = facts.WindowReference;
  spot.SummitDesignator = alert->SummitDesignator;
  spot.SummitName = alert->SummitName;
  spot.SummitPoints = alert->SummitPoints;
  spot.SummitDescription = alert->SummitDescription;
  spot.OperatorName = alert->OperatorName;
}

void TakeSignal(Spot& spot, SpotLine& line) {
  const auto signalToNoise = NumberBefore("dB", line.Field(SpotField::SignalToNoise));
  const auto speed = NumberBefore("WPM", line.Field(SpotField::Speed));
  spot.ModeString = line.Field(SpotField::Mode);
  spot.mode = ModeCode(spot.ModeString);
  spot.SignalToNoiseRatio = Whole(signalToNoise);
  spot.Speed = Whole(speed);
  spot.SpotTypeString = UpperCase(line.Field(SpotField::Type));
  spot.Comment = spot.IsMatchedToAlert ? "Via RBN/Sotawatch Alert Match  S/N=" : "Via RBN  S/N=";
  spot.Comment.append(SingleText(signalToNoise)).append(" dB");
  if (speed > 0) spot.Comment.append(", Speed=").append(SingleText(speed)).append(" WPM");
}

}  // namespace

SpotPointer BuildRBNSpot(SpotLine& line, LineFacts& facts, const LineReceipt& receipt) {
  auto built = std::make_shared<Spot>();
  auto& spot = *built;
  spot.IsRBNSpot = true;
  spot.OrderReceived = receipt.RunningNumber;
  spot.LocalDateAndTime = receipt.LocalNow;
  spot.UTCTime = UTCTimeText(line.Field(SpotField::Time));
  spot.Spot = line.Text() + " ---- <" + std::to_string(receipt.PieceNumber) + ">";
  TakeStations(spot, line, facts);
  TakeFrequency(spot, line, facts);
  TakeAlert(spot, facts);
  TakeSignal(spot, line);
  spot.ID = spot.UTCTime + std::to_string(receipt.RunningNumber) + spot.Station + spot.Spotter;
  return built;
}

namespace {

// Lines of other kinds that follow a spot line stay with it, but not without end.
constexpr std::size_t LongestPiece = std::size_t{64} * 1024;

std::string_view Shortened(std::string_view piece) {
  if (piece.size() <= LongestPiece) return piece;
  const auto end = piece.rfind('\n', LongestPiece - 1);
  return end == std::string_view::npos ? piece : piece.substr(0, end + 1);
}

// What is handled in one piece: shorter than anybody notices.
constexpr Milliseconds LongestStretch{20};
constexpr std::size_t LinesBetweenLooks = 64;

// One call: what its lines have in common.
class Block {
 public:
  Block(Host& host, const SpotFilter& filter, const LineSurroundings& surroundings,
        RecentRBNSpots& recentSpots, SpotCollection& newSpots, std::vector<std::string>* unmatched)
      : host_(host),
        filter_(filter),
        surroundings_(surroundings),
        recentSpots_(recentSpots),
        newSpots_(newSpots),
        unmatched_(unmatched),
        rules_(filter),
        now_(host.Time.Now()),
        stretchBegan_(now_),
        remembers_(filter.FilterDuplicateSpots || filter.DuplicateSpotFilteringPeriod >= 1) {}

  // Purges the recent spots and handles every line of the text, counting them. Of a long text the event queue
  // runs in between, and what is left when the program ends meanwhile is left.
  void Take(std::string_view text, std::int32_t& count);

 private:
  bool MayGoOn(std::size_t pieceNumber);
  void TakeLine(std::string_view line, std::size_t pieceNumber, std::int32_t runningNumber);
  void MatchToAlerts(LineFacts& facts);
  void NoteWindow(LineFacts& facts);
  void NoteUnmatched(std::string_view station);
  void LogMiss(std::int32_t numberOfAlerts);
  void Keep(LineFacts& facts, std::size_t pieceNumber, std::int32_t runningNumber);
  void LogKept(const Spot& spot);
  void Log(std::string_view message);

  Host& host_;
  const SpotFilter& filter_;
  const LineSurroundings& surroundings_;
  RecentRBNSpots& recentSpots_;
  SpotCollection& newSpots_;
  std::vector<std::string>* unmatched_;
  SpotRules rules_;
  Instant now_;
  Instant stretchBegan_;
  bool remembers_;  // else nothing would ever purge what is remembered
  std::optional<DateTime> utcNow_;
  std::optional<DateTime> localNow_;
  SpotLine line_;
};

void Block::Take(std::string_view text, std::int32_t& count) {
  recentSpots_.Purge(filter_.DuplicateSpotFilteringPeriod, now_);
  for (std::size_t pieceNumber = 1; !text.empty() && MayGoOn(pieceNumber); ++pieceNumber) {
    text.remove_prefix(SpotLineStart.size());
    const auto piece = text.substr(0, text.find(SpotLineStart));
    text.remove_prefix(piece.size());
    const auto line = Trim(Shortened(piece));
    if (!SaysNothing(line)) TakeLine(line, pieceNumber, ++count);
  }
}

bool Block::MayGoOn(std::size_t pieceNumber) {
  if (pieceNumber % LinesBetweenLooks != 0) return true;
  if (host_.Time.Now() - stretchBegan_ < LongestStretch) return true;
  host_.Events.DoEvents();
  now_ = stretchBegan_ = host_.Time.Now();
  utcNow_.reset();
  localNow_.reset();
  return !host_.ShuttingDown;
}

void Block::TakeLine(std::string_view line, std::size_t pieceNumber, std::int32_t runningNumber) {
  line_.Read(line);
  LineFacts facts(surroundings_, line_);
  if (facts.StationIsAnnounced()) MatchToAlerts(facts);
  if (rules_.Keep(facts)) Keep(facts, pieceNumber, runningNumber);
}

void Block::MatchToAlerts(LineFacts& facts) {
  if (!utcNow_) utcNow_ = UTCNow(host_.Time);
  std::int32_t numberOfAlerts = 0;
  facts.Alert = GetBestMatchedAlert(host_, facts.StationBaseCallsign(), utcNow_, surroundings_.Alerts,
                                    filter_, numberOfAlerts);
  if (facts.Alert != nullptr) return NoteWindow(facts);
  if (numberOfAlerts > 0) LogMiss(numberOfAlerts);
  NoteUnmatched(facts.StationBaseCallsign());
}

// The overrides are in a file, so they are asked for only where they matter.
void Block::NoteWindow(LineFacts& facts) {
  const auto& alert = *facts.Alert;
  if (ReferenceReadAsMarker(alert.Comment).empty()) return;
  const auto own = DurationOverrides::Load(host_).Of(alert.stationBaseCallsign);
  facts.WindowReference = ReferenceThatMatches(alert, *utcNow_, own.MinutesBefore, filter_);
}

void Block::NoteUnmatched(std::string_view station) {
  if (unmatched_ == nullptr || (!unmatched_->empty() && unmatched_->back() == station)) return;
  unmatched_->emplace_back(station);
}

void Block::LogMiss(std::int32_t numberOfAlerts) {
  Log("Spot received for " + std::string(line_.Field(SpotField::Station)) + " who has " +
      std::to_string(numberOfAlerts) + " alerts in Sotawatch but none of them are within " +
      std::to_string(filter_.MaxMinutesBeforeAlertTime) + " minutes before or " +
      std::to_string(filter_.MaxMinutesAfterAlertTime) + " minutes after the alert time.");
}

void Block::Keep(LineFacts& facts, std::size_t pieceNumber, std::int32_t runningNumber) {
  if (!localNow_) localNow_ = host_.Time.LocalNow();
  const auto spot = BuildRBNSpot(line_, facts, {runningNumber, pieceNumber, *localNow_});
  AddSpotByID(spot, newSpots_);
  if (remembers_) recentSpots_.Remember(spot->SpotKey, now_);
  LogKept(*spot);
}

void Block::LogKept(const Spot& spot) {
  if (spot.IsMatchedToAlert) {
    Log("Alert-matched spot received:");
  } else if (spot.IsKnownActivator) {
    Log("Spot of known activator received, NOT alert matched:");
  } else {
    return;
  }
  LogEvent(host_, DelimitedLine(spot, "|"));
}

void Block::Log(std::string_view message) {
  LogEvent(host_, "");
  LogEvent(host_, "ParseReverseBeaconSpots - " + std::string(message));
}

}  // namespace

std::int32_t ParseReverseBeaconSpots(Host& host, std::string_view text, const SpotFilter& filter,
                                     const CallsignCollection& knownActivators, const AlertCollection& alerts,
                                     RecentRBNSpots& recentSpots, SpotCollection& newSpots,
                                     std::int32_t& count, std::string& errorText,
                                     std::vector<std::string>* unmatched) {
  count = 0;
  errorText.clear();
  if (!text.starts_with(SpotLineStart)) return StatusDone;
  const auto body = [&] {
    const LineSurroundings surroundings{knownActivators, alerts, recentSpots};
    Block(host, filter, surroundings, recentSpots, newSpots, unmatched).Take(text, count);
    return StatusDone;
  };
  return TrapErrors(body, 0, [&](const RuntimeError& error) {
    errorText = error.Description;
    LogEvent(host, "ParseReverseBeaconSpots Error, Number=" + std::to_string(error.Number) +
                       " Error=" + error.Description);
  });
}

}  // namespace brelwin
