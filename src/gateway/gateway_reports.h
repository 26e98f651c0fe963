// What the gateway says about its decisions: event log, spot log, sound, and words for the journal. All of
// them come from the same reasons, so they cannot disagree.
#pragma once

#include <string>
#include <string_view>

#include "gateway/gateway.h"
#include "gateway/gateway_gates.h"
#include "gateway/submission_status.h"
#include "platform/host.h"

namespace brelwin {

// One line of the event log that names the procedure.
void LogGatewayEvent(Host& host, std::string_view message);

void ReportBegin(Host& host, const Spot& spot);

// What a search met on its way, where that is no refusal: nothing to look through, spots too old, another
// band.
void ReportSearchOfCurrentSpots(Host& host, const Spot& spot, const DupeSearch& search);
void ReportSearchOfFeed(Host& host, const DupeSearch& search);

// A refused spot; `search` is the one that found the duplicate, if that is the reason.
void ReportRefusal(Host& host, const Spot& spot, GatewayReason reason, const DupeSearch& search,
                   const GatewayValues& values);

// The line of a station that was sent too recently. It is written for spots refused as duplicates as well.
void ReportInterval(Host& host, const GatewayFacts& facts);

// Why a spot was refused, in words for the user.
std::string RefusalInWords(GatewayReason reason, const GatewayFacts& facts, const DupeSearch& search);

// What became of a submission, in words for the user.
std::string SubmissionInWords(const SubmissionResult& result, const Spot& spot);

}  // namespace brelwin
