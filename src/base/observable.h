// A value that tells its watchers when it changes. Everything the program shows is made of these; the skins
// watch them and decide nothing.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace brelwin {

// Keeps a watcher alive; its end ends the watching. It may outlive what it watches.
class [[nodiscard]] Watch {
 public:
  Watch() = default;
  explicit Watch(std::shared_ptr<void> watcher) : watcher_(std::move(watcher)) {}
  Watch(Watch&&) = default;
  Watch& operator=(Watch&&) = default;
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() = default;

 private:
  std::shared_ptr<void> watcher_;
};

// The watchers of one thing. They may come and go while they are being told: those that were there at the
// start and are still wanted are told, in the order in which they came.
template <class... Arguments>
class Watchers {
 public:
  using Function = std::function<void(Arguments...)>;

  Watch Add(Function function) {
    std::erase_if(watchers_, [](const auto& watcher) { return watcher.expired(); });
    auto watcher = std::make_shared<Function>(std::move(function));
    watchers_.push_back(watcher);
    return Watch(std::move(watcher));
  }

  void Tell(const Arguments&... arguments) const {
    const auto asOfNow = watchers_;
    for (const auto& watcher : asOfNow) {
      if (const auto function = watcher.lock()) (*function)(arguments...);
    }
  }

 private:
  std::vector<std::weak_ptr<Function>> watchers_;
};

template <class T>
class Observable {
 public:
  Observable() = default;
  explicit Observable(T value) : value_(std::move(value)) {}
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;
  Observable(Observable&&) = delete;
  Observable& operator=(Observable&&) = delete;
  ~Observable() = default;

  const T& Get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads like a field

  // Setting an equal value tells nobody.
  Observable& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    watchers_.Tell();
    return *this;
  }

  // Calls the function after every change, as long as the handle lives. The function reads the value with
  // Get, so a change made by another watcher is never followed by an older value.
  Watch WhenChanged(std::function<void()> function) { return watchers_.Add(std::move(function)); }

 private:
  T value_{};
  Watchers<> watchers_;
};

// A demand without a value, such as "take the focus".
class Signal {
 public:
  void Raise() const { watchers_.Tell(); }
  Watch WhenRaised(std::function<void()> function) { return watchers_.Add(std::move(function)); }

 private:
  Watchers<> watchers_;
};

}  // namespace brelwin
