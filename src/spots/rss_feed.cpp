#include "spots/rss_feed.h"

#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "platform/wait.h"
#include "radio/dates.h"
#include "radio/frequency.h"
#include "spots/feed_scanner.h"
#include "spots/known_activators.h"
#include "spots/spot_collections.h"
#include "spots/spot_title.h"

namespace brelwin {

namespace {

// The time of a "Tue, 24 Nov 2026 10:00:00 GMT": what follows the one comma.
std::optional<DateTime> ReadPubDate(std::string_view rawPubDate) {
  const auto text = Without(DecodeFeedText(rawPubDate), "GMT");
  const auto comma = text.find(',');
  if (comma == std::string::npos || text.find(',', comma + 1) != std::string::npos) return {};
  const auto time = ReadDateTime(std::string_view(text).substr(comma + 1));
  return time && !IsTimeAlone(*time) ? time : std::nullopt;
}

std::string AgeOfTop(std::int64_t minutes) {
  return "the feed's newest spot, on its top, is " + std::to_string(minutes / 60) + " hours old";
}

// Reads one item after the other until one says that all later ones need no reading.
class ItemReader {
 public:
  ItemReader(const RSSReadRequest& request, const ReadingMoment& moment, CallsignCollection& knownActivators,
             SpotCollection& spots, FeedReadResult& result)
      : request_(request),
        utcNow_(moment.UTCNow),
        freeTime_(moment.UTCNow),
        maker_(moment, knownActivators, result.LearnedActivators),
        spots_(spots),
        result_(result) {}

  // The reason to stop at this item; empty when reading goes on.
  std::optional<FeedEnd> Read(const RawFeedItem& raw) {
    const auto utc = ReadPubDate(raw.PubDate);
    const auto age = utc ? MinutesBetween(*utc, utcNow_) : 0;
    if (age > request_.MaximumAgeInMinutes) {
      if (result_.NewestID.empty()) result_.AgeText = AgeOfTop(age);
      return FeedEnd::ReachedAgeLimit;
    }
    const auto title = DecodeFeedText(raw.Title);
    const auto made = MakeSpots(title, DecodeFeedText(raw.Description), utc);
    if (made.First == nullptr) {
      NoteSkippedItem(result_, title, raw.PubDate);
      return {};
    }
    ++itemCount_;
    if (result_.NewestID.empty()) result_.NewestID = made.First->ID;
    if (!request_.PreviousNewestID.empty() && made.First->ID == request_.PreviousNewestID)
      return FeedEnd::ReachedPrevious;
    KeepApart(*made.First);
    Add(made.First);
    if (made.Second == nullptr) return {};
    made.Second->SpotKey = made.First->ID;
    KeepApart(*made.Second);
    Add(made.Second);
    return {};
  }

 private:
  MadeSpots MakeSpots(const std::string& title, const std::string& description, std::optional<DateTime> utc) {
    const auto said = ReadSpotDescription(description);
    return maker_.MakeSpots({{}, ReadSpotTitle(title), said.Comment, said.Spotter, utc, itemCount_ + 1});
  }

  // Spots without a time are told apart by their texts: one does not count as another of the same station and
  // spotter because they are read in the same second.
  void KeepApart(Spot& spot) {
    while (!spot.UTCDateTime && spots_.Contains(spot.ID)) {
      ++freeTime_.Seconds;
      spot.ID = CompactText(freeTime_) + spot.Station + spot.Spotter;
    }
  }

  void Add(const SpotPointer& spot) {
    if (request_.All != nullptr) request_.All->push_back(spot);
    AddObjectToCollection(spot,
                          request_.KeyByStationAndFrequency
                              ? DuplicateKey(spot->stationBaseCallsign, spot->FrequencyInMhz)
                              : spot->ID,
                          spots_);
  }

  const RSSReadRequest& request_;
  DateTime utcNow_;
  DateTime freeTime_;  // up to it the IDs of spots without a time may be taken
  SpotMaker maker_;
  SpotCollection& spots_;
  FeedReadResult& result_;
  std::int32_t itemCount_ = 0;
};

}  // namespace

void ReadFeedText(std::string_view text, const RSSReadRequest& request, const ReadingMoment& moment,
                  CallsignCollection& knownActivators, SpotCollection& spots, FeedReadResult& result,
                  const std::function<bool()>& goesOn) {
  result.End = FeedEnd::Cut;
  FeedScanner scanner(text);
  ItemReader reader(request, moment, knownActivators, spots, result);
  while (const auto item = scanner.NextItem()) {
    if (!goesOn()) return;
    if (const auto end = reader.Read(*item)) {
      result.End = *end;
      return;
    }
  }
  if (!scanner.LooksLikeFeed()) result.End = FeedEnd::NoFeed;
  if (scanner.ReachedEnd()) result.End = FeedEnd::EndOfFeed;
}

namespace {

// The copy is for the user's eyes; the reading does not depend on it.
void KeepCopy(Host& host, const std::string& text) {
  if (text.empty()) return;
  TrapErrorsSilently(
      [&] { host.Disk.Write(InProgramFolder(host, FeedCopyFile), text, FileAccess::Everyone); });
}

}  // namespace

FeedReadResult ReadSotawatchRSS(Host& host, const RSSReadRequest& request,
                                CallsignCollection& knownActivators, SpotCollection& spots) {
  FeedReadResult result;
  InternetTransfer transfer(host);
  LogErrors(host, "ReadSotawatchRSS", false, [&] {
    const auto text = transfer.OpenURL(request.Url);
    if (!transfer.LastStatus()) return false;
    KeepCopy(host, text);
    const ActivityMark mark(host.Going, Activity::FetchInProgress);
    LongWork work(host);
    ReadFeedText(text, request, ReadingMomentOf(host), knownActivators, spots, result,
                 [&work] { return work.GoesOn(); });
    return true;
  });
  DescribeAnswer(transfer, "Sotawatch", result);
  SaveLearnedActivators(host, result.LearnedActivators, MissingList::IsCreated);
  return result;
}

}  // namespace brelwin
