#include "cycle/shut_down.h"

#include <string>

#include "core/event_log.h"
#include "core/trap.h"
#include "rbn/open_connection.h"

namespace brelwin {

void Form_QueryUnload(MainWindow& window) {
  if (window.World.ShuttingDown) return;
  window.World.ShuttingDown = true;
  window.Ending.emplace(window.World.Going, Activity::ShuttingDown);
  window.SpotGateway.Transfer.CancelUnanswered();
  LogEvent(window.World, "");
  LogEvent(window.World, "Form_QueryUnload");
}

void Form_Unload(MainWindow& window) {
  LogEvent(window.World, "Form_Unload Begin");
  window.Controls.tmrCheckSpots.Enabled = false;
  TrapErrorsSilently([&] { window.SettingsFile.SaveSettings(); });
  std::string errorText;
  for (auto* stream : window.Streams.InUse()) CloseRBNConnection(*stream, errorText);
  window.Activations.Save();
  LogEvent(window.World, "Form_Unload End");
  window.World.Events.Quit();
}

void UnloadWhenDue(MainWindow& window) {
  if (!window.World.ShuttingDown || window.Unloaded) return;
  window.Unloaded = true;
  Form_Unload(window);
}

}  // namespace brelwin
