#include "gateway/posted_spots.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "core/event_log.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "gateway/duplicate_search.h"
#include "radio/dates.h"
#include "radio/numbers.h"

namespace brelwin {
namespace {

constexpr std::string_view Delimiter = "|";
constexpr std::int64_t RememberedMinutes = std::int64_t{24} * 60;
constexpr std::int64_t NearInHertz = 1000;

std::string LettersOf(std::string_view comment) {
  auto letters = UpperCase(comment);
  std::erase_if(letters, [](char c) { return (c < 'A' || c > 'Z') && (c < '0' || c > '9'); });
  return letters;
}

}  // namespace

PostedSpots::PostedSpots(Host& host) : host_(host), file_(host, GatewayPostedSpotsFile) {}

void PostedSpots::LoadOnce() {
  if (std::exchange(isLoaded_, true)) return;
  for (const auto& line : file_.Read()) {
    const auto fields = Split(line, Delimiter);
    const auto time = ReadDateTime(fields[0]);
    if (time && fields.size() == 4) {
      posts_.push_back(
          {*time, std::string(fields[1]), ToSingle(ToDouble(fields[2])), std::string(fields[3])});
    } else {
      LogEvent(host_,
               std::string(GatewayPostedSpotsFile) + " - A line that is no post was not kept: " + line);
    }
  }
}

// A time in the future comes from a clock that was wrong.
void PostedSpots::ForgetOld() {
  std::erase_if(posts_, [now = UTCNow(host_.Time)](const Post& post) {
    return std::abs(MinutesBetween(post.UTC, now)) >= RememberedMinutes;
  });
}

void PostedSpots::Remember(const Spot& spot, std::string_view comment) {
  auto letters = LettersOf(comment);
  if (letters.empty()) return;
  LogErrors(host_, "PostedSpots", false, [&] {
    LoadOnce();
    ForgetOld();
    posts_.push_back({UTCNow(host_.Time), spot.stationBaseCallsign, spot.FrequencyInMhz, std::move(letters)});
    Save();
    return true;
  });
}

bool PostedSpots::Holds(const Spot& spot) {
  LoadOnce();
  ForgetOld();
  return std::ranges::any_of(posts_, [&](const Post& post) {
    return post.BaseCallsign == spot.stationBaseCallsign &&
           DistanceInHertz(post.FrequencyInMhz, spot.FrequencyInMhz) < NearInHertz &&
           post.Letters == LettersOf(spot.Comment);
  });
}

void PostedSpots::Save() {
  std::vector<std::string> lines;
  for (const auto& post : posts_) {
    auto line = DateTimeText(post.UTC);
    for (const auto& field : {post.BaseCallsign, SingleText(post.FrequencyInMhz), post.Letters})
      line.append(Delimiter).append(field);
    lines.push_back(std::move(line));
  }
  file_.Write(lines);
}

}  // namespace brelwin
