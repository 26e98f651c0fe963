#include "qt/window/row_difference.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace brelwin {
namespace {

// Rows that stay and follow each other in both lists.
struct Stretch {
  std::size_t Before = 0;
  std::size_t After = 0;
  std::size_t Count = 0;
};

bool IsSameSpot(const std::shared_ptr<const Spot>& spot, const std::shared_ptr<const Spot>& other) {
  return spot == other || spot->ID == other->ID;
}

// Where the spots of a list stand; IDs are looked at only when the next row is not the one that is sought.
class Places {
 public:
  explicit Places(const SpotRows& rows) : rows_(rows) {}

  std::optional<std::size_t> Find(const std::shared_ptr<const Spot>& spot, std::size_t from) {
    if (IsSameSpot(rows_[from], spot)) return from;
    if (byID_.empty())
      for (auto row = from; row < rows_.size(); ++row) byID_.try_emplace(rows_[row]->ID, row);
    const auto found = byID_.find(spot->ID);
    if (found == byID_.end() || found->second < from) return {};
    return found->second;
  }

 private:
  const SpotRows& rows_;
  std::unordered_map<std::string_view, std::size_t> byID_;
};

std::size_t RowsAbove(const SpotRows& rows, const SpotRows& oldRows) {
  if (oldRows.empty()) return 0;
  const auto top = std::find(rows.begin(), rows.end(), oldRows.front());
  return top == rows.end() ? 0 : static_cast<std::size_t>(top - rows.begin());
}

std::size_t LengthOfStretch(const SpotRows& before, std::size_t first, const SpotRows& after,
                            std::size_t place) {
  const auto begin = before.begin() + static_cast<std::ptrdiff_t>(first);
  const auto differing = std::mismatch(
      begin, before.end(), after.begin() + static_cast<std::ptrdiff_t>(place), after.end(), IsSameSpot);
  return static_cast<std::size_t>(differing.first - begin);
}

std::vector<Stretch> RowsThatStay(const SpotRows& before, const SpotRows& after) {
  std::vector<Stretch> stretches;
  Places places(after);
  auto from = RowsAbove(after, before);
  for (std::size_t row = 0; row < before.size() && from < after.size();) {
    const auto place = places.Find(before[row], from);
    const auto count = place ? LengthOfStretch(before, row, after, *place) : 0;
    if (place) {
      stretches.push_back({row, *place, count});
      from = *place + count;
    }
    row += std::max<std::size_t>(count, 1);
  }
  return stretches;
}

std::vector<RowRun> RunsBetween(const std::vector<Stretch>& stretches, std::size_t Stretch::*first,
                                std::size_t size) {
  std::vector<RowRun> runs;
  std::size_t next = 0;
  const auto end = [&](std::size_t row) {
    if (row > next) runs.push_back({next, row - next});
  };
  for (const auto& stretch : stretches) {
    end(stretch.*first);
    next = stretch.*first + stretch.Count;
  }
  end(size);
  return runs;
}

}  // namespace

RowDifference FindRowDifference(const SpotRows& before, const SpotRows& after) {
  const auto stretches = RowsThatStay(before, after);
  return {RunsBetween(stretches, &Stretch::Before, before.size()),
          RunsBetween(stretches, &Stretch::After, after.size())};
}

}  // namespace brelwin
