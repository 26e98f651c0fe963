#include "gateway/gateway_processing.h"

#include <vector>

#include "core/status_codes.h"
#include "core/trap.h"
#include "gateway/gateway.h"
#include "gateway/gateway_gates.h"
#include "gateway/gateway_run.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

// Without the filter one activator would be posted again and again. True when something had to be corrected.
bool CorrectDuplicateFilter(RBNTab& rbn) {
  const bool wasOff = !rbn.chkRBNFilterDuplicateSpots.Value;
  const bool wasTooShort = WholeNumber(rbn.txtDuplicateSpotFilteringPeriod.Text.Get()) < 1;
  if (wasOff) rbn.chkRBNFilterDuplicateSpots.Value = true;
  if (wasTooShort) rbn.txtDuplicateSpotFilteringPeriod.Text = "10";
  return wasOff || wasTooShort;
}

// The waits let others change collections, so a copy is walked.
std::vector<SpotPointer> CopyOf(const SpotCollection& spots) {
  std::vector<SpotPointer> copy;
  for (const auto& entry : spots) copy.push_back(entry.Item);
  return copy;
}

GatewayValues WithUsualValues(GatewayValues values) {
  if (values.MaxDupeAgeMinutes == 0) values.MaxDupeAgeMinutes = 30;
  if (values.DelaySeconds < 0) values.DelaySeconds = 0;
  return values;
}

}  // namespace

std::int32_t PerformGatewayProcessing(Gateway& gateway, const SpotCollection& matchedSpots,
                                      Instant heardSince, const GatewayValues& values, std::string& message) {
  message.clear();
  gateway.TooOld.clear();
  return LogErrors(gateway.World, "PerformGatewayProcessing", StatusNothingDone, [&] {
    const auto sender = SenderFromScreen(gateway.Tab, gateway.RBN);
    if (!sender.IsSwitchedOn() || !sender.HasLogin() || matchedSpots.Empty()) return StatusNothingDone;
    if (CorrectDuplicateFilter(gateway.RBN)) return StatusNothingDone;
    const auto usualValues = WithUsualValues(values);
    const PassBeginning beginning{sender.SendsEveryone, heardSince};
    return GatewayRun(gateway, beginning, usualValues, message).ForAll(CopyOf(matchedSpots));
  });
}

}  // namespace brelwin
