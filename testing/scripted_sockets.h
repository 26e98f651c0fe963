// Peers as scripts: what the other side of each connection does, step by step, and what it must be sent.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_queue.h"
#include "platform/socket_control.h"

namespace brelwin::test {

// One step of a peer: it comes `After` the step before it is done.
struct PeerStep {
  enum class Kind : std::uint8_t { Accept, Send, Expect, Close, Fail } What = Kind::Accept;
  std::string Text;
  SocketError Error;
  Milliseconds After{1};
};

// What the other side of one connection does. Without a step the attempt stays without an answer.
class ScriptedPeer {
 public:
  ScriptedPeer& Accepts(Milliseconds after = Milliseconds(1)) {
    return Add({PeerStep::Kind::Accept, {}, {}, after});
  }
  ScriptedPeer& Sends(std::string bytes, Milliseconds after = Milliseconds(1)) {
    return Add({PeerStep::Kind::Send, std::move(bytes), {}, after});
  }
  // Goes on once exactly this has been sent to it since it last went on.
  ScriptedPeer& Expects(std::string bytes) {
    return Add({PeerStep::Kind::Expect, std::move(bytes), {}, Milliseconds(0)});
  }
  ScriptedPeer& Closes(Milliseconds after = Milliseconds(1)) {
    return Add({PeerStep::Kind::Close, {}, {}, after});
  }
  ScriptedPeer& Fails(SocketError error, Milliseconds after = Milliseconds(1)) {
    return Add({PeerStep::Kind::Fail, {}, std::move(error), after});
  }
  ScriptedPeer& Refuses(Milliseconds after = Milliseconds(1)) {
    return Fails({10061, "Connection refused", "peer"}, after);
  }

  std::deque<PeerStep> Steps;

 private:
  ScriptedPeer& Add(PeerStep step) {
    Steps.push_back(std::move(step));
    return *this;
  }
};

class ScriptedSockets final : public SocketControls {
 public:
  explicit ScriptedSockets(EventQueue& queue) : queue_(queue) {}

  // The peer of the next connection that is tried; when there is none left the connection is refused.
  void Peer(ScriptedPeer peer) { peers_.push_back(std::move(peer)); }

  std::unique_ptr<SocketControl> Create() override { return std::make_unique<Socket>(*this); }

  std::vector<std::pair<std::string, std::int32_t>> Tried;  // host and port of every Connect, in order
  int Open = 0;                                             // sockets that exist
  std::string Unexpected;  // what a peer was sent instead of what it expected

 private:
  class Socket final : public SocketControl {
   public:
    explicit Socket(ScriptedSockets& sockets) : sockets_(sockets) { ++sockets_.Open; }
    ~Socket() override { --sockets_.Open; }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    SocketState State() const override { return state_; }

    void Connect(std::string_view host, std::int32_t port) override {
      if (state_ != SocketState::Closed) return;
      sockets_.Tried.emplace_back(std::string(host), port);
      state_ = SocketState::Connecting;
      steps_ = sockets_.TakePeer().Steps;
      GoOn();
    }

    void Close() override {
      state_ = SocketState::Closed;
      steps_.clear();
      received_.clear();
      sent_.clear();
      timer_ = TimerHandle();
      sending_ = TimerHandle();
    }

    void Send(std::string_view bytes) override {
      if (state_ != SocketState::Connected) return;
      sent_.append(bytes);
      sending_ = sockets_.queue_.CallAfter(Milliseconds(1), [this, size = bytes.size()] {
        if (Events.SendProgress) Events.SendProgress(size, 0);
        if (Events.SendComplete) Events.SendComplete();
        MeetExpectation();
      });
    }

    std::string GetData() override { return std::exchange(received_, {}); }

   private:
    void GoOn() {
      if (steps_.empty() || steps_.front().What == PeerStep::Kind::Expect) return;
      timer_ = sockets_.queue_.CallAfter(steps_.front().After, [this] {
        const auto step = steps_.front();
        steps_.pop_front();
        GoOn();
        Take(step);
      });
    }

    void MeetExpectation() {
      if (steps_.empty() || steps_.front().What != PeerStep::Kind::Expect) return;
      if (sent_ != steps_.front().Text) sockets_.Unexpected += sent_;
      sent_.clear();
      steps_.pop_front();
      GoOn();
    }

    void Take(const PeerStep& step) {
      switch (step.What) {
        case PeerStep::Kind::Accept:
          state_ = SocketState::Connected;
          if (Events.Connect) Events.Connect();
          break;
        case PeerStep::Kind::Send:
          received_ += step.Text;
          if (Events.DataArrival) Events.DataArrival(received_.size());
          break;
        case PeerStep::Kind::Expect: break;
        case PeerStep::Kind::Close:
          state_ = SocketState::Closing;
          if (Events.Close) Events.Close();
          break;
        case PeerStep::Kind::Fail:
          state_ = SocketState::Error;
          if (Events.Error) Events.Error(step.Error);
          break;
      }
    }

    ScriptedSockets& sockets_;
    SocketState state_ = SocketState::Closed;
    std::deque<PeerStep> steps_;
    std::string received_;
    std::string sent_;
    TimerHandle timer_;
    TimerHandle sending_;
  };

  ScriptedPeer TakePeer() {
    if (peers_.empty()) return ScriptedPeer().Refuses();
    auto peer = std::move(peers_.front());
    peers_.pop_front();
    return peer;
  }

  EventQueue& queue_;
  std::deque<ScriptedPeer> peers_;
};

}  // namespace brelwin::test
