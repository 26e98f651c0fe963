// What the JSON service holds at a moment: spots as they were published, corrected and taken back since, and
// announcements likewise. All of it follows from the seed and the time.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "announcements.h"
#include "feed.h"

namespace practice {

// In which shape rows are served. The service has had two; Mixed serves both, and odd rows among them.
enum class RowShapes : std::uint8_t { None, New, Old, Mixed };

enum class SpotType : std::uint8_t { Normal, Qrt, Test };

struct SpotRow {
  std::int64_t Id = 0;
  PublishedSpot Spot;
  SpotType Type = SpotType::Normal;
  bool IsOld = false;  // of the old shape, whose identities are beyond what a double can tell apart
  bool IsCorrected = false;
  bool IsTakenBack = false;  // deleted
};

// The spot's row as it stands now, preceded by a row of type TEST for some.
std::vector<SpotRow> RowsOf(const PublishedSpot& spot, std::uint64_t seed, RowShapes shapes,
                            std::int64_t now);

struct AlertRow {
  std::int64_t Id = 0;
  Announcement What;
  bool IsOld = false;
};

// Nothing for an announcement that has been taken back.
std::optional<AlertRow> RowOf(Announcement announcement, std::uint64_t seed, RowShapes shapes,
                              std::int64_t now);

}  // namespace practice
