#include "spots/service_feed_reader.h"

#include <algorithm>
#include <string>

#include "core/trap.h"
#include "spots/known_activators.h"
#include "spots/service_feed_text.h"

namespace brelwin {
namespace {

// The list of the last hours that hold so many minutes.
std::string ListPath(std::int64_t minutes) {
  const auto hours = std::clamp<std::int64_t>((minutes + 60) / 60, 1, 24);
  return "spots/-" + std::to_string(hours) + "/all/all";
}

void Add(const SpotPointer& spot, std::vector<SpotPointer>& spots) {
  if (spot != nullptr && spot->Kind != SpotKind::Test) spots.push_back(spot);
}

}  // namespace

std::vector<SpotPointer> ReadServiceBeside(Host& host, ServiceClient& client, std::string_view root,
                                           std::int64_t maximumAgeInMinutes,
                                           CallsignCollection& knownActivators) {
  FeedReadResult result;
  std::vector<SpotPointer> spots;
  LogErrors(host, "ReadServiceSpots", false, [&] {
    const auto answer = client.AskBeside(ServiceAddress(root, ListPath(maximumAgeInMinutes)));
    if (answer.Outcome != ServiceOutcome::Listed) return false;
    std::vector<MadeSpots> made;
    ReadServiceSpots(answer.Body, maximumAgeInMinutes, ReadingMomentOf(host), knownActivators, made, result);
    for (const auto& [first, second] : made) {
      Add(first, spots);
      Add(second, spots);
    }
    return true;
  });
  SaveLearnedActivators(host, result.LearnedActivators, MissingList::IsCreated);
  return spots;
}

}  // namespace brelwin
