#include "spots/feed_result.h"

#include "base/encoding.h"

namespace brelwin {
namespace {

constexpr std::size_t MostSkippedItems = 20;
constexpr std::size_t LongestSkippedText = 100;

std::string WithReason(const std::string& text, const std::string& reason) {
  return reason.empty() ? text : text + ": " + reason;
}

std::string StatusOfAnswer(const InternetTransfer& transfer, const std::string& service, FeedEnd end) {
  const auto code = transfer.LastStatusCode();
  const auto& error = transfer.LastTransportError();
  if (end == FeedEnd::NotOpened) return WithReason("No connection to " + service, error);
  if (code < 200 || code >= 300) return WithReason(service + " answered " + std::to_string(code), error);
  const bool brokeOff = end == FeedEnd::Cut || (end == FeedEnd::NoFeed && !error.empty());
  if (brokeOff) return WithReason("The answer of " + service + " broke off", error);
  return end == FeedEnd::NoFeed ? service + " answered, but not with spots" : "Connected to " + service;
}

void Note(FeedReadResult& result, SkippedItem item) {
  if (result.SkippedItems.size() == MostSkippedItems) {
    ++result.MoreSkippedItems;
  } else {
    result.SkippedItems.push_back(std::move(item));
  }
}

}  // namespace

bool IsFailure(FeedEnd end) {
  return end < FeedEnd::ReachedPrevious;
}

void NoteSkippedItem(FeedReadResult& result, std::string_view itemText, std::string_view mark) {
  Note(result, {std::string(FirstCharacters(itemText, LongestSkippedText)),
                std::string(FirstCharacters(mark, LongestSkippedText))});
}

void NoteBrokenItem(FeedReadResult& result, std::string_view itemText) {
  Note(result, {std::string(FirstCharacters(itemText, LongestSkippedText)), {}, true});
}

void DescribeAnswer(const InternetTransfer& transfer, std::string_view service, FeedReadResult& result) {
  result.StatusText = StatusOfAnswer(transfer, std::string(service), result.End);
  if (!transfer.LastStatus()) {
    result.ErrorText = transfer.LastErrorMessage();
  } else if (IsFailure(result.End)) {
    result.ErrorText = result.StatusText;
  }
}

}  // namespace brelwin
