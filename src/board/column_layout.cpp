#include "board/column_layout.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::string_view SortedUp = "sorted by ";
constexpr std::string_view SortedDown = "sorted down by ";
constexpr int WidestColumn = 4000;  // pixels

// What most have no use for every day.
constexpr std::array HiddenAtFirst{BoardColumn::Continents, BoardColumn::Speed, BoardColumn::FirstHeard,
                                   BoardColumn::Activations, BoardColumn::Match};

std::optional<BoardColumn> ColumnOf(std::string_view key) {
  const auto* const column = std::ranges::find(BoardColumns(), key, &BoardColumnInfo::Key);
  return column == BoardColumns().end() ? std::nullopt : std::optional(column->Column);
}

std::string_view KeyOf(BoardColumn column) {
  return BoardColumns()[static_cast<std::size_t>(column)].Key;
}

bool ReadSorting(ColumnLayout& layout, std::string_view item) {
  const bool isDown = item.starts_with(SortedDown);
  if (!isDown && !item.starts_with(SortedUp)) return false;
  layout.SortedBy = ColumnOf(Trim(item.substr(isDown ? SortedDown.size() : SortedUp.size())));
  layout.IsDescending = isDown && layout.SortedBy.has_value();
  return true;
}

void ReadPlace(ColumnLayout& layout, std::string_view item) {
  const bool isHidden = item.starts_with('-');
  if (isHidden) item.remove_prefix(1);
  const auto blank = std::min(item.find(' '), item.size());
  const auto column = ColumnOf(item.substr(0, blank));
  if (!column || std::ranges::find(layout.Places, *column, &ColumnPlace::Column) != layout.Places.end())
    return;
  layout.Places.push_back({*column, std::clamp(WholeNumber(item.substr(blank)), 0, WidestColumn), isHidden});
}

void AddMissing(ColumnLayout& layout) {
  for (const auto& info : BoardColumns()) {
    if (std::ranges::find(layout.Places, info.Column, &ColumnPlace::Column) != layout.Places.end()) continue;
    const bool isHidden = std::ranges::find(HiddenAtFirst, info.Column) != HiddenAtFirst.end();
    layout.Places.push_back({info.Column, 0, isHidden});
  }
  if (std::ranges::all_of(layout.Places, &ColumnPlace::IsHidden)) layout.Places.front().IsHidden = false;
}

std::string PlaceText(const ColumnPlace& place) {
  const auto width = place.Width > 0 ? " " + std::to_string(place.Width) : std::string();
  return (place.IsHidden ? "-" : "") + std::string(KeyOf(place.Column)) + width;
}

}  // namespace

ColumnLayout ReadColumnLayout(std::string_view text) {
  ColumnLayout layout;
  for (const auto part : Split(text, ",")) {
    const auto item = Trim(part);
    if (!ReadSorting(layout, item)) ReadPlace(layout, item);
  }
  AddMissing(layout);
  return layout;
}

std::string ColumnLayoutText(const ColumnLayout& layout) {
  std::string text;
  for (const auto& place : layout.Places) text += (text.empty() ? "" : ", ") + PlaceText(place);
  if (layout.SortedBy)
    text += ", " + std::string(layout.IsDescending ? SortedDown : SortedUp) +
            std::string(KeyOf(*layout.SortedBy));
  return text;
}

}  // namespace brelwin
