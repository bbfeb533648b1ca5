#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/Handles.h"

/// What a personality holds, for rules that may be asked before a record exists, and in every database
/// version.

/// Empty for a record that does not exist and for a field that this version does not have.
Variant StoredValue(const ProviderRef& provider, std::string_view field, RecordNr record);
/// The value at an index from 0, as the radio points at records; empty for an index that has none.
Variant ValueAtIndex(const FieldRef& field, std::int32_t index);
/// Whether the field holds the code. What does not exist holds none, not even 0.
bool HoldsCode(const ProviderRef& provider, std::string_view field, std::int32_t code, RecordNr record);
/// One record, for rules that ask it for several fields.
struct StoredRecord {
  ProviderRef provider;
  RecordNr record;
  Variant Value(std::string_view field) const { return StoredValue(provider, field, record); }
  bool Holds(std::string_view field, std::int32_t code) const {
    return HoldsCode(provider, field, code, record);
  }
  /// Empty where there is nothing.
  std::string Text(std::string_view field) const;
};

/// The network that the forms show, 0 for none.
RecordNr CurrentNetwork(const ProviderRef& provider);
/// Likewise the Selcall system, a record of table 29.
RecordNr CurrentSelcallSystem(const ProviderRef& provider);
/// Likewise the scan group, a record of table 16.
RecordNr CurrentScanGroup(const ProviderRef& provider);
