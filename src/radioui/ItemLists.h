#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/Handles.h"

class XArrayDBObject;

/// What every list of a combo box is made of, and the lists that several subjects offer.

/// Fills an array as a combo box reads it: rows from 0, the item as text in column 0, numbers in decimal.
class ItemList {
 public:
  /// Begins an empty list in `items`, whatever they held. With two columns the second is the code that the
  /// field stores for the item.
  explicit ItemList(XArrayDBObject& items, std::int32_t columns = 1);
  void Add(const Variant& item);
  void Add(std::string_view item, std::int32_t code);
  void AddAll(std::span<const std::string_view> texts);
  /// All values of the field in record order, equal ones too.
  void AddValues(const FieldRef& field);
  void AddValues(const ValueListRef& values);
  /// Takes out the first item with the text of `value`, if there is one.
  void Remove(const Variant& value);

 private:
  XArrayDBObject& items_;
};

namespace ItemLists {
void Offer(XArrayDBObject& items, std::span<const std::string_view> texts);
void OfferOnly(XArrayDBObject& items, std::string_view text);
void OfferValues(XArrayDBObject& items, const FieldRef& field);
/// The channel identities in use, without those that belong to scan groups.
void OfferUsedChannels(XArrayDBObject& items, const ProviderRef& provider);
}  // namespace ItemLists
