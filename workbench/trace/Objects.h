#pragma once

#include <map>
#include <typeindex>
#include <utility>
#include <vector>

#include "workbench/trace/Channel.h"

namespace Trace {

/// The objects that have crossed the border, numbered from 1 on each side in the order in which they first
/// did. An object of the host keeps its number as long as it lives, one of the tier as long as the host holds
/// it. In a trace an object is {"host": 3} or {"tier": 5}.
class Objects {
 public:
  /// What keeps the objects of the tier.
  enum class Hold { Host, Replay };

  explicit Objects(Channel& channel, Hold hold) : channel_(channel), hold_(hold) {}

  template <Interface I>
  Json Reference(const std::shared_ptr<I>& object) {
    if (object == nullptr) return nullptr;
    const Traced<I>* traced = OwnOf(object.get());
    return Numbered<I>(traced == nullptr ? EntryOf(object).number : traced->Number());
  }
  template <Interface I>
  Json Reference(const std::vector<std::shared_ptr<I>>& objects) {
    Json list = Json::array();
    for (const auto& object : objects) list.push_back(Reference(object));
    return list;
  }
  /// 0 for an object that has not crossed as a shared one.
  template <Interface I>
  Json Reference(const I* object) {
    if (object == nullptr) return nullptr;
    if (const Traced<I>* traced = OwnOf(object)) return Numbered<I>(traced->Number());
    const auto found = entries_.find(KeyOf(object));
    return Numbered<I>(found == entries_.end() ? 0 : found->second.number);
  }

  /// The object as the other side is to see it: its traced counterpart, or an object of its own come home.
  template <Interface I>
  std::shared_ptr<I> Cross(const std::shared_ptr<I>& object) {
    if (object == nullptr) return nullptr;
    if (const Traced<I>* traced = OwnOf(object.get())) return traced->Real();
    Entry& entry = EntryOf(object);
    if (const auto known = entry.traced.lock()) return std::static_pointer_cast<I>(known);
    const auto made = MakeTraced(Place{channel_.shared_from_this(), entry.number}, object);
    entry.traced = made;
    return made;
  }
  template <Interface I>
  std::vector<std::shared_ptr<I>> Cross(const std::vector<std::shared_ptr<I>>& objects) {
    std::vector<std::shared_ptr<I>> crossed;
    for (const auto& object : objects) crossed.push_back(Cross(object));
    return crossed;
  }
  template <Interface I>
  I* Cross(I* object) {
    const Traced<I>* traced = OwnOf(object);
    return traced == nullptr ? object : traced->Real().get();
  }

  // Of a trace that is played again: the object that a reference means. One of the host is made when it is
  // met first. Each raises a BadValue.
  template <Interface I>
  void Read(const Json& reference, std::shared_ptr<I>& out) {
    if (reference.is_null()) {
      out.reset();
    } else if constexpr (Contract<I>::kSide == Side::Host) {
      out = OfHost<I>(NumberIn<I>(reference));
    } else {
      out = OfTier<I>(NumberIn<I>(reference));
    }
  }
  template <Interface I>
  void Read(const Json& references, std::vector<std::shared_ptr<I>>& out) {
    std::vector<std::shared_ptr<I>> objects;
    for (const Json& one : List(references)) Read(one, objects.emplace_back());
    out = std::move(objects);
  }
  template <Interface I>
  void Read(const Json& reference, I*& out) {
    std::shared_ptr<I> object;
    Read(reference, object);
    out = object.get();
  }
  /// The tier's object of the number.
  template <Interface I>
  std::shared_ptr<I> OfTier(std::int32_t number) const {
    const auto found = keys_.find(number);
    if (found == keys_.end() || found->second.first != typeid(I)) {
      throw BadValue("the tier has no object " + std::to_string(number) + " that is an " +
                     std::string(Contract<I>::kName));
    }
    return std::static_pointer_cast<I>(entries_.at(found->second).kept);
  }
  /// The host's object that crossed under the number; null for none that lives.
  template <Interface I>
  std::shared_ptr<I> FindOfHost(std::int32_t number) const {
    for (const auto& [key, entry] : entries_) {
      if (entry.number != number || key.first != typeid(I)) continue;
      return std::static_pointer_cast<I>(std::const_pointer_cast<void>(entry.life.lock()));
    }
    return nullptr;
  }
  /// All objects of the tier that are kept with that interface.
  template <Interface I>
  std::vector<std::shared_ptr<I>> AllOfTier() const {
    std::vector<std::shared_ptr<I>> objects;
    for (const auto& [number, key] : keys_) {
      if (key.first == typeid(I)) objects.push_back(OfTier<I>(number));
    }
    return objects;
  }

  /// The number of an object of the tier is free again; one that is kept goes. False for no such number.
  bool Release(std::int32_t number);
  /// Lets all objects go, those of the tier from the last to the first.
  void Clear();

 private:
  using Key = std::pair<std::type_index, const void*>;
  struct Entry {
    std::int32_t number = 0;
    std::weak_ptr<const void> life;
    std::weak_ptr<void> traced;
    std::shared_ptr<void> kept;
  };

  /// Null for an object that this channel has not made: what is behind the border may have traced ones too.
  template <Interface I>
  const Traced<I>* OwnOf(const I* object) const {
    const auto* traced = dynamic_cast<const Traced<I>*>(object);
    return traced != nullptr && traced->Way() == &channel_ ? traced : nullptr;
  }

  template <Interface I>
  static Key KeyOf(const I* object) {
    return {typeid(I), object};
  }
  template <Interface I>
  static constexpr const char* kSideName = Contract<I>::kSide == Side::Host ? "host" : "tier";
  template <Interface I>
  static Json Numbered(std::int32_t number) {
    Json json = Json::object();
    json[kSideName<I>] = number;
    return json;
  }
  template <Interface I>
  static std::int32_t NumberIn(const Json& reference) {
    std::int32_t number = 0;
    FromJson(Member(reference, kSideName<I>), number);
    return number;
  }

  template <Interface I>
  Entry& EntryOf(const std::shared_ptr<I>& object) {
    const Key key = KeyOf(object.get());
    const auto found = entries_.find(key);
    if (found != entries_.end() && !found->second.life.expired()) return found->second;
    ForgetTheDead();
    Entry entry;
    entry.life = object;
    if (Contract<I>::kSide == Side::Host) {
      entry.number = ++lastOfHost_;
    } else {
      entry.number = ++lastOfTier_;
      keys_.insert_or_assign(entry.number, key);
      if (hold_ == Hold::Replay) entry.kept = object;
    }
    return entries_.insert_or_assign(key, std::move(entry)).first->second;
  }

  template <Interface I>
  std::shared_ptr<I> OfHost(std::int32_t number) {
    auto& [type, object] = ofHost_.try_emplace(number, typeid(I), nullptr).first->second;
    if (type != typeid(I)) {
      throw BadValue("object " + std::to_string(number) + " of the host is no " +
                     std::string(Contract<I>::kName));
    }
    if (object == nullptr) {
      object = MakeTraced(Place{channel_.shared_from_this(), number}, std::shared_ptr<I>());
    }
    return std::static_pointer_cast<I>(object);
  }

  void ForgetTheDead();

  Channel& channel_;
  Hold hold_;
  std::map<Key, Entry> entries_;
  std::map<std::int32_t, Key> keys_;  // of the tier's objects
  std::map<std::int32_t, std::pair<std::type_index, std::shared_ptr<void>>> ofHost_;
  std::int32_t lastOfHost_ = 0;
  std::int32_t lastOfTier_ = 0;
  std::size_t manyEntries_ = 1000;
};

}  // namespace Trace
