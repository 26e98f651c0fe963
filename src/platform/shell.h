// What the desktop does for the program: opening documents and web pages, viewing text files, asking the
// user.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace brelwin {

class Shell {
 public:
  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  // Opens the file or web address with the program that belongs to it. False when that could not be started.
  virtual bool Open(std::string_view pathOrAddress) = 0;

  // Shows a text file in the system's text viewer. False when none could be started.
  virtual bool ViewText(std::string_view path) = 0;
};

enum class MessageIcon : std::uint8_t { Information, Exclamation };

class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // Shows a message box and returns without waiting for the user to close it.
  virtual void ShowMessage(std::string_view text, std::string_view title, MessageIcon icon) = 0;

  // Asks what can be answered by yes or no, and returns without waiting. `onYes` is called from the event
  // queue when the user says yes. Where nobody can be asked the question is shown and counts as refused.
  virtual void Ask(std::string_view question, std::string_view title, std::function<void()> onYes) = 0;
};

}  // namespace brelwin
