#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/IvalueList.h"
#include "workbench/store/Records.h"

/// The values of a field as texts, in record order.
class UsedValueList final : public IvalueList {
 public:
  UsedValueList(const Records& records, const SchemaField& field);
  Status Item(std::int32_t index, std::string& out) override;
  Status Count(std::int32_t& out) override;

 private:
  std::vector<std::string> texts_;
};

/// The fields whose numbers come from one set with those of the field, itself first: channels and scan groups
/// are numbered together, each other field by itself.
std::vector<const SchemaField*> NumberSetOf(const Schema& schema, const SchemaField& field);

/// The integers minimum..maximum that no record of the field's number set uses, ascending. Holds the used
/// numbers alone, as a range may have hundreds of millions.
class FreeValueList final : public IvalueList {
 public:
  FreeValueList(const Records& records, const SchemaField& field);
  Status Item(std::int32_t index, std::string& out) override;
  Status Count(std::int32_t& out) override;

  /// Zero-based; raises 9 outside 0..Size-1.
  std::int32_t At(std::int32_t index) const;
  std::int32_t Size() const;

 private:
  void AddUsed(const Records& records, const SchemaField& field);

  std::int32_t minimum_;
  std::int32_t maximum_;
  std::vector<std::int32_t> used_;  // ascending, each once
};
