#pragma once

#include <string>
#include <string_view>

#include "common/Handles.h"
#include "host/Itier.h"

/// What a rule works with, all of it fetched anew on every call: the tier, its current provider, its
/// messenger, and the caption of the validator host.
class ValidatorRef {
 public:
  explicit ValidatorRef(Itier* tier) : tier_(tier) {}
  Itier& Tier() const;
  ProviderRef CurrentProvider() const;
  MessengerRef Messenger() const;
  std::string Caption() const;

  /// The label of a field on the forms, of a UIID or a FieldId; the name itself where there is none.
  std::string LabelOf(std::string_view name) const;
  /// What the rule of another field says of a value, as if the host had asked.
  bool Accepts(std::string_view uiid, Variant& value, RecordNr record) const;
  /// Whether a control may be edited, as if the host had asked.
  bool IsEnabled(std::string_view uiid, RecordNr record) const;

 private:
  std::shared_ptr<ItierValidator> Validator() const;

  Itier* tier_;
};
