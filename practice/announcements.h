// Which activations of the script were announced beforehand, and the page that lists them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "random.h"

namespace practice {

struct Announcement {
  std::int64_t Time = 0;  // UTC, in seconds since 1970, on a whole minute
  std::string Station;    // "G4ABC/P", or two callsigns joined by "&"
  std::string Summit;
  std::string FrequencyModes;  // "7.032-cw, 14.285-ssb"
  std::string Comment;         // may hold a window of its own, a withdrawal or odd characters
  std::string Poster;
};

// Where and how fast the script is played.
struct Playing {
  std::uint64_t Seed = 1;
  double Speed = 1;
  std::int64_t Origin = 0;
  std::size_t Crowd = 0;  // operators beside the usual ones
  bool HasOpeningAct = false;
};

// Announcements around the moment of the start, so that a first look meets what a day of the script takes
// long to come to: one who never came, one who cancelled and one who wants no automatic spots.
std::vector<Announcement> OpeningAct(std::int64_t origin);

// A comment as those who announce write them.
std::string SomeRemark(Random& random);

class AnnouncementBook {
 public:
  explicit AnnouncementBook(const Playing& playing) : playing_(playing) {}

  // The announcements from an hour ago on, for today's and the coming days' activations, in the order of
  // time. About one activation in four was not announced.
  std::vector<Announcement> Announcements(std::int64_t now);

 private:
  Playing playing_;
  std::optional<std::int64_t> today_;  // the day of the script for which all were worked out
  std::vector<Announcement> all_;
};

// The page: a heading for each day, a table for each announcement.
std::string AlertsPage(const std::vector<Announcement>& announcements);

}  // namespace practice
