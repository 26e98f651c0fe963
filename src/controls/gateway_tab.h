// The Gateway tab: whose spots are sent to Sotawatch, as whom, and when not.
#pragma once

#include "controls/control.h"

namespace brelwin {

struct GatewayTab {
  ControlList Controls;

  Frame fraSendSpotsToSotawatch{Controls, "fraSendSpotsToSotawatch"};
  TextBox txtSotawatchLogin{Controls, "txtSotawatchLogin"};
  TextBox txtSotawatchPassword{Controls, "txtSotawatchPassword"};
  Button cmdTestSotawatchLogin{Controls, "cmdTestSotawatchLogin"};
  CheckBox chkRBNSendAllSpotsToSotawatch{Controls, "chkRBNSendAllSpotsToSotawatch"};
  CheckBox chkRBNSendMySpotsToSotawatch{Controls, "chkRBNSendMySpotsToSotawatch"};
  TextBox txtSotawatchDupeSpotMaxAgeInMinutes{Controls, "txtSotawatchDupeSpotMaxAgeInMinutes"};
  TextBox txtGatewayDelayBeforeFinalDupeCheckAndSend{Controls, "txtGatewayDelayBeforeFinalDupeCheckAndSend"};
  TextBox txtGatewayMinimumSecondsBetweenSpotsOfSameStation{
      Controls, "txtGatewayMinimumSecondsBetweenSpotsOfSameStation"};
  TextBox txtSpotCommentTemplate{Controls, "txtSpotCommentTemplate"};
  TextBox txtGatewaySound{Controls, "txtGatewaySound"};
  Button cmdPlayGatewaySound{Controls, "cmdPlayGatewaySound"};
  CheckBox chkGatewayPlaySoundSpotSentSuccessfully{Controls, "chkGatewayPlaySoundSpotSentSuccessfully"};
  CheckBox chkGatewayPlaySoundSpotIsDupe{Controls, "chkGatewayPlaySoundSpotIsDupe"};

  Frame fraGatewayLogging{Controls, "fraGatewayLogging"};
  Button cmdViewGatewaySpotLog{Controls, "cmdViewGatewaySpotLog"};
  Button cmdViewGatewayServerResponseLog{Controls, "cmdViewGatewayServerResponseLog"};
  Button cmdViewExcludedActivators{Controls, "cmdViewExcludedActivators"};
};

}  // namespace brelwin
