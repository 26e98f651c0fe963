// An ordered list whose items may each carry a unique text key, compared without ASCII case, and are also
// reachable by 1-based position. Lookup, adding at either end, removal by key and trimming do not scan.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "base/key_index.h"

namespace brelwin {

template <class T>
class KeyedCollection {
 public:
  struct Entry {
    std::string Key;  // as given; empty when the item has none
    T Item;
  };

 private:
  struct Node : Entry {
    Node* Previous = nullptr;
    Node* Next = nullptr;
    std::uint32_t Number = 0;  // of the node among all
  };
  using Nodes = std::deque<Node>;

 public:
  class const_iterator {
   public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;
    using pointer = const Entry*;
    using reference = const Entry&;

    const_iterator() = default;
    explicit const_iterator(const Node* node) : node_(node) {}
    reference operator*() const { return *node_; }
    pointer operator->() const { return node_; }
    const_iterator& operator++() {
      node_ = node_->Next;
      return *this;
    }
    const_iterator& operator--() {
      node_ = node_->Previous;
      return *this;
    }
    const_iterator operator++(int) { return const_iterator(std::exchange(node_, node_->Next)); }
    const_iterator operator--(int) { return const_iterator(std::exchange(node_, node_->Previous)); }
    bool operator==(const const_iterator& other) const = default;

   private:
    const Node* node_ = nullptr;
  };

  KeyedCollection() { Clear(); }
  KeyedCollection(KeyedCollection&& other) noexcept : KeyedCollection() { Swap(other); }
  KeyedCollection& operator=(KeyedCollection&& other) noexcept {
    KeyedCollection taken(std::move(other));
    Swap(taken);
    return *this;
  }
  KeyedCollection(const KeyedCollection& other) : KeyedCollection() {
    Reserve(other.Count());
    for (const auto& entry : other) Add(entry.Item, entry.Key);
  }
  KeyedCollection& operator=(const KeyedCollection& other) {
    if (this != &other) *this = KeyedCollection(other);
    return *this;
  }
  ~KeyedCollection() = default;

  // Makes room for this many keys, so that adding many items does not rehash again and again.
  void Reserve(std::size_t count) { index_.Reserve(count); }

  // Adds the item at the end, or in front of all others. False, with nothing changed, when the key is not
  // empty and already held. Items without a key can always be added.
  bool Add(T item, std::string_view key) { return Insert(Ring(), std::move(item), key); }
  bool AddInFront(T item, std::string_view key) { return Insert(*Ring().Next, std::move(item), key); }

  bool Contains(std::string_view key) const { return index_.Find(nodes_, key) != 0; }

  // The item under the key, or a null pointer. It stays valid until the item is removed.
  const T* Find(std::string_view key) const {
    const auto number = index_.Find(nodes_, key);
    return number == 0 ? nullptr : &nodes_[number].Item;
  }
  T* Find(std::string_view key) {
    const auto number = index_.Find(nodes_, key);
    return number == 0 ? nullptr : &nodes_[number].Item;
  }

  // The item at the 1-based position, or a null pointer. Walks from the nearer end.
  const T* At(std::size_t position) const {
    if (position < 1 || position > count_) return nullptr;
    const auto index = static_cast<std::ptrdiff_t>(position - 1);
    const auto size = static_cast<std::ptrdiff_t>(count_);
    return &(index <= size / 2 ? std::next(begin(), index) : std::prev(end(), size - index))->Item;
  }

  // True when an item had the key and was removed.
  bool Remove(std::string_view key) {
    const auto number = index_.Remove(nodes_, key);
    if (number == 0) return false;
    Unlink(nodes_[number]);
    return true;
  }

  // Keeps the first `count` items.
  void Trim(std::size_t count) {
    while (count_ > count) {
      auto& last = *Ring().Previous;
      index_.Remove(nodes_, last.Key);
      Unlink(last);
    }
  }

  // Turns the order round.
  void Reverse() {
    auto* node = &Ring();
    do {
      std::swap(node->Previous, node->Next);
      node = node->Previous;
    } while (node != &Ring());
  }

  void Clear() {
    index_.Clear();
    nodes_.clear();
    free_ = nullptr;
    count_ = 0;
    auto& ring = nodes_.emplace_back();
    ring.Previous = ring.Next = &ring;
  }

  std::size_t Count() const { return count_; }
  bool Empty() const { return count_ == 0; }
  const_iterator begin() const { return const_iterator(nodes_.front().Next); }
  const_iterator end() const { return const_iterator(&nodes_.front()); }

 private:
  // The first node closes the ring: it stands behind the last entry and in front of the first.
  Node& Ring() { return nodes_.front(); }

  Node& NewNode() {
    auto& node = nodes_.emplace_back();
    node.Number = static_cast<std::uint32_t>(nodes_.size() - 1);
    return node;
  }

  bool Insert(Node& next, T item, std::string_view key) {
    auto& node = free_ != nullptr ? *std::exchange(free_, free_->Next) : NewNode();
    node.Key = key;
    if (!key.empty() && !index_.Add(nodes_, node.Number)) {
      Free(node);
      return false;
    }
    node.Item = std::move(item);
    node.Next = &next;
    node.Previous = std::exchange(next.Previous, &node);
    node.Previous->Next = &node;
    ++count_;
    return true;
  }

  void Unlink(Node& node) {
    node.Previous->Next = node.Next;
    node.Next->Previous = node.Previous;
    --count_;
    Free(node);
  }

  void Free(Node& node) {
    std::exchange(static_cast<Entry&>(node), {});  // assigning alone would keep a long text's memory
    node.Next = std::exchange(free_, &node);
  }

  void Swap(KeyedCollection& other) noexcept {
    nodes_.swap(other.nodes_);
    std::swap(index_, other.index_);
    std::swap(free_, other.free_);
    std::swap(count_, other.count_);
  }

  Nodes nodes_;  // they never move, and one that becomes free is used again
  KeyIndex<Nodes> index_;
  Node* free_ = nullptr;
  std::size_t count_ = 0;
};

}  // namespace brelwin
