#pragma once

#include <cstdint>
#include <string_view>

#include "common/ValidatorRef.h"

/// What a grid of the forms needs around its records: before one comes, once it is there, before one goes.
struct GridRecords {
  using Fits = bool (*)(const ProviderRef& provider);
  using Prepare = void (*)(const ValidatorRef& validator, const ProviderRef& provider);
  using Complete = void (*)(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
  using MayDelete = bool (*)(const ValidatorRef& validator, RecordNr record);

  std::string_view name;  ///< by which a host calls it, in any case
  std::int32_t table;
  Fits hasRoom = nullptr;               ///< whether one more may come; null: always
  std::string_view noRoom = {};         ///< what to tell when it may not
  Prepare prepare = nullptr;            ///< makes what a record that is about to come needs beside it
  Complete completeAdded = nullptr;     ///< the record is the last one of its table; every grid has it
  Complete completeInserted = nullptr;  ///< null: the grid knows no insert
  MayDelete mayDelete =
      nullptr;  ///< clears what refers to the record, too, and deletes its companions; null: always

  /// Null for an unknown grid. A table number stands for its grid.
  static const GridRecords* Find(std::string_view gridName);
};
