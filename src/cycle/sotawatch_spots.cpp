#include "cycle/sotawatch_spots.h"

#include <string>
#include <utility>
#include <vector>

#include "board/board_sources.h"
#include "core/event_log.h"
#include "core/status_codes.h"
#include "spots/spot_collections.h"
#include "spots/spot_text.h"

namespace brelwin {
namespace {

// Independent of any setting: the duplicate checks of later steps rely on it.
constexpr std::int32_t MaximumRecentSotawatchSpots = 200;

void NoteFeedState(SpotSources& sources, const SpotCollection& newSpots) {
  auto& state = sources.Sotawatch;
  if (state.Text != sources.Intake.StatusText()) state.Since = sources.World.Time.LocalNow();
  state.Text = sources.Intake.StatusText();
  state.Age = sources.Intake.AgeText();
  state.Spots += static_cast<std::int64_t>(newSpots.Count());
  sources.Tab.lblStatus.Caption = state.Age.empty() ? state.Text : state.Text + "; " + state.Age;
}

void ShowTwitterConnection(Label& label, std::int32_t result) {
  if (result == StatusDone) label.Visible = false;
  if (result == StatusNoConnection) label.Visible = true;
}

std::int32_t ReadFeed(SpotSources& sources, const SotawatchSpotTakers& takers, SpotCollection& newSpots) {
  sources.Tab.picDownload.Visible = true;
  std::string errorText;
  auto sinceID = sources.TwitterSinceID;
  const auto source = SourceInUse(sources);
  if (source == SpotSource::Service) LookForObstacle(sources);
  const auto result = sources.Intake.GetSotawatchSpots(
      source, sources.Config.Addresses, sources.Config.Test, takers.Callsigns.KnownActivators,
      takers.Callsigns.TrustedSpotters, sinceID, newSpots, errorText);
  if (sources.World.ShuttingDown) return result;
  // The user may have switched to the other feed during the fetch: this one's memory and label are gone then.
  if (SourceInUse(sources) == SpotSource::Twitter) {
    sources.TwitterSinceID = sinceID;
    ShowTwitterConnection(sources.Tab.lblNoConnectionToTwitter, result);
  }
  NoteFeedState(sources, newSpots);
  if (result == StatusDone || !newSpots.Empty()) sources.Sotawatch.WasRead = true;
  takers.Commands.CarryOut(newSpots, takers.Scene);
  takers.Activations.TakeSpots(newSpots);
  return result;
}

void TellChanges(BoardKeeper& activations, const SpotChanges& changes) {
  for (const auto& spot : changes.Deleted) activations.Take(TakenBack(*spot));
  for (const auto& edit : changes.Edited) activations.TakeSpot(*edit.After);
}

void RemoveDeleted(SpotLists& lists, const std::vector<SpotPointer>& deleted) {
  for (const auto& spot : deleted) {
    RemoveFromCollection(spot->ID, lists.RecentSotawatchSpots);
    RemoveFromCollection(spot->ID, lists.SpotList);
    LogEvent(lists.World,
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
void Show(SpotCollection& list, const SpotEdit& edit, bool isDisplayed, SpotCollection& inFront) {
  if (!isDisplayed) {
    RemoveFromCollection(edit.After->ID, list);
  } else if (!Replace(edit.After, list) && edit.Before->HiddenFromDisplay) {
    AddSpotByID(edit.After, inFront);
  }
}

void ShowEdited(SpotLists& lists, const std::vector<SpotEdit>& edits, SpotFilter& filter) {
  SpotCollection displayed;
  SpotCollection news;
  for (const auto& edit : edits) {
    Replace(edit.After, lists.RecentSotawatchSpots);
    AddSpotByID(edit.After, displayed);
    if (edit.IsNews()) AddSpotByID(edit.After, news);
  }
  FilterAndLog(lists, filter, displayed);
  SpotCollection inFront;
  for (const auto& edit : edits) Show(lists.SpotList, edit, displayed.Contains(edit.After->ID), inFront);
  MergeIntoSpotList(lists, inFront);
  AlertOn(lists, news, filter);
}

void TakeSpotChanges(SpotLists& lists, const SpotChanges& changes, SpotFilter& filter) {
  RemoveDeleted(lists, changes.Deleted);
  if (!changes.Edited.empty()) {
    ShowEdited(lists, changes.Edited, filter);
  } else if (!changes.Deleted.empty()) {
    DisplaySpotList(lists);
  }
}

}  // namespace

void ReplaceSpotLists(SpotSources& sources, const SotawatchSpotTakers& takers, SpotFilter& filter,
                      const CheckBox& isHeardAtStart) {
  auto& lists = takers.Lists;
  const auto sinceID = std::exchange(sources.TwitterSinceID, {});
  sources.Intake.Forget();
  SpotCollection newSpots;
  const auto result = ReadFeed(sources, takers, newSpots);
  if (sources.World.ShuttingDown) return;
  if (result != StatusDone) {
    sources.TwitterSinceID = sinceID;
    DisplaySpotList(lists);
    return;
  }
  TellChanges(takers.Activations, sources.Intake.TakeChanges());  // the lists are new
  lists.RecentSotawatchSpots = FirstSpots(WithoutTests(newSpots), MaximumRecentSotawatchSpots);
  lists.SpotsHiddenForPoints = 0;
  FilterAndLog(lists, filter, newSpots);
  lists.SpotList = newSpots;
  TrimSpotList(lists);
  DisplaySpotList(lists);
  if (isHeardAtStart.Value) AlertOn(lists, newSpots, filter, true);
}

void TakeSotawatchSpots(SpotSources& sources, const SotawatchSpotTakers& takers, SpotFilter& filter,
                        const CheckBox& isHeardAtStart) {
  auto& lists = takers.Lists;
  const bool atStartup = !sources.Sotawatch.WasRead;
  SpotCollection newSpots;
  ReadFeed(sources, takers, newSpots);
  const auto changes = sources.Intake.TakeChanges();
  TellChanges(takers.Activations, changes);
  TakeSpotChanges(lists, changes, filter);
  if (newSpots.Empty()) return;
  const auto received = newSpots;
  FilterAndLog(lists, filter, newSpots);
  MergeInFront(WithoutTests(received), lists.RecentSotawatchSpots);
  TrimCollection(MaximumRecentSotawatchSpots, lists.RecentSotawatchSpots);
  MergeIntoSpotList(lists, newSpots);
  if (!atStartup || isHeardAtStart.Value) AlertOn(lists, newSpots, filter, atStartup);
}

}  // namespace brelwin
