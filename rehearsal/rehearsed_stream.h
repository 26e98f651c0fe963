// The skimmers' stream behind the program's sockets: lines come whether or not anybody listens, and
// connections meet every fate.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "feed.h"
#include "ledger.h"
#include "platform/event_queue.h"
#include "platform/socket_control.h"
#include "random.h"
#include "rehearsal_clock.h"
#include "skimmer.h"

namespace rehearsal {

enum class Fate : std::uint8_t { None, Refused, NoPrompt, Cut, Reset, Stall, Garbage, Half };

struct StreamPlan {
  std::uint64_t Seed = 1;
  int LinesAnHour = 2000;
  bool HasFaults = true;
};

class RehearsedSocket;

class RehearsedStream final : public brelwin::SocketControls {
 public:
  RehearsedStream(brelwin::EventQueue& queue, const RehearsalClock& clock, practice::SharedFeed& feed,
                  practice::Ledger& ledger, StreamPlan plan);
  ~RehearsedStream() override;

  std::unique_ptr<brelwin::SocketControl> Create() override;

  // What sockets tell of themselves.
  void Connecting(RehearsedSocket& socket);
  void LoggedIn(RehearsedSocket& socket, std::string_view callsign);
  void Ended(const RehearsedSocket& socket, std::string_view how);

 private:
  void Tick();
  void OptOut(const std::string& line, const std::vector<practice::PublishedSpot>& onTheAir);
  void Broadcast(const std::string& line);
  void Deliver(const std::string& line);
  void DeliverHalf(const std::string& line);
  void DeliverRest();
  void EndWith(std::string_view how, const std::string& lostLine);
  void Write(std::string_view kind, const std::string& line);
  Fate DrawFate();
  void MeetNewFate();

  brelwin::EventQueue& queue_;
  const RehearsalClock& clock_;
  practice::SharedFeed& feed_;
  practice::Ledger& ledger_;
  StreamPlan plan_;
  practice::Random random_;
  practice::Skimmers skimmers_;
  RehearsedSocket* listener_ = nullptr;  // the one that is logged in
  Fate fate_ = Fate::None;
  std::int64_t fateAt_ = 0;  // milliseconds on the ledger's clock
  std::int64_t connections_ = 0;
  brelwin::TimerHandle tick_;
  std::string halved_;  // the line of which the second half is still to come
  brelwin::TimerHandle rest_;
};

// One connection as the program sees it.
class RehearsedSocket final : public brelwin::SocketControl {
 public:
  RehearsedSocket(brelwin::EventQueue& queue, RehearsedStream& stream) : queue_(queue), stream_(stream) {}
  ~RehearsedSocket() override;
  RehearsedSocket(const RehearsedSocket&) = delete;
  RehearsedSocket& operator=(const RehearsedSocket&) = delete;

  brelwin::SocketState State() const override { return state_; }
  void Connect(std::string_view host, std::int32_t port) override;
  void Close() override;
  void Send(std::string_view bytes) override;
  std::string GetData() override;

  // What the other side does.
  void Accept(std::int64_t number);
  void Refuse();
  void Receive(std::string_view bytes);
  void EndByPeer(bool byReset);
  void After(brelwin::Milliseconds delay, std::function<void()> function);

  std::int64_t Number() const { return number_; }

 private:
  brelwin::EventQueue& queue_;
  RehearsedStream& stream_;
  brelwin::SocketState state_ = brelwin::SocketState::Closed;
  std::string received_;
  std::int64_t number_ = 0;  // of the connection; 0: none
  brelwin::TimerHandle timer_;
  brelwin::TimerHandle sending_;
};

}  // namespace rehearsal
