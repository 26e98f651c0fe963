// What reading a Sotawatch feed gave beside the spots, the same for every kind of feed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/internet_transfer.h"
#include "platform/host.h"

namespace brelwin {

// How far a read came. Only a whole feed or a known place in it proves that nothing was missed.
// Gone: who answers says, in one way or another, that the service has been given up.
enum class FeedEnd : std::uint8_t {
  NotOpened,
  NoFeed,
  Gone,
  Cut,
  ReachedPrevious,
  ReachedAgeLimit,
  EndOfFeed,
};

// True for the ends that leave the older spots unread.
bool IsFailure(FeedEnd end);

// An item that names no station, or cannot be read at all.
struct SkippedItem {
  std::string Text;  // its beginning
  std::string Mark;
  bool IsBroken = false;
};

struct FeedReadResult {
  FeedEnd End = FeedEnd::NotOpened;
  std::string NewestID;  // of the newest item that was read; empty without one
  std::string ErrorText;
  std::string StatusText;  // what the server answered, in words for the status line
  std::string AgeText;     // that the newest spot was too old to be read, in words; empty when it was not
  std::vector<std::string> LearnedActivators;
  std::vector<SkippedItem> SkippedItems;  // the first few
  std::size_t MoreSkippedItems = 0;       // beyond those
  bool HasMore = false;                   // the answer holds more items than are read of any
};

// Notes an item that could not be used, so that it does not vanish silently. `mark`, such as its date, tells
// it from others of the same text.
void NoteSkippedItem(FeedReadResult& result, std::string_view itemText, std::string_view mark);

// The same for an item that cannot be read.
void NoteBrokenItem(FeedReadResult& result, std::string_view itemText);

// Fills in the error and status texts from how the page was answered and how far the read came. `service` is
// the name that the status line shows.
void DescribeAnswer(const InternetTransfer& transfer, std::string_view service, FeedReadResult& result);

}  // namespace brelwin
