// The kinds of controls: what is on the screen, as data. A skin binds each to a widget of the same name; the
// program reads what the user entered from here and shows things by setting values here.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/observable.h"

namespace brelwin {

struct Control;
struct Label;
struct TextBox;
struct CheckBox;
struct OptionGroup;
struct Button;
struct Frame;
struct ListBox;
struct SpotListBox;

using AnyControl =
    std::variant<Label*, TextBox*, CheckBox*, OptionGroup*, Button*, Frame*, ListBox*, SpotListBox*>;

// The controls of one group, in the order in which they are declared there.
using ControlList = std::vector<AnyControl>;

struct Control {
  explicit Control(std::string_view name) : Name(name) {}

  const std::string_view Name;
  Observable<bool> Visible{true};
  Observable<bool> Enabled{true};
};

struct Label : Control {
  Label(ControlList& list, std::string_view name, std::string_view caption = {})
      : Control(name), Caption(std::string(caption)) {
    list.emplace_back(this);
  }
  Observable<std::string> Caption;
};

struct TextBox : Control {
  TextBox(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }
  Observable<std::string> Text;
  Observable<std::string> Warning;  // what is wrong with the text, in words; empty when nothing is
  Signal SetFocus;
  std::function<void()> LostFocus;  // called by the skin when the user leaves the box; may be empty
};

struct CheckBox : Control {
  CheckBox(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }
  Observable<bool> Value{false};
  std::function<void()> Click;  // called by the skin after the user has changed the value; may be empty
};

// A set of option buttons of which exactly one is chosen; the skin names them Name0, Name1 and so on.
struct OptionGroup : Control {
  OptionGroup(ControlList& list, std::string_view name, int count) : Control(name), Count(count) {
    list.emplace_back(this);
  }
  const int Count;
  Observable<int> Value{0};  // 0 to Count - 1
};

struct Button : Control {
  Button(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }
  std::function<void()> Click;  // called by the skin; may be empty
};

struct Frame : Control {
  Frame(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }
};

struct ListBox : Control {
  ListBox(ControlList& list, std::string_view name) : Control(name) { list.emplace_back(this); }
  Observable<std::vector<std::string>> Items;
  std::function<void(std::size_t index)> DoubleClick;  // 0-based; called by the skin; may be empty
};

// What a skin keeps from run to run about itself; no widget holds it, and the program does not read it.
struct KeptText {
  std::string_view Name;
  Observable<std::string> Text{};
};

}  // namespace brelwin
