#pragma once

#include <optional>

#include "common/Handles.h"
#include "validation/Conditions.h"

/// Reads conditions from a personality, for one control of one record.
class ConditionReader {
 public:
  ConditionReader(ProviderRef provider, RecordNr drawn) : provider_(std::move(provider)), drawn_(drawn) {}

  /// Whether the condition holds, or asks for a record that does not exist. Reads no more than it needs.
  bool IsMet(const Condition& condition);

  /// What a test reads: the record, 0 for none, and its value where the record exists.
  struct Reading {
    RecordNr record = 0;
    std::optional<Variant> value;
  };
  Reading Read(const Condition& test) const;
  /// Whether the test holds for what was read; false without a value.
  bool Holds(const Condition& test, const Reading& reading) const;

 private:
  bool Evaluate(const Condition& condition);
  RecordNr RecordAt(At at) const;
  RecordNr Pointer(std::string_view field) const;
  RecordNr ChannelsNetwork() const;
  bool IsOnCurrentNetwork(const Variant& network) const;

  ProviderRef provider_;
  RecordNr drawn_;
  bool lacksRecord_ = false;
};
