#include "common/RecordBlocks.h"

#include <algorithm>

RecordOrder OrderOf(const std::vector<Variant>& before, const std::vector<Variant>& after) {
  RecordOrder order;
  std::vector<bool> taken(before.size());
  for (const Variant& number : after) {
    std::size_t old = 0;
    while (old < before.size() && (taken[old] || !SameValue(before[old], number))) ++old;
    if (old == before.size()) return {};
    taken[old] = true;
    order.push_back(old);
  }
  return order;
}

std::int32_t NewIndex(const RecordOrder& order, std::int32_t index) {
  const auto place = std::ranges::find(order, static_cast<std::size_t>(index));
  return index < 0 || place == order.end() ? index : static_cast<std::int32_t>(place - order.begin());
}

void CompleteBlocks(const ProviderRef& provider, const RecordBlocks& blocks, RecordNr owners) {
  const TableRef table = provider.Table(blocks.table);
  table.FillTo(std::min(blocks.CountFor(owners), table.MaxRecords()));
}

void AlignBlocks(const ProviderRef& provider, const RecordBlocks& blocks, RecordNr owners) {
  const TableRef table = provider.Table(blocks.table);
  for (RecordNr record = table.RecordCount(); record > blocks.CountFor(owners); --record) {
    table.DeleteRecord(record);
  }
  CompleteBlocks(provider, blocks, owners);
}

void ReorderBlocks(const ProviderRef& provider, const RecordBlocks& blocks, const RecordOrder& order) {
  const auto perOwner = static_cast<std::size_t>(blocks.perOwner);
  const auto head = static_cast<std::size_t>(blocks.ownerless);
  for (const FieldRef& field : provider.Table(blocks.table).Fields().NewEnum()) {
    const std::vector<Variant> values = field.Values();
    for (std::size_t place = 0; place < order.size() * perOwner; ++place) {
      const std::size_t from = head + order[place / perOwner] * perOwner + place % perOwner;
      const std::size_t to = head + place;
      if (from != to && from < values.size()) field.SetValue(static_cast<RecordNr>(to) + 1, values[from]);
    }
  }
}

void DeleteBlock(const ProviderRef& provider, const RecordBlocks& blocks, RecordNr owner) {
  const TableRef table = provider.Table(blocks.table);
  const RecordNr first = std::max(blocks.First(owner), blocks.ownerless + 1);
  const RecordNr last = std::min(blocks.CountFor(owner), table.RecordCount());
  for (RecordNr record = last; record >= first; --record) table.DeleteRecord(record);
}
