// Everything that is on the screen, grouped as the tabs group it.
#pragma once

#include <array>

#include "controls/files_tab.h"
#include "controls/filters_tab.h"
#include "controls/form.h"
#include "controls/gateway_tab.h"
#include "controls/logs_tab.h"
#include "controls/rbn_tab.h"
#include "controls/spots_tab.h"

namespace brelwin {

struct Screen {
  Form Window;
  CheckTimer tmrCheckSpots;
  SpotsTab Spots;
  FiltersTab Filters;
  LogsTab Logs;
  RBNTab RBN;
  GatewayTab Gateway;
  FilesTab Files;
  AboutTab About;

  // The groups in the order of the tabs, for whoever binds or checks every control.
  std::array<ControlList*, 7> Groups() {
    return {&Spots.Controls,   &Filters.Controls, &Logs.Controls, &RBN.Controls,
            &Gateway.Controls, &Files.Controls,   &About.Controls};
  }
};

}  // namespace brelwin
