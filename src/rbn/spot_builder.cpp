#include "rbn/spot_builder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "base/text.h"
#include "radio/frequency.h"
#include "radio/mode.h"
#include "radio/numbers.h"

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

}  // namespace brelwin
