// One pass of the gateway over the spots of a cycle.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gateway/gateway_gates.h"
#include "gateway/gateway_processing.h"
#include "gateway/submission_status.h"

namespace brelwin {

// Who sends, as what, and whose spots: as the screen has it at the start of the pass.
struct GatewaySender {
  bool SendsEveryone = false;
  bool SendsMine = false;
  std::string Login;
  std::string Password;
  std::string OwnBaseCallsign;
  std::string CommentTemplate;
};

class GatewayRun {
 public:
  GatewayRun(Gateway& gateway, const GatewaySender& sender, const GatewayValues& values, std::string& message)
      : gateway_(gateway), sender_(sender), values_(values), message_(message) {}

  // Returns the result of the whole pass.
  std::int32_t ForAll(const std::vector<SpotPointer>& spots);

 private:
  // The result with which the pass ends; empty when it goes on with the next spot.
  using End = std::optional<std::int32_t>;

  End ForOne(const SpotPointer& spot);
  End Decide(const SpotPointer& spot, GatewayFacts& facts);
  End Refuse(const Spot& spot, const GatewayVerdict& verdict, const GatewayFacts& facts,
             const DupeSearch& search);
  End Send(const SpotPointer& spot);
  End WaitForSendInProgress(const Spot& spot);
  End EndedByQuitting(const Spot& spot);
  bool IsEnding();

  GatewayFacts FactsAbout(const Spot& spot) const;
  std::optional<std::int64_t> SecondsSinceLastSent(const Spot& spot) const;
  DupeSearch LookAtCurrentSpots(const Spot& spot);
  DupeSearch LookAtFeed(const Spot& spot);
  void Delay();
  SpotCollection ReadFeed();

  void Post(const SpotPointer& spot);
  void PretendToPost(const Spot& spot);
  void NoteSent(const Spot& spot);
  void NoteFailure(const Spot& spot, const SubmissionResult& result);
  void Note(const Spot& spot, std::string words);
  void ShowJournal();

  Gateway& gateway_;
  const GatewaySender& sender_;
  const GatewayValues& values_;
  std::string& message_;
};

}  // namespace brelwin
