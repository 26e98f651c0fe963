// A store of the board in memory, which fails when the test says so.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/activation_store.h"

namespace brelwin::test {

class MemoryStore final : public ActivationStore {
 public:
  std::map<std::int64_t, KeptRow> Rows;
  std::vector<KeptEvent> Events;
  StoreResult Next;  // of the next calls; MadeAnew empties the store and is said once
  int Saves = 0;     // that were asked for

  StoreResult Load(std::vector<KeptRow>& rows) override {
    for (const auto& [number, row] : Rows) rows.push_back(row);
    return TakeNext();
  }

  StoreResult Save(const StoreChange& change) override {
    ++Saves;
    auto result = TakeNext();
    if (result.Outcome != StoreOutcome::Done) return result;
    for (const auto& row : change.Rows) Rows[row.Number] = row;
    for (const auto number : change.GoneRows) Rows.erase(number);
    Events.insert(Events.end(), change.Events.begin(), change.Events.end());
    std::erase_if(Events, [&](const KeptEvent& event) { return event.When < change.Since; });
    return result;
  }

  StoreResult LoadEvents(DateTime begin, DateTime end, std::vector<KeptEvent>& events) override {
    for (const auto& event : Events) {
      if (event.When >= begin && event.When < end) events.push_back(event);
    }
    return {};
  }

  std::map<std::string, KeptSummit, std::less<>> Summits;
  std::map<std::string, KeptSummit, std::less<>> SummitsComing;

  StoreResult BeginSummits() override {
    SummitsComing.clear();
    return TakeNext();
  }
  StoreResult AddSummits(std::span<const KeptSummit> summits) override {
    for (const auto& summit : summits) SummitsComing[summit.Code] = summit;
    return TakeNext();
  }
  StoreResult EndSummits() override {
    Summits = std::exchange(SummitsComing, {});
    return TakeNext();
  }
  StoreResult LoadSummits(std::span<const std::string> codes, std::vector<KeptSummit>& summits) override {
    for (const auto& code : codes) {
      if (const auto found = Summits.find(code); found != Summits.end()) summits.push_back(found->second);
    }
    return TakeNext();
  }
  StoreResult CountSummits(std::int64_t& count) override {
    count = static_cast<std::int64_t>(Summits.size());
    return TakeNext();
  }

 private:
  StoreResult TakeNext() {
    if (Next.Outcome != StoreOutcome::MadeAnew) return Next;
    Rows.clear();
    Events.clear();
    return std::exchange(Next, {});
  }
};

}  // namespace brelwin::test
