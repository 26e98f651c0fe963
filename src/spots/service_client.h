// Asks the JSON service for one of its lists: first for the list's epoch, a text that is another one
// whenever the list is, and for the list itself only when there is something new in it. It asks once a
// minute at most, less often while it fails, and not before the service itself wants to be asked again.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/internet_transfer.h"
#include "platform/clock.h"
#include "platform/host.h"

namespace brelwin {

class ServiceSchedule {
 public:
  using Random = std::function<double()>;  // evenly spread, from 0 to below 1

  explicit ServiceSchedule(Random random) : random_(std::move(random)) {}

  // Whether the service may be asked; and from when on, empty while that is at once.
  bool MayAsk(Instant now) const;
  std::optional<Instant> NextAsk(Instant now) const;

  // Whether a single question may be put beside the schedule. Only the service's own wish stands against it.
  bool MayAskBeside(Instant now) const { return now >= refusedUntil_; }

  // Whether it is time for the whole list, which tells what has been deleted.
  bool IsWholeListDue(Instant now) const;

  // A round of questions begins; it was answered as it should; it failed, and the service may have said how
  // long it wants to be left alone.
  void NoteAsked(Instant now);
  void NoteSuccess() { failures_ = 0; }
  void NoteFailure(Instant now, std::optional<std::chrono::seconds> retryAfter);

  void NoteWholeList(Instant now) { wholeListAt_ = now; }

  // The next round asks for the whole list.
  void WantWholeList() { wholeListAt_.reset(); }

 private:
  Random random_;
  Instant notBefore_ = Instant::min();
  Instant refusedUntil_ = Instant::min();
  std::optional<Instant> wholeListAt_;
  int failures_ = 0;  // in a row
};

enum class ServiceOutcome : std::uint8_t {
  NotDue,     // nothing was asked
  Unchanged,  // the list is as it was
  Listed,     // the body is the list, up to where it broke off when there is an error text
  Failed,
  Gone,  // the service says that it has been given up
};

struct ServiceAnswer {
  ServiceOutcome Outcome = ServiceOutcome::NotDue;
  bool WasReached = false;  // some answer came
  std::string Body;         // as bytes
  std::string ErrorText;    // why it failed, in words for the status line
};

// The address of something below the service's root: with or without "/" at its end, and with or without the
// "api" that every address of the service holds.
std::string ServiceAddress(std::string_view root, std::string_view path);

class ServiceClient {
 public:
  ServiceClient(Host& host, ServiceSchedule::Random random,
                DuringTransfer during = DuringTransfer::NothingStarts)
      : host_(host), schedule_(std::move(random)), during_(during) {}

  ServiceSchedule& Schedule() { return schedule_; }
  const ServiceSchedule& Schedule() const { return schedule_; }

  // One round of questions, when one is due; yields as every page fetch does. `listAddress` is asked when the
  // epoch is another one than at the last list that was accepted, and with `isWanted` in any case. What the
  // server knows to be unchanged is not sent again.
  ServiceAnswer Ask(const std::string& epochAddress, const std::string& listAddress, bool isWanted);

  // One question beside the schedule, for a list that is not to be missed. NotDue when the service has said
  // when it wants to be asked again and that has not come.
  ServiceAnswer AskBeside(const std::string& listAddress);

  // The last list could be read to its end: it need not be asked again while nothing changes.
  void Accept();

  // It could not: that counts as a failure.
  void Reject();

  // Asks for everything anew at the next round.
  void Forget();

 private:
  // What lets a server say that an address holds what it held.
  using Validators = std::vector<HttpHeader>;

  HttpAnswer Get(const std::string& address, bool isConditional);
  ServiceAnswer AnswerOf(HttpAnswer&& answer);
  ServiceAnswer AskEpoch(const std::string& address);
  ServiceAnswer Fail(ServiceOutcome outcome, std::string errorText);

  Host& host_;
  ServiceSchedule schedule_;
  DuringTransfer during_;
  std::string epoch_;  // of the last list that was accepted
  std::string newEpoch_;
  std::map<std::string, Validators> accepted_;  // by address
  std::map<std::string, Validators> offered_;   // of the answers that have not been accepted yet
};

}  // namespace brelwin
