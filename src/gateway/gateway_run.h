// One pass of the gateway over the spots of a cycle.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gateway/gateway.h"
#include "gateway/gateway_gates.h"
#include "gateway/submission_status.h"

namespace brelwin {

class GatewayRun {
 public:
  GatewayRun(Gateway& gateway, const PassBeginning& beginning, const GatewayValues& values,
             std::string& message)
      : gateway_(gateway), beginning_(beginning), values_(values), message_(message) {}

  // Returns the result of the whole pass.
  std::int32_t ForAll(const std::vector<SpotPointer>& spots);

 private:
  // The result with which the pass ends; empty when it goes on with the next spot.
  using End = std::optional<std::int32_t>;

  End ForOne(const SpotPointer& spot);
  End Decide(const SpotPointer& spot);
  End Refuse(const Spot& spot, const GatewayVerdict& verdict, const GatewayFacts& facts,
             const DupeSearch& search);
  End Send(const SpotPointer& spot);
  End WaitForSendInProgress(const Spot& spot);
  End EndedByQuitting(const Spot& spot);
  bool IsEnding();

  GatewayFacts FactsAbout(const Spot& spot, const GatewayFacts& found) const;
  std::optional<std::int64_t> SecondsSinceLastSent(const Spot& spot) const;
  DupeSearch LookAtCurrentSpots(const Spot& spot);
  std::optional<DupeSearch> LookAtFeed(const Spot& spot);  // empty when the spot may not go any more
  void Delay(const Spot& spot);

  std::function<bool()> LastLook(const Spot& spot, std::string comment) const;
  void Post(const SpotPointer& spot, const GatewaySender& sender);
  void PretendToPost(const Spot& spot, const GatewaySender& sender);
  void NoteSent(const Spot& spot);
  void NoteFailure(const Spot& spot, const SubmissionResult& result);
  void Note(const Spot& spot, std::string words, bool wasSent = false);
  void ShowJournal();

  Gateway& gateway_;
  const PassBeginning& beginning_;
  const GatewayValues& values_;
  std::string& message_;
};

}  // namespace brelwin
