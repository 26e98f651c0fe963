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
  CheckBox chkGatewayDryRun{Controls, "chkGatewayDryRun"};  // everything but the post
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

  // Words to the user; an empty caption means that there is nothing to say.
  Label lblGatewayState{Controls, "lblGatewayState"};                // off, on and for whom, dry run
  Label lblGatewayLoginWarning{Controls, "lblGatewayLoginWarning"};  // what the form cannot carry
  Label lblGatewayAddressWarning{Controls, "lblGatewayAddressWarning"};
  Label lblGatewayTemplateWarning{Controls, "lblGatewayTemplateWarning"};
  Label lblGatewayLastFailure{Controls, "lblGatewayLastFailure"};  // the last status that was no success
  ListBox lstGatewayJournal{Controls, "lstGatewayJournal"};        // what was sent and refused, newest first
};

}  // namespace brelwin
