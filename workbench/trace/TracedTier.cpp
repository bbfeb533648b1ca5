#include "workbench/trace/TracedCall.h"

/// The objects of the tier, as the host sees them.
namespace Trace {
namespace {

class TracedEntryPoints final : public Traced<IentryPoints> {
 public:
  using Traced::Traced;
  Status DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& factory,
                           std::int32_t& result) override {
    return Call<&IentryPoints::DllGetClassObject>(className, factory, result);
  }
  Status DllCanUnloadNow(std::int32_t& result) override {
    return Call<&IentryPoints::DllCanUnloadNow>(result);
  }
};

class TracedClassFactory final : public Traced<IclassFactory> {
 public:
  using Traced::Traced;
  Status SetHostServices(std::shared_ptr<IhostServices> services) override {
    return Call<&IclassFactory::SetHostServices>(std::move(services));
  }
  Status CreateTier(std::shared_ptr<Itier>& out) override { return Call<&IclassFactory::CreateTier>(out); }
  Status CreateSchema(std::shared_ptr<ItierSchema>& out) override {
    return Call<&IclassFactory::CreateSchema>(out);
  }
  Status CreateUserInterface(std::shared_ptr<ItierUserInterface>& out) override {
    return Call<&IclassFactory::CreateUserInterface>(out);
  }
  Status CreateProviderOwner(std::shared_ptr<IproviderOwner>& out) override {
    return Call<&IclassFactory::CreateProviderOwner>(out);
  }
  Status CreateValidator(std::shared_ptr<ItierValidator>& out) override {
    return Call<&IclassFactory::CreateValidator>(out);
  }
};

class TracedTier final : public Traced<Itier> {
 public:
  using Traced::Traced;
  Status Activate(Boolean& out) override { return Call<&Itier::Activate>(out); }
  Status CurrentProvInfo(std::shared_ptr<IprovInfo>& out) override {
    return Call<&Itier::CurrentProvInfo>(out);
  }
  Status CurrentProvider(std::shared_ptr<Iprovider>& out) override {
    return Call<&Itier::CurrentProvider>(out);
  }
  Status ProviderOwner(std::shared_ptr<IproviderOwner>& out) override {
    return Call<&Itier::ProviderOwner>(out);
  }
  Status Schema(std::shared_ptr<ItierSchema>& out) override { return Call<&Itier::Schema>(out); }
  Status Terminator(std::shared_ptr<Iterminator>& out) override { return Call<&Itier::Terminator>(out); }
  Status UserInterface(std::shared_ptr<ItierUserInterface>& out) override {
    return Call<&Itier::UserInterface>(out);
  }
  Status Validator(std::shared_ptr<ItierValidator>& out) override { return Call<&Itier::Validator>(out); }
  Status Initialize(std::string_view tierName, std::shared_ptr<IvalidatorHost> validatorHost,
                    std::shared_ptr<Imessenger> messenger, const Variant& uiArgument, Boolean& out) override {
    return Call<&Itier::Initialize>(tierName, std::move(validatorHost), std::move(messenger), uiArgument,
                                    out);
  }
  Status Terminate() override { return Call<&Itier::Terminate>(); }
  Status TierKey(std::string& out) override { return Call<&Itier::TierKey>(out); }
  Status SetTierKey(std::string_view key) override { return Call<&Itier::SetTierKey>(key); }
  Status SetTierName(std::string_view name) override { return Call<&Itier::SetTierName>(name); }
  Status TierName(std::string& out) override { return Call<&Itier::TierName>(out); }
  Status Messenger(std::shared_ptr<Imessenger>& out) override { return Call<&Itier::Messenger>(out); }
  Status InitializeAsDelegate(Itier* delegatingTier, std::shared_ptr<IvalidatorHost> validatorHost) override {
    return Call<&Itier::InitializeAsDelegate>(delegatingTier, std::move(validatorHost));
  }
};

class TracedTerminator final : public Traced<Iterminator> {
 public:
  using Traced::Traced;
  Status TerminateApplication() override { return Call<&Iterminator::TerminateApplication>(); }
};

class TracedTierSchema final : public Traced<ItierSchema> {
 public:
  using Traced::Traced;
  Status TierMenuList(std::string& out) override { return Call<&ItierSchema::TierMenuList>(out); }
  Status TierList(std::shared_ptr<IcolProvInfo>& out) override { return Call<&ItierSchema::TierList>(out); }
  Status GetDBVersionPathForTier(std::string_view tierKey, std::vector<std::string>& path,
                                 Boolean& out) override {
    return Call<&ItierSchema::GetDBVersionPathForTier>(tierKey, path, out);
  }
  Status GetDBVersionPathForTierAndVersion(std::string_view tierName, std::string_view version,
                                           std::vector<std::string>& path, Boolean& out) override {
    return Call<&ItierSchema::GetDBVersionPathForTierAndVersion>(tierName, version, path, out);
  }
  Status GetLatestTierForTierNameAndVersion(std::string_view tierName, std::string_view version,
                                            std::string& out) override {
    return Call<&ItierSchema::GetLatestTierForTierNameAndVersion>(tierName, version, out);
  }
  Status Initialize(Itier* tier, const std::vector<std::string>& versions, std::string& currentVersion,
                    Boolean& out) override {
    return Call<&ItierSchema::Initialize>(tier, versions, currentVersion, out);
  }
};

class TracedColProvInfo final : public Traced<IcolProvInfo> {
 public:
  using Traced::Traced;
  Status Add(std::shared_ptr<IprovInfo> provInfo, std::string_view key) override {
    return Call<&IcolProvInfo::Add>(std::move(provInfo), key);
  }
  Status Item(const Variant& keyOrIndex, std::shared_ptr<IprovInfo>& out) override {
    return Call<&IcolProvInfo::Item>(keyOrIndex, out);
  }
  Status Count(std::int32_t& out) override { return Call<&IcolProvInfo::Count>(out); }
  Status Remove(const Variant& keyOrIndex) override { return Call<&IcolProvInfo::Remove>(keyOrIndex); }
  Status NewEnum(std::vector<std::shared_ptr<IprovInfo>>& out) override {
    return Call<&IcolProvInfo::NewEnum>(out);
  }
  Status Exists(std::string_view key, Boolean& out) override { return Call<&IcolProvInfo::Exists>(key, out); }
};

class TracedTierUserInterface final : public Traced<ItierUserInterface> {
 public:
  using Traced::Traced;
  Status GetATGridIDByUIID(std::string_view uiid, std::string& gridId, Boolean& out) override {
    return Call<&ItierUserInterface::GetATGridIDByUIID>(uiid, gridId, out);
  }
  Status GetCustAccessLevelByUIID(std::string_view uiid, std::int16_t& level, Boolean& out) override {
    return Call<&ItierUserInterface::GetCustAccessLevelByUIID>(uiid, level, out);
  }
  Status InitialiseUserInterface(Itier* tier, const Variant& argument, Boolean& out) override {
    return Call<&ItierUserInterface::InitialiseUserInterface>(tier, argument, out);
  }
  Status GetNavLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) override {
    return Call<&ItierUserInterface::GetNavLabelByUIID>(uiid, label, out);
  }
  Status GetHelpIdByUIID(std::string_view uiid, std::int32_t& helpId, Boolean& out) override {
    return Call<&ItierUserInterface::GetHelpIdByUIID>(uiid, helpId, out);
  }
  Status GetUIWidthByUIID(std::string_view uiid, std::int32_t& width, Boolean& out) override {
    return Call<&ItierUserInterface::GetUIWidthByUIID>(uiid, width, out);
  }
  Status GetLabelByUIID(std::string_view uiid, std::string& label, Boolean& out) override {
    return Call<&ItierUserInterface::GetLabelByUIID>(uiid, label, out);
  }
  Status GetUnitsByUIID(std::string_view uiid, std::string& units, Boolean& out) override {
    return Call<&ItierUserInterface::GetUnitsByUIID>(uiid, units, out);
  }
  Status GetFactoryVisible(std::string_view uiid, std::int16_t& level, Boolean& out) override {
    return Call<&ItierUserInterface::GetFactoryVisible>(uiid, level, out);
  }
  Status GetCustVisInFact(std::string_view uiid, Boolean& visible, Boolean& out) override {
    return Call<&ItierUserInterface::GetCustVisInFact>(uiid, visible, out);
  }
  Status GetDecimalSymbolByUIID(std::string_view uiid, Boolean& shows, Boolean& out) override {
    return Call<&ItierUserInterface::GetDecimalSymbolByUIID>(uiid, shows, out);
  }
};

