// Finds records by their key, without ASCII case: an open table that keeps a part of the hash beside the
// number of each record. It is small, and a look for a key touches one place of it and hardly ever a record
// with another key.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace brelwin {

// The records belong to the caller, who passes them to every call: `records[number].Key` is a record's key,
// and stays as it is until it is removed here. No key is held twice, an empty one not at all. Number 0 stands
// for "none".
template <class Records>
class KeyIndex {
 public:
  using Number = std::uint32_t;

  // Makes room for this many keys, so that adding many does not rehash again and again.
  void Reserve(std::size_t count) {
    const auto size = std::max(FewestSlots, std::bit_ceil(count + count / 2));
    if (count > 0 && size > slots_.size()) Rehash(size);
  }

  // The number of the record with the key, or 0.
  Number Find(const Records& records, std::string_view key) const {
    return slots_.empty() ? 0 : slots_[PlaceOf(records, key, HashOf(key))].Held;
  }

  // False, with nothing changed, when the key of the record is held already.
  bool Add(const Records& records, Number number) {
    if (4 * (count_ + 1) > 3 * slots_.size()) Rehash(std::max(FewestSlots, 2 * slots_.size()));
    const std::string_view key = records[number].Key;
    const auto hash = HashOf(key);
    auto& slot = slots_[PlaceOf(records, key, hash)];
    if (slot.Held != 0) return false;
    slot = {hash, number};
    ++count_;
    return true;
  }

  // The number of the record that had the key, or 0. Those behind the gap move up to it where they may, so
  // that a search can end at the first empty slot.
  Number Remove(const Records& records, std::string_view key) {
    if (slots_.empty()) return 0;
    auto gap = PlaceOf(records, key, HashOf(key));
    const auto removed = slots_[gap].Held;
    if (removed == 0) return 0;
    for (auto at = Next(gap); slots_[at].Held != 0; at = Next(at)) {
      if (Distance(slots_[at].Hash, at) < Distance(gap, at)) continue;
      slots_[gap] = slots_[at];
      gap = at;
    }
    slots_[gap] = {};
    --count_;
    return removed;
  }

  void Clear() {
    slots_.clear();
    count_ = 0;
  }

 private:
  static constexpr std::size_t FewestSlots = 8;

  struct Slot {
    std::uint32_t Hash = 0;
    Number Held = 0;
  };

  static std::uint32_t HashOf(std::string_view key) {
    return static_cast<std::uint32_t>(HashIgnoringCase(key));
  }

  std::size_t Mask() const { return slots_.size() - 1; }
  std::size_t Next(std::size_t place) const { return (place + 1) & Mask(); }
  std::size_t Distance(std::size_t from, std::size_t to) const { return (to - from) & Mask(); }

  // The place of the key, or the empty one where it would be put.
  std::size_t PlaceOf(const Records& records, std::string_view key, std::uint32_t hash) const {
    auto place = hash & Mask();
    while (slots_[place].Held != 0 &&
           (slots_[place].Hash != hash || !EqualsIgnoringCase(records[slots_[place].Held].Key, key)))
      place = Next(place);
    return place;
  }

  void Rehash(std::size_t size) {
    std::vector<Slot> old(size);
    old.swap(slots_);
    for (const auto& slot : old) {
      if (slot.Held == 0) continue;
      auto place = slot.Hash & Mask();
      while (slots_[place].Held != 0) place = Next(place);
      slots_[place] = slot;
    }
  }

  std::vector<Slot> slots_;  // none or a power of two, never more than three quarters of them held
  std::size_t count_ = 0;
};

}  // namespace brelwin
