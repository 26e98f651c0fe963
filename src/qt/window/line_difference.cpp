#include "qt/window/line_difference.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>

namespace brelwin {
namespace {

// The rows of every line's occurrences from `first` on, handed out top down.
class Occurrences {
 public:
  Occurrences(const std::vector<std::string_view>& lines, std::size_t first) : next_(lines.size()) {
    first_.reserve(lines.size() - first);
    for (auto row = lines.size(); row-- > first;) {
      const auto [entry, isNew] = first_.try_emplace(lines[row], row);
      if (isNew) continue;
      next_[row] = entry->second;
      entry->second = row;
    }
  }

  // The topmost row from `from` on that holds the line and was not handed out.
  std::optional<std::size_t> Take(std::string_view line, std::size_t from) {
    const auto found = first_.find(line);
    while (found != first_.end() && found->second) {
      const auto row = *found->second;
      found->second = next_[row];
      if (row >= from) return row;
    }
    return {};
  }

 private:
  std::unordered_map<std::string_view, std::optional<std::size_t>> first_;
  std::vector<std::optional<std::size_t>> next_;
};

// What most refreshes are: lines were added on top, and at the end some have left.
struct Shift {
  std::size_t Added = 0;
  std::size_t Kept = 0;
};

Shift FindShift(const std::vector<std::string_view>& oldLines,
                const std::vector<std::string_view>& newLines) {
  if (oldLines.empty()) return {};
  const auto top = std::find(newLines.begin(), newLines.end(), oldLines.front());
  const auto differing = std::mismatch(oldLines.begin(), oldLines.end(), top, newLines.end());
  const auto kept = static_cast<std::size_t>(differing.first - oldLines.begin());
  if (2 * kept < oldLines.size()) return {};  // the first line has gone elsewhere than the others
  return {static_cast<std::size_t>(top - newLines.begin()), kept};
}

std::vector<LineRun> RunsOf(const std::vector<bool>& kept) {
  std::vector<LineRun> runs;
  for (std::size_t row = 0; row < kept.size(); ++row) {
    if (kept[row]) continue;
    if (runs.empty() || runs.back().First + runs.back().Count != row) runs.push_back({row, 0});
    ++runs.back().Count;
  }
  return runs;
}

}  // namespace

LineDifference FindLineDifference(const std::vector<std::string_view>& oldLines,
                                  const std::vector<std::string_view>& newLines) {
  const auto shift = FindShift(oldLines, newLines);
  std::vector<bool> oldKept(oldLines.size());
  std::vector<bool> newKept(newLines.size());
  std::fill_n(oldKept.begin(), shift.Kept, true);
  std::fill_n(newKept.begin() + static_cast<std::ptrdiff_t>(shift.Added), shift.Kept, true);
  Occurrences occurrences(oldLines, shift.Kept);
  auto from = shift.Kept;
  for (auto row = shift.Added + shift.Kept; row < newLines.size(); ++row) {
    const auto oldRow = occurrences.Take(newLines[row], from);
    if (!oldRow) continue;
    oldKept[*oldRow] = newKept[row] = true;
    from = *oldRow + 1;
  }
  return {RunsOf(oldKept), RunsOf(newKept)};
}

}  // namespace brelwin
