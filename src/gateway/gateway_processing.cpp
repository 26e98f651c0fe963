#include "gateway/gateway_processing.h"

#include <vector>

#include "base/text.h"
#include "core/trap.h"
#include "gateway/gateway_run.h"
#include "radio/callsign.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::int32_t LookedAtNothing = 0;

GatewaySender SenderFromScreen(const GatewayTab& tab, const RBNTab& rbn) {
  GatewaySender sender;
  sender.SendsEveryone = tab.chkRBNSendAllSpotsToSotawatch.Value;
  sender.SendsMine = tab.chkRBNSendMySpotsToSotawatch.Value;
  sender.Login = Trim(tab.txtSotawatchLogin.Text.Get());
  sender.Password = Trim(tab.txtSotawatchPassword.Text.Get());
  sender.OwnBaseCallsign = GetBaseCallsign(Trim(rbn.txtRBNCallsign.Text.Get()));
  sender.CommentTemplate = Trim(tab.txtSpotCommentTemplate.Text.Get());
  return sender;
}

bool CanSend(const GatewaySender& sender) {
  if (sender.Login.empty() || sender.Password.empty()) return false;
  return sender.SendsEveryone || (sender.SendsMine && !sender.OwnBaseCallsign.empty());
}

// Without the filter one activator would be posted again and again. True when something had to be corrected.
bool CorrectDuplicateFilter(RBNTab& rbn, NumberFormat format) {
  const bool wasOff = !rbn.chkRBNFilterDuplicateSpots.Value;
  const bool wasTooShort = WholeNumber(rbn.txtDuplicateSpotFilteringPeriod.Text.Get(), format) < 1;
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
                                      const GatewayValues& values, std::string& message) {
  message.clear();
  return LogErrors(gateway.World, "PerformGatewayProcessing", LookedAtNothing, [&] {
    const auto sender = SenderFromScreen(gateway.Tab, gateway.RBN);
    if (!CanSend(sender) || matchedSpots.Empty()) return LookedAtNothing;
    if (CorrectDuplicateFilter(gateway.RBN, gateway.World.Numbers)) return LookedAtNothing;
    const auto usualValues = WithUsualValues(values);
    return GatewayRun(gateway, sender, usualValues, message).ForAll(CopyOf(matchedSpots));
  });
}

}  // namespace brelwin
