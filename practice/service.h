// The JSON service of spots and announcements: what it answers, and when it has had enough or is gone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "announcements.h"
#include "feed.h"
#include "reply.h"
#include "service_rows.h"

namespace practice {

struct ServiceOptions {
  RowShapes Shapes = RowShapes::None;  // None: there is no such service
  int OutagesInAHundred = 0;           // half hours in which it refuses its service for a while
};

// The root of its addresses, which end in "spots/epoch" and the like.
inline constexpr std::string_view ServiceRoot = "/api/";

class Service {
 public:
  Service(Playing playing, ServiceOptions options) : playing_(playing), options_(options) {}

  bool IsOpen() const { return options_.Shapes != RowShapes::None; }

  // The answer for what follows the root. `knownTag` is the tag of the answer that the asker still has, or
  // empty. `published` are all spots, newest first; `now` is in seconds since 1970.
  Reply Answer(std::string_view path, std::string_view knownTag, const std::vector<PublishedSpot>& published,
               AnnouncementBook& announcements, std::int64_t now) const;

 private:
  std::optional<Reply> Refusal(std::string_view path, std::int64_t now) const;
  Reply Page(std::string_view path, const std::vector<PublishedSpot>& published,
             AnnouncementBook& announcements, std::int64_t now) const;
  Reply SpotEpoch(const std::vector<PublishedSpot>& published, std::int64_t now) const;
  Reply SpotList(std::int64_t limit, const std::vector<PublishedSpot>& published, std::int64_t now) const;
  Reply AlertEpoch(const std::vector<Announcement>& announced, std::int64_t now) const;
  Reply AlertList(std::int64_t hours, std::int64_t limit, const std::vector<Announcement>& announced,
                  std::int64_t now) const;
  void AddRow(const std::string& row, std::int64_t id, std::string& rows) const;

  Playing playing_;
  ServiceOptions options_;
};

}  // namespace practice
