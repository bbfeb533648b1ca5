#include "common/FormWrites.h"

#include <algorithm>

#include "platform/CaseText.h"

void FormWrites::Set(std::string_view fieldId, std::string_view uiid, RecordNr record, const Variant& value) {
  validator_.CurrentProvider().Field(fieldId).SetValue(record, value);
  Reload(uiid);
}

void FormWrites::Reload(std::string_view uiid) {
  const auto isSame = [&](std::string_view known) { return EqualsIgnoringCase(known, uiid); };
  if (uiid.empty() || isSame(uiidInHand_) || std::any_of(written_.begin(), written_.end(), isSame)) return;
  written_.push_back(uiid);
}

void FormWrites::ReloadFields() const {
  if (written_.empty() || !validator_.CurrentProvider().AutoUpdate()) return;
  const MessengerRef messenger = validator_.Messenger();
  for (const std::string_view uiid : written_) messenger.RefreshField(uiid);
}

bool FormWrites::Follow(bool passes) const {
  ReloadFields();
  if (!passes || states_.empty()) return passes;
  const MessengerRef messenger = validator_.Messenger();
  for (const auto& [uiid, enabled] : states_) messenger.SetFieldEnabled(uiid, enabled);
  return true;
}
