#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "common/Handles.h"
#include "platform/Conversions.h"

/// Tables that hold a block of records for each record of another table, their owner's: they keep its order.
struct RecordBlocks {
  std::string_view table;
  RecordNr perOwner = 1;
  RecordNr ownerless = 0;  ///< so many records at the head belong to nobody

  /// The records that so many owners need.
  RecordNr CountFor(RecordNr owners) const { return ownerless + owners * perOwner; }
  RecordNr First(RecordNr owner) const { return CountFor(owner - 1) + 1; }
};

/// Owners in a new order: the index, from 0, that the n-th one had before.
using RecordOrder = std::vector<std::size_t>;
/// What a sort made of the owners, by their numbers before and after; equal ones keep their order. Empty when
/// these are not the same numbers: there is no order to follow.
RecordOrder OrderOf(const std::vector<Variant>& before, const std::vector<Variant>& after);
/// The index that an owner has in the order, by the one it had before; what is none stays.
std::int32_t NewIndex(const RecordOrder& order, std::int32_t index);

/// Gives a damaged table the records that so many owners need, as far as it takes them.
void CompleteBlocks(const ProviderRef& provider, const RecordBlocks& blocks, RecordNr owners);
/// Likewise, and deletes what lies behind the block of the last owner: a new one would take it for its own.
void AlignBlocks(const ProviderRef& provider, const RecordBlocks& blocks, RecordNr owners);
/// Brings the blocks into the order of their owners. What lies behind the last one stays.
void ReorderBlocks(const ProviderRef& provider, const RecordBlocks& blocks, const RecordOrder& order);
/// Deletes the block of an owner, as far as it is there.
void DeleteBlock(const ProviderRef& provider, const RecordBlocks& blocks, RecordNr owner);

/// Gives the field `newIndex(index)` for each index of a record that it holds; a negative one is none.
template <typename NewIndexOf>
void MovePointers(const FieldRef& field, const NewIndexOf& newIndex) {
  for (const RecordNr record : field.Records()) {
    const std::int32_t index = CLng(field.Value(record));
    const std::int32_t moved = index < 0 ? index : newIndex(index);
    if (moved != index) field.SetValue(record, moved);
  }
}
