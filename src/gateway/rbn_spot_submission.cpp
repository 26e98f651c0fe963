#include "gateway/rbn_spot_submission.h"

#include "base/encoding.h"
#include "base/text.h"
#include "core/event_log.h"
#include "core/trap.h"

namespace brelwin {
namespace {

constexpr std::size_t LongestComment = 60;

std::string TruthText(bool value) {
  return value ? "-1" : "0";
}

std::string KnownOrQuestionMark(std::int32_t value) {
  return value > 0 ? std::to_string(value) : "?";
}

std::string SpotType(const Spot& spot) {
  return UpperCase(Trim(spot.SpotTypeString));
}

SubmissionResult NoGatewaySpot(Host& host, const Spot& spot) {
  LogEvent(host,
           "SendRBNSpotToSotawatch - Input data validation failed: isRBN%=" + TruthText(spot.IsRBNSpot) +
               ", isMatched%=" + TruthText(spot.IsMatchedToAlert) + ", theSpotTypeString$=" + SpotType(spot));
  return {.Status = StatusInvalidData, .Reason = "the spot is no alert-matched skimmer spot"};
}

}  // namespace

bool IsGatewaySpot(const Spot& spot) {
  return SpotType(spot) == "CQ" && spot.IsRBNSpot && spot.IsMatchedToAlert;
}

std::string GatewaySpotComment(std::string_view commentTemplate, const Spot& spot) {
  auto comment = Replace(commentTemplate, "XXX", KnownOrQuestionMark(spot.Speed));
  comment = Replace(comment, "YYY", KnownOrQuestionMark(spot.SignalToNoiseRatio));
  comment = Replace(comment, "ZZZ", Trim(spot.Spotter));
  return std::string(FirstCharacters(comment, LongestComment));
}

SubmissionResult SendRBNSpotToSotawatch(Host& host, SpotliteTransfer& transfer,
                                        const Configuration& configuration, std::string_view login,
                                        std::string_view password, std::string_view commentTemplate,
                                        Spot* spot, const std::function<bool()>& mayLeave) {
  if (spot == nullptr) return {};
  return LogErrors(host, "SendRBNSpotToSotawatch", SubmissionResult{}, [&] {
    if (!IsGatewaySpot(*spot)) return NoGatewaySpot(host, *spot);
    spot->Comment = GatewaySpotComment(commentTemplate, *spot);
    return SendSpotToSotawatch(host, transfer, configuration, login, password, spot, mayLeave);
  });
}

}  // namespace brelwin
