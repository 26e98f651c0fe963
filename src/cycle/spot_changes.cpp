#include "cycle/spot_changes.h"

#include <string>
#include <vector>

#include "core/event_log.h"
#include "cycle/spot_list_display.h"
#include "cycle/spot_outputs.h"
#include "spots/spot_collections.h"
#include "spots/spot_text.h"
#include "ui/alerting.h"

namespace brelwin {
namespace {

void RemoveDeleted(MainWindow& window, const std::vector<SpotPointer>& deleted) {
  for (const auto& spot : deleted) {
    RemoveFromCollection(spot->ID, window.RecentSotawatchSpots);
    RemoveFromCollection(spot->ID, window.SpotList);
    LogEvent(window.World,
             "GetSotawatchSpots - A spot was deleted at its source: " + DelimitedLine(*spot, "|"));
  }
}

// False when the collection does not hold the spot.
bool Replace(const SpotPointer& spot, SpotCollection& collection) {
  auto* held = collection.Find(spot->ID);
  if (held != nullptr) *held = spot;
  return held != nullptr;
}

// A spot that was kept out of the list comes into it when what it says lets it in, and the other way round.
void Show(MainWindow& window, const SpotEdit& edit, bool isDisplayed, SpotCollection& inFront) {
  if (!isDisplayed) {
    RemoveFromCollection(edit.After->ID, window.SpotList);
  } else if (!Replace(edit.After, window.SpotList) && edit.Before->HiddenFromDisplay) {
    AddSpotByID(edit.After, inFront);
  }
}

void ShowEdited(MainWindow& window, const std::vector<SpotEdit>& edits, SpotFilter& filter) {
  SpotCollection displayed;
  SpotCollection news;
  for (const auto& edit : edits) {
    Replace(edit.After, window.RecentSotawatchSpots);
    AddSpotByID(edit.After, displayed);
    if (edit.IsNews()) AddSpotByID(edit.After, news);
  }
  FilterAndLog(window, filter, displayed);
  SpotCollection inFront;
  for (const auto& edit : edits) Show(window, edit, displayed.Contains(edit.After->ID), inFront);
  MergeIntoSpotList(window, inFront);
  AlertOnNewSpots(window.World, news, filter, window.SpotList, nullptr, &window.Controls.Window, false);
}

}  // namespace

void TakeSpotChanges(MainWindow& window, SpotFilter& filter) {
  const auto changes = window.Intake.TakeChanges();
  RemoveDeleted(window, changes.Deleted);
  if (!changes.Edited.empty()) {
    ShowEdited(window, changes.Edited, filter);
  } else if (!changes.Deleted.empty()) {
    DisplaySpotList(window, window.SpotList);
  }
}

}  // namespace brelwin
