#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/CaseText.h"
#include "platform/Error.h"

/// Values in the order of adding, each under a key that ignores case or under none. A key that is
/// absent raises 5, one added twice 457, an index outside 1..Count 9.
template <typename T>
class KeyedCollection {
 public:
  void Add(T value, std::string_view key = {}) {
    if (!key.empty() && !places_.try_emplace(std::string(key), values_.size()).second) {
      throw Error(ErrorNumber::kDoubleKey, "Collection",
                  "This key is already associated with an element of this collection: " + std::string(key));
    }
    values_.push_back(std::move(value));
  }

  bool Exists(std::string_view key) const { return places_.find(key) != places_.end(); }
  std::int32_t Count() const { return static_cast<std::int32_t>(values_.size()); }
  const T& Item(std::string_view key) const { return values_[Place(key)]; }
  /// 1-based.
  const T& Item(std::int32_t index) const { return values_[Place(index)]; }
  void Remove(std::string_view key) { Erase(Place(key)); }
  void Remove(std::int32_t index) { Erase(Place(index)); }
  void RemoveAll() {
    values_.clear();
    places_.clear();
  }

  auto begin() const { return values_.begin(); }
  auto end() const { return values_.end(); }

 private:
  std::size_t Place(std::string_view key) const {
    const auto found = places_.find(key);
    if (found == places_.end()) {
      throw Error(ErrorNumber::kInvalidCall, "Collection",
                  "Invalid procedure call or argument: no element has the key " + std::string(key));
    }
    return found->second;
  }

  std::size_t Place(std::int32_t index) const {
    if (index < 1 || index > Count()) RaiseSubscript("Collection");
    return static_cast<std::size_t>(index - 1);
  }

  void Erase(std::size_t place) {
    values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(place));
    std::erase_if(places_, [&](const auto& entry) { return entry.second == place; });
    for (auto& entry : places_) {
      if (entry.second > place) --entry.second;
    }
  }

  std::vector<T> values_;
  std::unordered_map<std::string, std::size_t, NameHash, NameEqual> places_;
};
