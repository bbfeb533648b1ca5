#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "common/ValidatorRef.h"

/// What one rule does to the forms: the fields that it writes, which the forms are to reload, and the
/// controls that change their state. A rule shows its texts, writes what depends on it, and then the forms
/// follow: all reloads first, all states behind them, these only when it passes.
class FormWrites {
 public:
  /// `uiidInHand` is the field being edited, which the form reads again by itself; empty for none.
  explicit FormWrites(const ValidatorRef& validator, std::string_view uiidInHand = {})
      : validator_(validator), uiidInHand_(uiidInHand) {}

  /// Writes the field called by its UIID. Names are kept as views and outlive the rule: literals and rows
  /// of tables.
  void Set(std::string_view uiid, RecordNr record, const Variant& value) { Set(uiid, uiid, record, value); }

  /// Writes a field called by its FieldId; `uiid` is what the forms call it, empty for one that they do not
  /// show.
  void Set(std::string_view fieldId, std::string_view uiid, RecordNr record, const Variant& value);

  /// The forms are to reload a field that stays as it is: what it shows depends on another.
  void Reload(std::string_view uiid);
  /// They are to reload the field in hand, too: it has changed in other records.
  void ReloadInHand(std::string_view uiid) { written_.push_back(uiid); }
  /// They are to reload what another rule has written on behalf of this one.
  void ReloadAllOf(const FormWrites& other) {
    for (const std::string_view uiid : other.written_) Reload(uiid);
  }

  /// The control is to be enabled or disabled when the rule passes.
  void Enable(std::string_view uiid, bool enabled) { states_.emplace_back(uiid, enabled); }

  /// The last act of a rule: each field written is reloaded once, in the order of the first writes, but not
  /// while the provider's AutoUpdate is false; then, if the rule passes, each control takes its state, in the
  /// order given. Gives the rule's result.
  bool Follow(bool passes) const;

 private:
  void ReloadFields() const;

  const ValidatorRef& validator_;
  std::string_view uiidInHand_;
  std::vector<std::string_view> written_;
  std::vector<std::pair<std::string_view, bool>> states_;
};
