#pragma once

#include <string_view>
#include <vector>

#include "tier/ValidatorRef.h"

/// The writes of one rule, and the fields that the forms are to reload for them.
class FormWrites {
 public:
  /// `uiidInHand` is the field being edited, which the form reads again by itself; empty for none.
  explicit FormWrites(const ValidatorRef& validator, std::string_view uiidInHand = {})
      : validator_(validator), uiidInHand_(uiidInHand) {}

  /// Writes the field called by its UIID.
  void Set(std::string_view uiid, RecordNr record, const Variant& value) { Set(uiid, uiid, record, value); }

  /// Writes a field called by its FieldId; `uiid` is what the forms call it. The names are kept as views
  /// and outlive the rule: literals and rows of tables.
  void Set(std::string_view fieldId, std::string_view uiid, RecordNr record, const Variant& value);

  /// The last act of a rule that passes: each field written is reloaded once, in the order of the
  /// first writes, but not while the provider's AutoUpdate is false. Always true.
  bool Accept();

 private:
  const ValidatorRef& validator_;
  std::string_view uiidInHand_;
  std::vector<std::string_view> written_;
};