class TracedProviderOwner final : public Traced<IproviderOwner> {
 public:
  using Traced::Traced;
  Status BackwardsCompatibility(std::shared_ptr<Iprovider> source, std::string_view fromVersion,
                                std::shared_ptr<Iprovider> destination, std::string_view toVersion,
                                const Variant& report, Boolean& out) override {
    return Call<&IproviderOwner::BackwardsCompatibility>(std::move(source), fromVersion,
                                                         std::move(destination), toVersion, report, out);
  }
  Status PostReadProcessing(std::shared_ptr<Iprovider> provider, const Variant& argument) override {
    return Call<&IproviderOwner::PostReadProcessing>(std::move(provider), argument);
  }
  Status PreWriteProcessing(std::shared_ptr<Iprovider> provider, const Variant& argument1,
                            const Variant& argument2) override {
    return Call<&IproviderOwner::PreWriteProcessing>(std::move(provider), argument1, argument2);
  }
  Status PostAddProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName,
                           Boolean& out) override {
    return Call<&IproviderOwner::PostAddProcessing>(std::move(provider), gridName, out);
  }
  Status PostInsertProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName, RecordNr record,
                              Boolean& out) override {
    return Call<&IproviderOwner::PostInsertProcessing>(std::move(provider), gridName, record, out);
  }
  Status GetComboItemsByUIID(std::shared_ptr<Iprovider> provider, std::string_view uiid, RecordNr record,
                             std::shared_ptr<XArrayDBObject>& items, Boolean& out) override {
    return Call<&IproviderOwner::GetComboItemsByUIID>(std::move(provider), uiid, record, items, out);
  }
  Status TransformFromUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId, RecordNr record,
                         Boolean& out) override {
    return Call<&IproviderOwner::TransformFromUI>(std::move(provider), fieldId, record, out);
  }
  Status TransformToUI(std::shared_ptr<Iprovider> provider, std::string_view fieldId, RecordNr record,
                       Boolean& out) override {
    return Call<&IproviderOwner::TransformToUI>(std::move(provider), fieldId, record, out);
  }
  Status GetFrequencyRanges(std::int32_t bandPosition, std::int32_t& txLowest, std::int32_t& txHighest,
                            std::int32_t& rxLowest, std::int32_t& rxHighest, std::string& steps) override {
    return Call<&IproviderOwner::GetFrequencyRanges>(bandPosition, txLowest, txHighest, rxLowest, rxHighest,
                                                     steps);
  }
  Status GetBands(XArrayDBObject& bands) override { return Call<&IproviderOwner::GetBands>(bands); }
  Status GetBandDesc(std::shared_ptr<Iprovider> provider, std::string& out) override {
    return Call<&IproviderOwner::GetBandDesc>(std::move(provider), out);
  }
  Status Initialize(Itier* tier) override { return Call<&IproviderOwner::Initialize>(tier); }
  Status GetCurrentFrequencyRanges(std::int32_t& txLowest, std::int32_t& txHighest, std::int32_t& rxLowest,
                                   std::int32_t& rxHighest, std::string& steps) override {
    return Call<&IproviderOwner::GetCurrentFrequencyRanges>(txLowest, txHighest, rxLowest, rxHighest, steps);
  }
  Status PostDeleteProcessing(std::shared_ptr<Iprovider> provider, std::string_view gridName, RecordNr record,
                              Boolean& out) override {
    return Call<&IproviderOwner::PostDeleteProcessing>(std::move(provider), gridName, record, out);
  }
};

