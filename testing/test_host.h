// The whole outside world for tests: scripted, recorded, and on a clock of its own.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "memory_files.h"
#include "memory_store.h"
#include "platform/host.h"
#include "scripted_internet.h"
#include "scripted_sockets.h"
#include "test_world.h"

namespace brelwin::test {

class RecordedSound final : public SoundPlayer {
 public:
  int PlaySound(std::string_view path, bool wait) override {
    Played.emplace_back(std::string(path), wait);
    return Result;
  }
  std::vector<std::pair<std::string, bool>> Played;
  int Result = 1;
};

class RecordedShell final : public Shell {
 public:
  bool Open(std::string_view pathOrAddress) override {
    Opened.emplace_back(pathOrAddress);
    return true;
  }
  bool ViewText(std::string_view path) override {
    Viewed.emplace_back(path);
    return true;
  }
  std::vector<std::string> Opened;
  std::vector<std::string> Viewed;
};

class RecordedDialogs final : public Dialogs {
 public:
  void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) override {
    Shown.push_back({std::string(text), std::string(title), icon});
  }
  void Ask(std::string_view question, std::string_view /*title*/, std::function<void()> onYes) override {
    Questions.emplace_back(question, std::move(onYes));
  }
  struct Message {
    std::string Text;
    std::string Title;
    MessageIcon Icon;
  };
  std::vector<Message> Shown;
  std::vector<std::pair<std::string, std::function<void()>>> Questions;  // with what a yes does
};

// The folder of the program under test is "/brelwin".
struct TestHost {
  TestClock Time;
  TestQueue Queue{Time};
  MemoryFiles Disk;
  ScriptedInternet Internet{Queue};
  ScriptedSockets Sockets{Queue};
  RecordedSound Sound;
  RecordedShell Shell;
  RecordedDialogs Dialogs;
  MemoryStore Store;
  Host World = WithFiles(Disk);

  // The same world with other files, such as ones that fail.
  Host WithFiles(Files& files) {
    return {Time, Queue, files, Internet, Sockets, Sound, Shell, Dialogs, Store, "/brelwin", false, {}};
  }

  std::string EventLog() const { return Disk.Text("/brelwin/BrelwinEventLog.txt"); }

  // What the event log says since it was last asked for, one message a line, without their times.
  std::string TakeMessages() {
    std::string messages;
    const auto log = EventLog();
    for (const auto line : SplitLines(log)) {
      const auto endOfTime = line.find(": ");
      messages.append(endOfTime == std::string_view::npos ? line : line.substr(endOfTime + 2)).append("\n");
    }
    Disk.Put("/brelwin/BrelwinEventLog.txt", "");
    return messages;
  }
};

}  // namespace brelwin::test
