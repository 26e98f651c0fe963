#include "telnet_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include "skimmer.h"

namespace practice {
namespace {

using Clock = std::chrono::steady_clock;
using std::string;
using std::string_view;

constexpr std::size_t SpotsInTheAir = 60;

constexpr std::array<std::pair<string_view, Fault>, 6> FaultNames{{{"cut", Fault::Cut},
                                                                   {"stall", Fault::Stall},
                                                                   {"reset", Fault::Reset},
                                                                   {"garbage", Fault::Garbage},
                                                                   {"half", Fault::Half},
                                                                   {"no-prompt", Fault::NoPrompt}}};

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
      .count();
}

bool Send(int socket, string_view text) {
  while (!text.empty()) {
    const auto sent = send(socket, text.data(), text.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

// What the client sends up to its first line end, without it; empty when it goes away.
string ReceiveLine(int socket) {
  string line;
  for (char byte = 0; recv(socket, &byte, 1, 0) == 1 && byte != '\n';)
    if (byte != '\r') line += byte;
  return line;
}

void ResetOnClose(int socket) {
  const linger abrupt{1, 0};
  setsockopt(socket, SOL_SOCKET, SO_LINGER, &abrupt, sizeof abrupt);
}

int ListenOnLoopback(int port) {
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  const int yes = 1;
  setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const auto* generic = reinterpret_cast<const sockaddr*>(&address);  // the socket interface's own idiom
  if (bind(listener, generic, sizeof address) == 0 && listen(listener, 8) == 0) return listener;
  close(listener);
  return -1;
}

int PortOf(int listener) {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
  return ntohs(address.sin_port);
}

}  // namespace

std::optional<Fault> FaultOfName(string_view name) {
  for (const auto& [known, fault] : FaultNames)
    if (known == name) return fault;
  return {};
}

struct TelnetServer::Implementation {
  Implementation(SharedFeed& spots, Ledger& book, std::uint64_t seed, StreamOptions options)
      : Spots(spots), Book(book), Seed(seed), Options(options) {}

  SharedFeed& Spots;
  Ledger& Book;
  std::uint64_t Seed;
  StreamOptions Options;

  int Listener = -1;
  std::atomic<bool> Stopping = false;
  std::thread Accepting;
  std::mutex Mutex;  // guards the clients
  std::list<int> Clients;
  std::list<std::thread> Serving;

  std::int64_t Accepted = 0;

  struct Client {
    int Socket;
    std::int64_t Number;  // of the connection, from 1
  };

  // What was sent of a line, and how the connection ended over it; empty when it goes on.
  struct Delivery {
    string Text;
    string_view Ending;
  };

  void Accept();
  void Serve(Client client);
  string_view Converse(Client client);
  string_view Stream(Client client, Skimmers& skimmers);
  static Delivery Sent(bool done, const string& text);
  Delivery Trouble(int client, const string& line) const;
  bool Pause(double seconds) const;
};

// Waits, but not longer than until the server stops; then false.
bool TelnetServer::Implementation::Pause(double seconds) const {
  const auto end =
      Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
  while (!Stopping && Clock::now() < end)
    std::this_thread::sleep_until(std::min(end, Clock::now() + std::chrono::milliseconds(50)));
  return !Stopping;
}

void TelnetServer::Implementation::Accept() {
  while (!Stopping) {
    const int client = accept(Listener, nullptr, nullptr);
    if (client < 0) continue;
    const std::scoped_lock lock(Mutex);
    Clients.push_back(client);
    Serving.emplace_back([this, accepted = Client{client, ++Accepted}] { Serve(accepted); });
  }
}

void TelnetServer::Implementation::Serve(Client client) {
  Book.Write(Record("open").Number("connection", client.Number));
  const auto how = Converse(client);
  Book.Write(Record("close").Number("connection", client.Number).Text("how", how));
  const std::scoped_lock lock(Mutex);
  Clients.remove(client.Socket);
  close(client.Socket);
}

// Returns how the conversation ended.
string_view TelnetServer::Implementation::Converse(Client client) {
  if (Options.Trouble == Fault::NoPrompt) {
    ReceiveLine(client.Socket);
    return "without login";
  }
  if (!Send(client.Socket, "Please enter your callsign: ")) return "peer";
  const auto callsign = ReceiveLine(client.Socket);
  if (callsign.empty()) return "peer";
  Book.Write(Record("login").Number("connection", client.Number).Text("callsign", callsign));
  if (!Send(client.Socket, "\r\nHello, " + callsign + "! Connected.\r\nLocal users: 208\r\n\r\n"))
    return "peer";
  Skimmers skimmers(Seed + static_cast<std::uint64_t>(client.Number));
  return Stream(client, skimmers);
}

string_view TelnetServer::Implementation::Stream(Client client, Skimmers& skimmers) {
  const auto trouble = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                          std::chrono::duration<double>(Options.SecondsUntilTrouble));
  double due = 0;  // lines that are owed; a fast stream sends several at a time
  const double pause = std::max(0.02, 1 / Options.LinesPerSecond);
  while (Pause(pause)) {
    due += Options.LinesPerSecond * pause;
    while (due >= 1) {
      due -= 1;
      const auto line = skimmers.NextLine(Spots.OnTheAir(Now(), SpotsInTheAir), Now());
      const bool isTroubled = Options.Trouble != Fault::None && Clock::now() >= trouble;
      const auto delivery = isTroubled ? Trouble(client.Socket, line) : Sent(Send(client.Socket, line), line);
      Book.Write(Record(delivery.Ending.empty() ? "line" : "lost")
                     .Number("connection", client.Number)
                     .Text("text", delivery.Ending.empty() ? delivery.Text : line));
      if (!delivery.Ending.empty()) return delivery.Ending;
    }
  }
  return "stop";
}

TelnetServer::Implementation::Delivery TelnetServer::Implementation::Sent(bool done, const string& text) {
  return {text, done ? "" : "peer"};
}

// Sends the line in the troubled way.
TelnetServer::Implementation::Delivery TelnetServer::Implementation::Trouble(int client,
                                                                             const string& line) const {
  const auto half = line.size() / 2;
  const auto garbled = "\xFF\xFB\x01\x80 DX de \x07\x1B\xC3(" + line;
  switch (Options.Trouble) {
    case Fault::None:
    case Fault::NoPrompt: break;
    case Fault::Cut: Send(client, line.substr(0, half)); return {{}, "cut"};
    case Fault::Reset: ResetOnClose(client); return {{}, "reset"};
    case Fault::Stall: Pause(3600); return {{}, "stall"};
    case Fault::Garbage: return Sent(Send(client, garbled), garbled);
    case Fault::Half:
      return Sent(Send(client, line.substr(0, half)) && Pause(0.3) && Send(client, line.substr(half)), line);
  }
  return Sent(Send(client, line), line);
}

TelnetServer::TelnetServer(SharedFeed& feed, Ledger& ledger, std::uint64_t seed, StreamOptions options)
    : implementation_(std::make_unique<Implementation>(feed, ledger, seed, options)) {}

TelnetServer::~TelnetServer() {
  Stop();
}

int TelnetServer::Start(int port) {
  auto& self = *implementation_;
  self.Listener = ListenOnLoopback(port);
  if (self.Listener < 0) return 0;
  self.Accepting = std::thread([&self] { self.Accept(); });
  return PortOf(self.Listener);
}

void TelnetServer::Stop() {
  auto& self = *implementation_;
  if (!self.Accepting.joinable()) return;
  self.Stopping = true;
  shutdown(self.Listener, SHUT_RDWR);
  self.Accepting.join();
  {
    const std::scoped_lock lock(self.Mutex);
    for (const int client : self.Clients) shutdown(client, SHUT_RDWR);
  }
  for (auto& thread : self.Serving) thread.join();
  close(self.Listener);
}

}  // namespace practice