class TracedTierValidator : public Traced<ItierValidator> {
 public:
  using Traced::Traced;
  Status AddRecord(std::string_view gridName, std::shared_ptr<Iprovider> provider, Boolean& out) override {
    return Call<&ItierValidator::AddRecord>(gridName, std::move(provider), out);
  }
  Status DeleteRecord(std::string_view gridName, RecordNr record, std::shared_ptr<Iprovider> provider,
                      Boolean& out) override {
    return Call<&ItierValidator::DeleteRecord>(gridName, record, std::move(provider), out);
  }
  Status ExecuteByTriggerID(std::string_view triggerId, Boolean& out) override {
    return Call<&ItierValidator::ExecuteByTriggerID>(triggerId, out);
  }
  Status FormValidationByFormName(std::string_view formName, Boolean refresh, Boolean& out) override {
    return Call<&ItierValidator::FormValidationByFormName>(formName, refresh, out);
  }
  Status GetEnabledStatebyUIID(std::string_view uiid, RecordNr record, Boolean& out) override {
    return Call<&ItierValidator::GetEnabledStatebyUIID>(uiid, record, out);
  }
  Status PermissionToOpenFormByFormName(std::string_view formName, Boolean& out) override {
    return Call<&ItierValidator::PermissionToOpenFormByFormName>(formName, out);
  }
  Status RunPreProgramValidation(Boolean& out) override {
    return Call<&ItierValidator::RunPreProgramValidation>(out);
  }
  Status RunFinalValidation(Boolean& out) override { return Call<&ItierValidator::RunFinalValidation>(out); }
  Status ValidateByUIID(std::string_view uiid, Variant& value, RecordNr record, Boolean& out) override {
    return Call<&ItierValidator::ValidateByUIID>(uiid, value, record, out);
  }
  Status ExitFocusByUIID(std::string_view uiid, const Variant& value, RecordNr record,
                         Boolean& out) override {
    return Call<&ItierValidator::ExitFocusByUIID>(uiid, value, record, out);
  }
  Status EnterFocusByUIID(std::string_view uiid, const Variant& value, RecordNr record,
                          Boolean& out) override {
    return Call<&ItierValidator::EnterFocusByUIID>(uiid, value, record, out);
  }
  Status Validator(std::shared_ptr<IvalidatorHost>& out) override {
    return Call<&ItierValidator::Validator>(out);
  }
  Status SetValidator(std::shared_ptr<IvalidatorHost> host) override {
    return Call<&ItierValidator::SetValidator>(std::move(host));
  }
  Status Initialize(Itier* tier, std::shared_ptr<IvalidatorHost> host) override {
    return Call<&ItierValidator::Initialize>(tier, std::move(host));
  }
};

