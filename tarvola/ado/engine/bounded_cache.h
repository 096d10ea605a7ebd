#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "tarvola/ado/engine/key_hash.h"

namespace tarvola::ado::engine {

/// What was made for a text, for at most so many texts; the one that was not used for longest makes room.
template <class Value>
class BoundedCache {
 public:
  explicit BoundedCache(std::size_t limit) : limit_(limit) { entries_.reserve(limit + 1); }

  [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
  void clear() noexcept { entries_.clear(); }

  /// Null if there is none. Stays valid until the next add or clear.
  Value* find(std::string_view key) noexcept {
    const auto found = entries_.find(hashKey(key));
    if (found == entries_.end() || found->second.key != key) return nullptr;
    found->second.lastUse = ++clock_;
    return &found->second.value;
  }

  Value& add(std::string_view key, Value value) {
    if (entries_.size() >= limit_) removeOldest();
    // Two texts of one hash take turns in one place, which is rare and costs no more than making the value anew.
    const auto place = entries_.insert_or_assign(hashKey(key), Entry{std::string(key), ++clock_, std::move(value)});
    return place.first->second.value;
  }

 private:
  struct Entry {
    std::string key;
    std::uint64_t lastUse;
    Value value;
  };
  struct HashedAlready {
    std::size_t operator()(std::uint64_t hash) const noexcept { return hash; }
  };

  void removeOldest() {
    const auto older = [](const auto& left, const auto& right) { return left.second.lastUse < right.second.lastUse; };
    entries_.erase(std::min_element(entries_.begin(), entries_.end(), older));
  }

  std::unordered_map<std::uint64_t, Entry, HashedAlready> entries_;
  std::size_t limit_;
  std::uint64_t clock_ = 0;
};

}  // namespace tarvola::ado::engine
