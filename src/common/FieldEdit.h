#pragma once

#include <string_view>

#include "common/FormWrites.h"

/// One edit, on its way through a rule. What `value` holds after the rule passed is what the host stores.
struct FieldEdit {
  const ValidatorRef& validator;
  std::string_view uiid;  ///< in upper case, as the rules are listed
  Variant& value;
  RecordNr record;
  FormWrites writes;
  /// A rule that leaves the controls of its field as they are, though it passes, sets it false.
  bool switchesControls = true;
  bool isStored = false;  ///< by StoreNow

  /// Whether the new value is that code.
  bool Is(std::int32_t code) const;
  /// The stored value of another field; empty for a record that does not exist and for a field that this
  /// database version does not have.
  Variant Stored(std::string_view field, RecordNr at) const;
  /// Whether another field holds the code. What does not exist holds none, not even 0.
  bool Holds(std::string_view field, std::int32_t code, RecordNr at) const;
  /// The network that the forms show, 0 for none.
  RecordNr CurrentNetwork() const;

  /// Writes the new value before the host does, for those who ask what follows from it.
  void StoreNow() {
    writes.Set(uiid, record, value);
    isStored = true;
  }
  /// The rule passes and nothing follows from it.
  bool PassUnchanged() {
    switchesControls = false;
    return true;
  }
};