/// A validator with the extras.
class TracedExtras final : public TracedTierValidator, public IenablementReasons, public IfinalRules {
 public:
  using TracedTierValidator::TracedTierValidator;
  Status ReasonByUIID(std::string_view uiid, RecordNr record, EnablementReason& out) override {
    return Call<&IenablementReasons::ReasonByUIID>(uiid, record, out);
  }
  Status FinalRuleCount(std::int32_t& out) override { return Call<&IfinalRules::FinalRuleCount>(out); }
  Status RunFinalRule(std::int32_t rule, FinalOutcome& out) override {
    return Call<&IfinalRules::RunFinalRule>(rule, out);
  }
};

}  // namespace

std::shared_ptr<IentryPoints> MakeTraced(Place place, std::shared_ptr<IentryPoints> real) {
  return Make<TracedEntryPoints>(place, real);
}
std::shared_ptr<IclassFactory> MakeTraced(Place place, std::shared_ptr<IclassFactory> real) {
  return Make<TracedClassFactory>(place, real);
}
std::shared_ptr<Itier> MakeTraced(Place place, std::shared_ptr<Itier> real) {
  return Make<TracedTier>(place, real);
}
std::shared_ptr<Iterminator> MakeTraced(Place place, std::shared_ptr<Iterminator> real) {
  return Make<TracedTerminator>(place, real);
}
std::shared_ptr<ItierSchema> MakeTraced(Place place, std::shared_ptr<ItierSchema> real) {
  return Make<TracedTierSchema>(place, real);
}
std::shared_ptr<IcolProvInfo> MakeTraced(Place place, std::shared_ptr<IcolProvInfo> real) {
  return Make<TracedColProvInfo>(place, real);
}
std::shared_ptr<ItierUserInterface> MakeTraced(Place place, std::shared_ptr<ItierUserInterface> real) {
  return Make<TracedTierUserInterface>(place, real);
}
std::shared_ptr<IproviderOwner> MakeTraced(Place place, std::shared_ptr<IproviderOwner> real) {
  return Make<TracedProviderOwner>(place, real);
}
std::shared_ptr<ItierValidator> MakeTraced(Place place, std::shared_ptr<ItierValidator> real) {
  const bool hasExtras = dynamic_cast<const IenablementReasons*>(real.get()) != nullptr &&
                         dynamic_cast<const IfinalRules*>(real.get()) != nullptr;
  return hasExtras ? Make<TracedExtras>(place, real) : Make<TracedTierValidator>(place, real);
}

}  // namespace Trace
