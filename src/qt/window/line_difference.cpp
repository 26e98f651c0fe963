#include "qt/window/line_difference.h"

#include <optional>
#include <unordered_map>

namespace brelwin {
namespace {

// The rows of every line's occurrences, handed out top down.
class Occurrences {
 public:
  explicit Occurrences(const std::vector<std::string_view>& lines) : next_(lines.size()) {
    for (auto row = lines.size(); row-- > 0;) {
      const auto [first, isNew] = first_.try_emplace(lines[row], row);
      if (isNew) continue;
      next_[row] = first->second;
      first->second = row;
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
  Occurrences occurrences(oldLines);
  std::vector<bool> oldKept(oldLines.size());
  std::vector<bool> newKept(newLines.size());
  std::size_t from = 0;
  for (std::size_t row = 0; row < newLines.size(); ++row) {
    const auto oldRow = occurrences.Take(newLines[row], from);
    if (!oldRow) continue;
    oldKept[*oldRow] = newKept[row] = true;
    from = *oldRow + 1;
  }
  return {RunsOf(oldKept), RunsOf(newKept)};
}

}  // namespace brelwin
