#include "radioui/ItemLists.h"

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"

namespace {
constexpr std::int32_t kRows = 1;  // the dimension
}  // namespace

ItemList::ItemList(XArrayDBObject& items, std::int32_t columns) : items_(items) {
  items_.Redim(0, -1, 0, columns - 1);
}

void ItemList::Add(const Variant& item) {
  items_.AppendRows(kRows, 1);
  items_.SetValue(items_.UpperBound(kRows), 0, CStr(item));
}

void ItemList::Add(std::string_view item, std::int32_t code) {
  Add(item);
  items_.SetValue(items_.UpperBound(kRows), 1, CStr(code));
}

void ItemList::AddAll(std::span<const std::string_view> texts) {
  for (const std::string_view text : texts) Add(text);
}

void ItemList::AddValues(const FieldRef& field) {
  for (const Variant& value : field.Values()) Add(value);
}

void ItemList::AddValues(const ValueListRef& values) {
  const std::int32_t count = values.Count();
  for (std::int32_t index = 0; index < count; ++index) Add(values.Item(index));
}

void ItemList::Remove(const Variant& value) {
  const std::int32_t row = items_.FindValue(0, 0, value);
  if (row > -1) items_.DeleteRows(row, 1);
}

namespace ItemLists {
void Offer(XArrayDBObject& items, std::span<const std::string_view> texts) { ItemList(items).AddAll(texts); }

void OfferOnly(XArrayDBObject& items, std::string_view text) { ItemList(items).Add(text); }

void OfferValues(XArrayDBObject& items, const FieldRef& field) { ItemList(items).AddValues(field); }

void OfferUsedChannels(XArrayDBObject& items, const ProviderRef& provider) {
  ItemList list(items);
  list.AddValues(provider.Field("5.ChannelIDTracker").UsedValues());
  for (const Variant& group : provider.Field("16.GroupIDTracker").Values()) list.Remove(group);
}
}  // namespace ItemLists
