#pragma once

#include "common/LibraryObject.h"
#include "common/TierChild.h"
#include "host/IenablementReasons.h"
#include "host/IfinalRules.h"
#include "host/ItierValidator.h"

class cKD4410TierValidator final : public ItierValidator,
                                   public IenablementReasons,
                                   public IfinalRules,
                                   public TierChild,
                                   private LibraryObject {
 public:
  using TierChild::TierChild;
  Status AddRecord(std::string_view gridName, std::shared_ptr<Iprovider> provider, Boolean& out) override;
  Status DeleteRecord(std::string_view gridName, RecordNr record, std::shared_ptr<Iprovider> provider,
                      Boolean& out) override;
  Status ExecuteByTriggerID(std::string_view triggerId, Boolean& out) override;
  Status FormValidationByFormName(std::string_view formName, Boolean refresh, Boolean& out) override;
  Status GetEnabledStatebyUIID(std::string_view uiid, RecordNr record, Boolean& out) override;
  Status PermissionToOpenFormByFormName(std::string_view formName, Boolean& out) override;
  Status RunPreProgramValidation(Boolean& out) override;
  Status RunFinalValidation(Boolean& out) override;
  Status ValidateByUIID(std::string_view uiid, Variant& value, RecordNr record, Boolean& out) override;
  Status ExitFocusByUIID(std::string_view uiid, const Variant& value, RecordNr record, Boolean& out) override;
  Status EnterFocusByUIID(std::string_view uiid, const Variant& value, RecordNr record,
                          Boolean& out) override;
  Status Validator(std::shared_ptr<IvalidatorHost>& out) override;
  Status SetValidator(std::shared_ptr<IvalidatorHost> host) override;
  Status Initialize(Itier* tier, std::shared_ptr<IvalidatorHost> host) override;
  Status ReasonByUIID(std::string_view uiid, RecordNr record, EnablementReason& out) override;
  Status FinalRuleCount(std::int32_t& out) override;
  Status RunFinalRule(std::int32_t rule, FinalOutcome& out) override;

 private:
  /// Runs a rule operation behind the guard, which takes a validator whose tier is gone for one without a
  /// host; `rule` takes the context and gives the answer.
  template <typename Rule>
  Status Guarded(Boolean& out, Rule rule);
  template <typename Work>
  Status GuardedCall(Work work);
  void Guard() const;

  std::shared_ptr<IvalidatorHost> host_;
};
