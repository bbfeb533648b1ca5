#include "validation/cKD4410TierValidator.h"

#include "common/ValidatorRef.h"
#include "platform/Border.h"
#include "validation/modvalEnablement.h"
#include "validation/modvalFields.h"
#include "validation/modvalForms.h"
#include "validation/modvalKD4410FinalValidation.h"
#include "validation/modvalKD4410PreProgramValidation.h"
#include "validation/modvalRecords.h"

void cKD4410TierValidator::Guard() const {
  if (host_ != nullptr && !IsOver()) return;
  throw Error(ErrorNumber::kValidatorNotSet, "ItierValidator",
              "ItierValidator not initialised. Please set object reference to Validator before calling any "
              "ItierValidator methods");
}

template <typename Work>
Status cKD4410TierValidator::GuardedCall(Work work) {
  return Border([&] {
    Guard();
    RaiseIfFailed(Call(work));
  });
}

template <typename Rule>
Status cKD4410TierValidator::Guarded(Boolean& out, Rule rule) {
  return GuardedCall([&](Itier* tier) { out = ToBoolean(rule(ValidatorRef(tier))); });
}

Status cKD4410TierValidator::AddRecord(std::string_view gridName, std::shared_ptr<Iprovider> provider,
                                       Boolean& out) {
  return Guarded(out, [&](const ValidatorRef& validator) {
    return modvalRecords::AddRecord(validator, gridName, ProviderRef(provider));
  });
}

Status cKD4410TierValidator::DeleteRecord(std::string_view gridName, RecordNr record,
                                          std::shared_ptr<Iprovider>, Boolean& out) {
  return Guarded(out, [&](const ValidatorRef& validator) {
    return modvalRecords::DeleteRecord(validator, gridName, record);
  });
}

Status cKD4410TierValidator::ExecuteByTriggerID(std::string_view, Boolean& out) {
  return Guarded(out, [](const ValidatorRef&) { return false; });
}

Status cKD4410TierValidator::FormValidationByFormName(std::string_view formName, Boolean refresh,
                                                      Boolean& out) {
  return Guarded(out, [&](const ValidatorRef& validator) {
    return modvalForms::FormValidationByFormName(validator, formName, refresh != kFalse);
  });
}

Status cKD4410TierValidator::GetEnabledStatebyUIID(std::string_view uiid, RecordNr record, Boolean& out) {
  return Guarded(out, [&](const ValidatorRef& validator) {
    return modvalEnablement::GetEnabledStatebyUIID(validator, uiid, record);
  });
}

Status cKD4410TierValidator::ReasonByUIID(std::string_view uiid, RecordNr record, EnablementReason& out) {
  return GuardedCall(
      [&](Itier* tier) { out = modvalEnablement::ReasonByUIID(ValidatorRef(tier), uiid, record); });
}

Status cKD4410TierValidator::PermissionToOpenFormByFormName(std::string_view, Boolean& out) {
  return Guarded(out, [](const ValidatorRef&) { return true; });
}

Status cKD4410TierValidator::RunPreProgramValidation(Boolean& out) {
  return Guarded(out, [](const ValidatorRef& validator) {
    return modvalKD4410PreProgramValidation::RunPreProgramValidation(validator);
  });
}

Status cKD4410TierValidator::RunFinalValidation(Boolean& out) {
  return Guarded(out, [](const ValidatorRef& validator) {
    return modvalKD4410FinalValidation::RunFinalValidation(validator);
  });
}

Status cKD4410TierValidator::FinalRuleCount(std::int32_t& out) {
  return GuardedCall([&](Itier*) { out = modvalKD4410FinalValidation::RuleCount(); });
}

Status cKD4410TierValidator::RunFinalRule(std::int32_t rule, FinalOutcome& out) {
  return GuardedCall(
      [&](Itier* tier) { out = modvalKD4410FinalValidation::RunRule(ValidatorRef(tier), rule); });
}

Status cKD4410TierValidator::ValidateByUIID(std::string_view uiid, Variant& value, RecordNr record,
                                            Boolean& out) {
  return Guarded(out, [&](const ValidatorRef& validator) {
    return modvalFields::ValidateByUIID(validator, uiid, value, record);
  });
}

Status cKD4410TierValidator::ExitFocusByUIID(std::string_view, const Variant&, RecordNr, Boolean& out) {
  return Guarded(out, [](const ValidatorRef&) { return true; });
}

Status cKD4410TierValidator::EnterFocusByUIID(std::string_view, const Variant&, RecordNr, Boolean& out) {
  out = kFalse;
  return {};
}

Status cKD4410TierValidator::Validator(std::shared_ptr<IvalidatorHost>& out) {
  out = IsOver() ? nullptr : host_;
  return {};
}

Status cKD4410TierValidator::SetValidator(std::shared_ptr<IvalidatorHost> host) {
  host_ = std::move(host);
  return {};
}

Status cKD4410TierValidator::Initialize(Itier* tier, std::shared_ptr<IvalidatorHost> host) {
  return Border([&] {
    Bind(tier);
    host_ = std::move(host);
  });
}
