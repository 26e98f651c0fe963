#include "spots/rss_feed_reader.h"

#include "core/data_files.h"
#include "core/fetch_mark.h"
#include "core/file_names.h"
#include "core/trap.h"
#include "platform/wait.h"
#include "spots/known_activators.h"

namespace brelwin {
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
    const FetchMark mark(host);
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
