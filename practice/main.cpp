#include <unistd.h>
#include <csignal>

#include <chrono>
#include <iostream>
#include <string_view>
#include <thread>
#include <vector>

#include "feed.h"
#include "ledger.h"
#include "options.h"
#include "telnet_server.h"
#include "web_server.h"

namespace {

constexpr int UsageError = 2;

// The signals that end the program are taken by WaitForTheEnd alone; threads inherit the mask.
sigset_t BlockEndingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signals;
}

void WaitForTheEnd(const sigset_t& signals) {
  int signal = 0;
  sigwait(&signals, &signal);
}

int Fail(std::string_view message) {
  std::cerr << "brelwin-practice: " << message << '\n';
  return 1;
}

int Run(const practice::Options& options) {
  const auto signals = BlockEndingSignals();
  practice::Ledger ledger(options.LedgerFile);
  if (!ledger.IsOpen()) return Fail("cannot write " + options.LedgerFile);

  const auto start = std::chrono::system_clock::now().time_since_epoch();
  const practice::Playing playing{options.Seed, options.Speed,
                                  std::chrono::duration_cast<std::chrono::seconds>(start).count(),
                                  options.Crowd, true};
  practice::SharedFeed feed(practice::Feed(playing.Seed, playing.Speed, playing.Origin, playing.Crowd));
  practice::Site site(feed, ledger, {playing, options.Form, options.Json, options.PageTroubles});
  practice::WebServer server(site);
  practice::TelnetServer stream(feed, ledger, options.Seed, options.Stream);
  const int port = server.Bind(options.Port);
  if (port == 0) return Fail("cannot listen on port " + std::to_string(options.Port));
  const int telnetPort = stream.Start(options.TelnetPort);
  if (telnetPort == 0) return Fail("cannot listen on port " + std::to_string(options.TelnetPort));
  std::cout << "http=" << port << "\ntelnet=" << telnetPort << std::endl;

  bool served = false;
  std::thread serving([&] {
    served = server.Serve();
    kill(getpid(), SIGTERM);  // a server that ends by itself ends the program
  });
  WaitForTheEnd(signals);
  stream.Stop();
  server.Stop();
  serving.join();
  return served ? 0 : Fail("the port was lost");
}

}  // namespace

int main(int count, char** values) {
  const std::vector<std::string_view> arguments(values + 1, values + count);
  const auto options = practice::ReadOptions(arguments);
  if (!options) {
    std::cerr << practice::Usage;
    return UsageError;
  }
  return Run(*options);
}
