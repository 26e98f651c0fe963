#include "rehearsed_stream.h"

#include <algorithm>
#include <array>
#include <utility>

namespace rehearsal {
namespace {

using brelwin::Milliseconds;
using brelwin::SocketState;

constexpr std::size_t SpotsInTheAir = 60;
constexpr std::int64_t Minute = 60'000;
constexpr int LinesOfABurst = 6;
constexpr int LinesOfAnOptOut = 20;
constexpr std::int64_t MostSecondsToOptOut = 10;
constexpr int LinesOfAFate = 40;  // so long, about, does a troubled connection stay as it is

constexpr std::array<Fate, 11> Fates{Fate::None,    Fate::Refused, Fate::Refused, Fate::NoPrompt,
                                     Fate::Cut,     Fate::Cut,     Fate::Reset,   Fate::Stall,
                                     Fate::Garbage, Fate::Half,    Fate::Half};

// The longest piece between slashes.
std::string CallsignOf(const std::string& station) {
  std::string longest;
  for (std::size_t begin = 0; begin < station.size();) {
    const auto end = std::min(station.find('/', begin), station.size());
    if (end - begin > longest.size()) longest = station.substr(begin, end - begin);
    begin = end + 1;
  }
  return longest;
}

}  // namespace

RehearsedStream::RehearsedStream(brelwin::EventQueue& queue, const RehearsalClock& clock,
                                 practice::SharedFeed& feed, practice::Ledger& ledger, StreamPlan plan)
    : queue_(queue),
      clock_(clock),
      feed_(feed),
      ledger_(ledger),
      plan_(plan),
      random_(plan.Seed, 602),
      skimmers_(plan.Seed),
      tick_(queue.CallAfter(Milliseconds(1), [this] { Tick(); })) {}

RehearsedStream::~RehearsedStream() = default;

std::unique_ptr<brelwin::SocketControl> RehearsedStream::Create() {
  return std::make_unique<RehearsedSocket>(queue_, *this);
}

Fate RehearsedStream::DrawFate() {
  return plan_.HasFaults ? random_.Pick(Fates) : Fate::None;
}

void RehearsedStream::MeetNewFate() {
  fate_ = DrawFate();
  fateAt_ = clock_.Milliseconds() + random_.Between(Minute, 60 * Minute);
}

void RehearsedStream::Connecting(RehearsedSocket& socket) {
  MeetNewFate();
  socket.After(Milliseconds(random_.Between(1, 400)), [this, &socket] {
    if (fate_ == Fate::Refused) return socket.Refuse();
    ledger_.Write(practice::Record("open").Number("connection", ++connections_));
    socket.Accept(connections_);
    if (fate_ == Fate::NoPrompt) return;
    socket.After(Milliseconds(random_.Between(1, 900)),
                 [&socket] { socket.Receive("Please enter your callsign: "); });
  });
}

void RehearsedStream::LoggedIn(RehearsedSocket& socket, std::string_view callsign) {
  listener_ = &socket;
  ledger_.Write(practice::Record("login").Number("connection", socket.Number()).Text("callsign", callsign));
  socket.Receive("\r\nHello, Q0ZZ! Connected.\r\n\r\n");
}

void RehearsedStream::Ended(const RehearsedSocket& socket, std::string_view how) {
  ledger_.Write(practice::Record("close").Number("connection", socket.Number()).Text("how", how));
  if (listener_ != &socket) return;
  if (!halved_.empty()) Write("lost", std::exchange(halved_, {}));
  listener_ = nullptr;
}

// Mostly one line at a time, now and then several at once.
void RehearsedStream::Tick() {
  const auto lines = random_.OneIn(10) ? random_.Between(2, LinesOfABurst) : 1;
  for (auto i = lines; i > 0; --i) {
    const auto onTheAir = feed_.OnTheAir(clock_.UTCSeconds(), SpotsInTheAir);
    const auto line = skimmers_.NextLine(onTheAir, clock_.UTCSeconds());
    Broadcast(line);
    if (plan_.HasFaults && random_.OneIn(LinesOfAnOptOut)) OptOut(line, onTheAir);
  }
  const auto usual = std::int64_t{3'600'000} / plan_.LinesAnHour;
  tick_ =
      queue_.CallAfter(Milliseconds(random_.Between(1, 2 * usual) * (lines > 1 ? 2 : 1)), [this] { Tick(); });
}

// Whoever is heard may ask, while that waits to be posted, not to be; under any form of his callsign.
void RehearsedStream::OptOut(const std::string& line, const std::vector<practice::PublishedSpot>& onTheAir) {
  for (const auto& published : onTheAir) {
    const auto& spot = published.What;
    if (line.find(" " + spot.Station + " ") == std::string::npos) continue;
    auto word = spot;
    word.Comment = "no Tarnlink please";
    word.Spotter = CallsignOf(spot.Station);
    if (random_.OneIn(2)) word.Station = word.Spotter;
    return feed_.Publish(word, clock_.UTCSeconds() + random_.Between(0, MostSecondsToOptOut));
  }
}

void RehearsedStream::Broadcast(const std::string& line) {
  DeliverRest();
  if (clock_.Milliseconds() >= fateAt_ && random_.OneIn(LinesOfAFate)) MeetNewFate();
  const auto fate = clock_.Milliseconds() >= fateAt_ ? fate_ : Fate::None;
  if (listener_ == nullptr) return Write("lost", line);
  switch (fate) {
    case Fate::None:
    case Fate::Refused:
    case Fate::NoPrompt: return Deliver(line);
    case Fate::Stall: return Write("lost", line);
    case Fate::Cut: listener_->Receive(line.substr(0, line.size() / 2)); return EndWith("cut", line);
    case Fate::Reset: return EndWith("reset", line);
    case Fate::Garbage: return Deliver("\xFF\xFB\x01\x80 DX de \x07\x1B\xC3(" + line);
    case Fate::Half: return DeliverHalf(line);
  }
}

void RehearsedStream::Deliver(const std::string& line) {
  Write("line", line);
  listener_->Receive(line);
}

void RehearsedStream::DeliverHalf(const std::string& line) {
  halved_ = line;
  listener_->Receive(line.substr(0, line.size() / 2));
  rest_ = queue_.CallAfter(Milliseconds(random_.Between(1, 800)), [this] { DeliverRest(); });
}

void RehearsedStream::DeliverRest() {
  const auto line = std::exchange(halved_, {});
  rest_ = {};
  if (line.empty() || listener_ == nullptr) return;
  Write("line", line);
  listener_->Receive(line.substr(line.size() / 2));
}

void RehearsedStream::EndWith(std::string_view how, const std::string& lostLine) {
  Write("lost", lostLine);
  listener_->EndByPeer(how == "reset");
}

void RehearsedStream::Write(std::string_view kind, const std::string& line) {
  ledger_.Write(practice::Record(kind)
                    .Number("connection", listener_ == nullptr ? 0 : listener_->Number())
                    .Text("text", line));
}

RehearsedSocket::~RehearsedSocket() {
  Close();
}

void RehearsedSocket::Connect(std::string_view, std::int32_t) {
  if (state_ != SocketState::Closed) return;
  state_ = SocketState::Connecting;
  stream_.Connecting(*this);
}

void RehearsedSocket::Close() {
  state_ = SocketState::Closed;
  received_.clear();
  timer_ = {};
  sending_ = {};
  if (number_ != 0) stream_.Ended(*this, "peer");
  number_ = 0;
}

void RehearsedSocket::Send(std::string_view bytes) {
  if (state_ != SocketState::Connected) return;
  sending_ = queue_.CallAfter(Milliseconds(1), [this, text = std::string(bytes)] {
    if (Events.SendProgress) Events.SendProgress(text.size(), 0);
    if (Events.SendComplete) Events.SendComplete();
    stream_.LoggedIn(*this, text.substr(0, text.find('\r')));
  });
}

std::string RehearsedSocket::GetData() {
  return std::exchange(received_, {});
}

void RehearsedSocket::Accept(std::int64_t number) {
  number_ = number;
  state_ = SocketState::Connected;
  if (Events.Connect) Events.Connect();
}

void RehearsedSocket::Refuse() {
  state_ = SocketState::Error;
  if (Events.Error) Events.Error({10061, "Connection refused", "practice"});
}

void RehearsedSocket::Receive(std::string_view bytes) {
  received_.append(bytes);
  if (Events.DataArrival) Events.DataArrival(received_.size());
}

void RehearsedSocket::EndByPeer(bool byReset) {
  stream_.Ended(*this, byReset ? "reset" : "cut");
  number_ = 0;
  state_ = byReset ? SocketState::Error : SocketState::Closing;
  if (byReset && Events.Error) Events.Error({10054, "Connection reset by peer", "practice"});
  if (!byReset && Events.Close) Events.Close();
}

void RehearsedSocket::After(Milliseconds delay, std::function<void()> function) {
  timer_ = queue_.CallAfter(delay, std::move(function));
}

}  // namespace rehearsal
