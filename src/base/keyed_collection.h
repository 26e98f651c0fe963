// An ordered list whose items may each carry a unique text key, compared without ASCII case, and are also
// reachable by 1-based position. Lookup, adding at either end, removal by key and trimming do not scan.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "base/text.h"

namespace brelwin {

template <class T>
class KeyedCollection {
 public:
  struct Entry {
    std::string Key;  // as given; empty when the item has none
    T Item;
  };
  using const_iterator = typename std::list<Entry>::const_iterator;

  // A sparse index: walking over keys that share a place costs more than the place.
  KeyedCollection() { index_.max_load_factor(0.5F); }
  KeyedCollection(KeyedCollection&&) noexcept = default;
  KeyedCollection& operator=(KeyedCollection&&) noexcept = default;
  KeyedCollection(const KeyedCollection& other) : KeyedCollection() {
    Reserve(other.Count());
    for (const auto& entry : other) Add(entry.Item, entry.Key);
  }
  KeyedCollection& operator=(const KeyedCollection& other) {
    if (this != &other) *this = KeyedCollection(other);
    return *this;
  }
  ~KeyedCollection() = default;

  // Makes room for this many keys, so that adding many items does not sort them in anew again and again.
  void Reserve(std::size_t count) { index_.reserve(count); }

  // Adds the item at the end, or in front of all others. False, with nothing changed, when the key is not
  // empty and already held. Items without a key can always be added.
  bool Add(T item, std::string_view key) { return Insert(entries_.end(), std::move(item), key); }
  bool AddInFront(T item, std::string_view key) { return Insert(entries_.begin(), std::move(item), key); }

  bool Contains(std::string_view key) const { return index_.contains(key); }

  // The item under the key, or a null pointer. It stays valid until the item is removed.
  const T* Find(std::string_view key) const {
    const auto found = index_.find(key);
    return found == index_.end() ? nullptr : &found->second->Item;
  }
  T* Find(std::string_view key) {
    const auto found = index_.find(key);
    return found == index_.end() ? nullptr : &found->second->Item;
  }

  // The item at the 1-based position, or a null pointer. Walks from the nearer end.
  const T* At(std::size_t position) const {
    if (position < 1 || position > entries_.size()) return nullptr;
    const auto index = static_cast<std::ptrdiff_t>(position - 1);
    const auto size = static_cast<std::ptrdiff_t>(entries_.size());
    const auto found =
        index <= size / 2 ? std::next(entries_.begin(), index) : std::prev(entries_.end(), size - index);
    return &found->Item;
  }

  // True when an item had the key and was removed.
  bool Remove(std::string_view key) {
    const auto found = index_.find(key);
    if (found == index_.end()) return false;
    const auto entry = found->second;
    index_.erase(found);
    entries_.erase(entry);
    return true;
  }

  // Keeps the first `count` items.
  void Trim(std::size_t count) {
    while (entries_.size() > count) {
      index_.erase(entries_.back().Key);
      entries_.pop_back();
    }
  }

  // Turns the order round.
  void Reverse() { entries_.reverse(); }

  void Clear() {
    index_.clear();
    entries_.clear();
  }

  std::size_t Count() const { return entries_.size(); }
  bool Empty() const { return entries_.empty(); }
  const_iterator begin() const { return entries_.begin(); }
  const_iterator end() const { return entries_.end(); }

 private:
  struct HashIgnoringCase {
    std::size_t operator()(std::string_view key) const { return brelwin::HashIgnoringCase(key); }
  };
  struct EqualIgnoringCase {
    bool operator()(std::string_view left, std::string_view right) const {
      return EqualsIgnoringCase(left, right);
    }
  };

  bool Insert(const_iterator where, T item, std::string_view key) {
    std::list<Entry> single;
    single.push_back({std::string(key), std::move(item)});
    if (!key.empty() && !index_.try_emplace(single.front().Key, single.begin()).second) return false;
    entries_.splice(where, single);
    return true;
  }

  std::list<Entry> entries_;
  // The keys point into the entries, which never move.
  std::unordered_map<std::string_view, typename std::list<Entry>::iterator, HashIgnoringCase,
                     EqualIgnoringCase>
      index_;
};

}  // namespace brelwin
