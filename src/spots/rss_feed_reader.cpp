#include "spots/rss_feed_reader.h"

#include "core/data_files.h"
#include "core/trap.h"

namespace brelwin {
namespace {

constexpr std::string_view FeedCopy = "SotawatchSpotsRSS.txt";

// The copy is for the user's eyes; the reading does not depend on it.
void KeepCopy(Host& host, const std::string& text) {
  if (text.empty()) return;
  TrapErrorsSilently([&] { host.Disk.Write(InProgramFolder(host, FeedCopy), text, FileAccess::Everyone); });
}

// Fetches and reads; what was found before an error stays in the result.
bool ReadInto(Host& host, const RSSReadRequest& request, CallsignCollection& knownActivators,
              SpotCollection& spots, FeedReadResult& result) {
  InternetTransfer transfer(host);
  const auto text = transfer.OpenURL(request.Url);
  if (transfer.LastStatus()) {
    KeepCopy(host, text);
    ReadFeedText(text, request, ReadingMomentOf(host), knownActivators, spots, result);
  }
  DescribeAnswer(transfer, "Sotawatch", result);
  return true;
}

}  // namespace

FeedReadResult ReadSotawatchRSS(Host& host, const RSSReadRequest& request,
                                CallsignCollection& knownActivators, SpotCollection& spots) {
  FeedReadResult result;
  LogErrors(host, "ReadSotawatchRSS", false,
            [&] { return ReadInto(host, request, knownActivators, spots, result); });
  SaveLearnedActivators(host, result);
  return result;
}

}  // namespace brelwin
