#pragma once

#include <initializer_list>
#include <span>
#include <string_view>

#include "tier/FormWrites.h"

/// One edit, on its way through a rule. What `value` holds after the rule passed is what the host stores.
struct FieldEdit {
  const ValidatorRef& validator;
  std::string_view uiid;  ///< in upper case, as the rules are listed
  Variant& value;
  RecordNr record;
  FormWrites writes;

  /// Whether the new value is that code.
  bool Is(std::int32_t code) const;
  /// The stored value of another field; empty for a record that does not exist and for a field that this
  /// database version does not have.
  Variant Stored(std::string_view field, RecordNr at = 1) const;
  /// Whether another field holds the code. What does not exist holds none, not even 0.
  bool Holds(std::string_view field, std::int32_t code, RecordNr at = 1) const;
  /// The network that the forms show, 0 for none.
  RecordNr CurrentNetwork() const;

  /// Writes the new value before the host does, for rules that ask what follows from it.
  void StoreNow() { writes.Set(uiid, record, value); }
  void EnableAll(std::span<const std::string_view> controls, bool enabled);
  /// Each control takes the state that its own rule gives it now, from what is stored.
  void EnableByRule(std::span<const std::string_view> controls);
};
