#pragma once

#include <string_view>
#include <tuple>

#include "host/IenablementReasons.h"
#include "host/IfinalRules.h"
#include "host/TierLibrary.h"

/// The interfaces of the border as a trace names them.
namespace Trace {

/// Whose object an interface is: a call of the host goes to the tier, one of the tier to the host.
enum class Side { Host, Tier };

/// The entry points of a loaded library.
class IentryPoints {
 public:
  virtual ~IentryPoints() = default;
  virtual Status DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& factory,
                                   std::int32_t& result) = 0;
  virtual Status DllCanUnloadNow(std::int32_t& result) = 0;
};

/// An operation under its name.
template <auto Member>
struct Named {
  std::string_view name;
};

/// Name, side and operations of an interface.
template <typename I>
struct Contract;

template <typename I>
concept Interface = requires {
  Contract<I>::kName;
};

template <>
struct Contract<Ifield> {
  static constexpr std::string_view kName = "Ifield";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&Ifield::TransformId>{"TransformId"},
                                          Named<&Ifield::Default>{"Default"},
                                          Named<&Ifield::Name>{"Name"},
                                          Named<&Ifield::TableNumber>{"TableNumber"},
                                          Named<&Ifield::Maximum>{"Maximum"},
                                          Named<&Ifield::Minimum>{"Minimum"},
                                          Named<&Ifield::ListCount>{"ListCount"},
                                          Named<&Ifield::Scale>{"Scale"},
                                          Named<&Ifield::RecordCount>{"RecordCount"},
                                          Named<&Ifield::Value>{"Value"},
                                          Named<&Ifield::SetValue>{"SetValue"},
                                          Named<&Ifield::Values>{"Values"},
                                          Named<&Ifield::Units>{"Units"},
                                          Named<&Ifield::FreeValues>{"FreeValues"},
                                          Named<&Ifield::UsedValues>{"UsedValues"},
                                          Named<&Ifield::Validation>{"Validation"}};
};

template <>
struct Contract<Ifields> {
  static constexpr std::string_view kName = "Ifields";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&Ifields::Exists>{"Exists"}, Named<&Ifields::Item>{"Item"},
                                          Named<&Ifields::NewEnum>{"NewEnum"}};
};

template <>
struct Contract<IvalueList> {
  static constexpr std::string_view kName = "IvalueList";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&IvalueList::Item>{"Item"},
                                          Named<&IvalueList::Count>{"Count"}};
};

template <>
struct Contract<Itable> {
  static constexpr std::string_view kName = "Itable";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&Itable::RecordCount>{"RecordCount"},
                                          Named<&Itable::MinRecords>{"MinRecords"},
                                          Named<&Itable::MaxRecords>{"MaxRecords"},
                                          Named<&Itable::Fields>{"Fields"},
                                          Named<&Itable::Sort>{"Sort"},
                                          Named<&Itable::InsertRecord>{"InsertRecord"},
                                          Named<&Itable::NewRecord>{"NewRecord"},
                                          Named<&Itable::AppendRecord>{"AppendRecord"},
                                          Named<&Itable::DeleteRecord>{"DeleteRecord"}};
};

template <>
struct Contract<Itables> {
  static constexpr std::string_view kName = "Itables";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&Itables::FieldExists>{"FieldExists"},
                                          Named<&Itables::Field>{"Field"}, Named<&Itables::Table>{"Table"}};
};

template <>
struct Contract<Iprovider> {
  static constexpr std::string_view kName = "Iprovider";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&Iprovider::DefaultValue>{"DefaultValue"},
                                          Named<&Iprovider::RefreshField>{"RefreshField"},
                                          Named<&Iprovider::RefreshValues>{"RefreshValues"},
                                          Named<&Iprovider::TransformIdOf>{"TransformIdOf"},
                                          Named<&Iprovider::Field>{"Field"},
                                          Named<&Iprovider::Tables>{"Tables"},
                                          Named<&Iprovider::FactoryMode>{"FactoryMode"},
                                          Named<&Iprovider::AutoUpdate>{"AutoUpdate"},
                                          Named<&Iprovider::SetAutoUpdate>{"SetAutoUpdate"},
                                          Named<&Iprovider::ClearTable>{"ClearTable"}};
};

template <>
struct Contract<IprovInfo> {
  static constexpr std::string_view kName = "IprovInfo";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&IprovInfo::DisplayText>{"DisplayText"},
                                          Named<&IprovInfo::ShowInMenu>{"ShowInMenu"},
                                          Named<&IprovInfo::Key>{"Key"},
                                          Named<&IprovInfo::BaseKey>{"BaseKey"},
                                          Named<&IprovInfo::Provider>{"Provider"},
                                          Named<&IprovInfo::Siblings>{"Siblings"},
                                          Named<&IprovInfo::Load>{"Load"}};
};

template <>
struct Contract<Imessenger> {
  static constexpr std::string_view kName = "Imessenger";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&Imessenger::ShowMessage>{"ShowMessage"},
                                          Named<&Imessenger::GetRadioInformation>{"GetRadioInformation"},
                                          Named<&Imessenger::RefreshField>{"RefreshField"},
                                          Named<&Imessenger::SetFieldEnabled>{"SetFieldEnabled"}};
};

template <>
struct Contract<IvalidatorHost> {
  static constexpr std::string_view kName = "IvalidatorHost";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&IvalidatorHost::Caption>{"Caption"}};
};

template <>
struct Contract<IhostServices> {
  static constexpr std::string_view kName = "IhostServices";
  static constexpr Side kSide = Side::Host;
  static constexpr std::tuple kOperations{Named<&IhostServices::CreateProvInfo>{"CreateProvInfo"},
                                          Named<&IhostServices::ShowMessageBox>{"ShowMessageBox"},
                                          Named<&IhostServices::ApplicationFolder>{"ApplicationFolder"},
                                          Named<&IhostServices::RaiseEvent>{"RaiseEvent"}};
};

template <>
struct Contract<IentryPoints> {
  static constexpr std::string_view kName = "IentryPoints";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{Named<&IentryPoints::DllGetClassObject>{"DllGetClassObject"},
                                          Named<&IentryPoints::DllCanUnloadNow>{"DllCanUnloadNow"}};
};

template <>
struct Contract<IclassFactory> {
  static constexpr std::string_view kName = "IclassFactory";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{Named<&IclassFactory::SetHostServices>{"SetHostServices"},
                                          Named<&IclassFactory::CreateTier>{"CreateTier"},
                                          Named<&IclassFactory::CreateSchema>{"CreateSchema"},
                                          Named<&IclassFactory::CreateUserInterface>{"CreateUserInterface"},
                                          Named<&IclassFactory::CreateProviderOwner>{"CreateProviderOwner"},
                                          Named<&IclassFactory::CreateValidator>{"CreateValidator"}};
};

template <>
struct Contract<Itier> {
  static constexpr std::string_view kName = "Itier";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{Named<&Itier::Activate>{"Activate"},
                                          Named<&Itier::CurrentProvInfo>{"CurrentProvInfo"},
                                          Named<&Itier::CurrentProvider>{"CurrentProvider"},
                                          Named<&Itier::ProviderOwner>{"ProviderOwner"},
                                          Named<&Itier::Schema>{"Schema"},
                                          Named<&Itier::Terminator>{"Terminator"},
                                          Named<&Itier::UserInterface>{"UserInterface"},
                                          Named<&Itier::Validator>{"Validator"},
                                          Named<&Itier::Initialize>{"Initialize"},
                                          Named<&Itier::Terminate>{"Terminate"},
                                          Named<&Itier::TierKey>{"TierKey"},
                                          Named<&Itier::SetTierKey>{"SetTierKey"},
                                          Named<&Itier::SetTierName>{"SetTierName"},
                                          Named<&Itier::TierName>{"TierName"},
                                          Named<&Itier::Messenger>{"Messenger"},
                                          Named<&Itier::InitializeAsDelegate>{"InitializeAsDelegate"}};
};

template <>
struct Contract<Iterminator> {
  static constexpr std::string_view kName = "Iterminator";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{Named<&Iterminator::TerminateApplication>{"TerminateApplication"}};
};

template <>
struct Contract<ItierSchema> {
  static constexpr std::string_view kName = "ItierSchema";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{
      Named<&ItierSchema::TierMenuList>{"TierMenuList"},
      Named<&ItierSchema::TierList>{"TierList"},
      Named<&ItierSchema::GetDBVersionPathForTier>{"GetDBVersionPathForTier"},
      Named<&ItierSchema::GetDBVersionPathForTierAndVersion>{"GetDBVersionPathForTierAndVersion"},
      Named<&ItierSchema::GetLatestTierForTierNameAndVersion>{"GetLatestTierForTierNameAndVersion"},
      Named<&ItierSchema::Initialize>{"Initialize"}};
};

template <>
struct Contract<IcolProvInfo> {
  static constexpr std::string_view kName = "IcolProvInfo";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{
      Named<&IcolProvInfo::Add>{"Add"},         Named<&IcolProvInfo::Item>{"Item"},
      Named<&IcolProvInfo::Count>{"Count"},     Named<&IcolProvInfo::Remove>{"Remove"},
      Named<&IcolProvInfo::NewEnum>{"NewEnum"}, Named<&IcolProvInfo::Exists>{"Exists"}};
};

template <>
struct Contract<ItierUserInterface> {
  static constexpr std::string_view kName = "ItierUserInterface";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{
      Named<&ItierUserInterface::GetATGridIDByUIID>{"GetATGridIDByUIID"},
      Named<&ItierUserInterface::GetCustAccessLevelByUIID>{"GetCustAccessLevelByUIID"},
      Named<&ItierUserInterface::InitialiseUserInterface>{"InitialiseUserInterface"},
      Named<&ItierUserInterface::GetNavLabelByUIID>{"GetNavLabelByUIID"},
      Named<&ItierUserInterface::GetHelpIdByUIID>{"GetHelpIdByUIID"},
      Named<&ItierUserInterface::GetUIWidthByUIID>{"GetUIWidthByUIID"},
      Named<&ItierUserInterface::GetLabelByUIID>{"GetLabelByUIID"},
      Named<&ItierUserInterface::GetUnitsByUIID>{"GetUnitsByUIID"},
      Named<&ItierUserInterface::GetFactoryVisible>{"GetFactoryVisible"},
      Named<&ItierUserInterface::GetCustVisInFact>{"GetCustVisInFact"},
      Named<&ItierUserInterface::GetDecimalSymbolByUIID>{"GetDecimalSymbolByUIID"}};
};

template <>
struct Contract<IproviderOwner> {
  static constexpr std::string_view kName = "IproviderOwner";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{
      Named<&IproviderOwner::BackwardsCompatibility>{"BackwardsCompatibility"},
      Named<&IproviderOwner::PostReadProcessing>{"PostReadProcessing"},
      Named<&IproviderOwner::PreWriteProcessing>{"PreWriteProcessing"},
      Named<&IproviderOwner::PostAddProcessing>{"PostAddProcessing"},
      Named<&IproviderOwner::PostInsertProcessing>{"PostInsertProcessing"},
      Named<&IproviderOwner::GetComboItemsByUIID>{"GetComboItemsByUIID"},
      Named<&IproviderOwner::TransformFromUI>{"TransformFromUI"},
      Named<&IproviderOwner::TransformToUI>{"TransformToUI"},
      Named<&IproviderOwner::GetFrequencyRanges>{"GetFrequencyRanges"},
      Named<&IproviderOwner::GetBands>{"GetBands"},
      Named<&IproviderOwner::GetBandDesc>{"GetBandDesc"},
      Named<&IproviderOwner::Initialize>{"Initialize"},
      Named<&IproviderOwner::GetCurrentFrequencyRanges>{"GetCurrentFrequencyRanges"},
      Named<&IproviderOwner::PostDeleteProcessing>{"PostDeleteProcessing"}};
};

template <>
struct Contract<ItierValidator> {
  static constexpr std::string_view kName = "ItierValidator";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{
      Named<&ItierValidator::AddRecord>{"AddRecord"},
      Named<&ItierValidator::DeleteRecord>{"DeleteRecord"},
      Named<&ItierValidator::ExecuteByTriggerID>{"ExecuteByTriggerID"},
      Named<&ItierValidator::FormValidationByFormName>{"FormValidationByFormName"},
      Named<&ItierValidator::GetEnabledStatebyUIID>{"GetEnabledStatebyUIID"},
      Named<&ItierValidator::PermissionToOpenFormByFormName>{"PermissionToOpenFormByFormName"},
      Named<&ItierValidator::RunPreProgramValidation>{"RunPreProgramValidation"},
      Named<&ItierValidator::RunFinalValidation>{"RunFinalValidation"},
      Named<&ItierValidator::ValidateByUIID>{"ValidateByUIID"},
      Named<&ItierValidator::ExitFocusByUIID>{"ExitFocusByUIID"},
      Named<&ItierValidator::EnterFocusByUIID>{"EnterFocusByUIID"},
      Named<&ItierValidator::Validator>{"Validator"},
      Named<&ItierValidator::SetValidator>{"SetValidator"},
      Named<&ItierValidator::Initialize>{"Initialize"}};
};

/// Has the number of the validator that it is asked for.
template <>
struct Contract<IenablementReasons> {
  static constexpr std::string_view kName = "IenablementReasons";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{Named<&IenablementReasons::ReasonByUIID>{"ReasonByUIID"}};
};

/// Likewise.
template <>
struct Contract<IfinalRules> {
  static constexpr std::string_view kName = "IfinalRules";
  static constexpr Side kSide = Side::Tier;
  static constexpr std::tuple kOperations{Named<&IfinalRules::FinalRuleCount>{"FinalRuleCount"},
                                          Named<&IfinalRules::RunFinalRule>{"RunFinalRule"}};
};

/// The interface that has the operation.
template <typename Member>
struct InterfaceOfMember;
template <typename I, typename... Parameters>
struct InterfaceOfMember<Status (I::*)(Parameters...)> {
  using Type = I;
};
template <auto Member>
using InterfaceOf = typename InterfaceOfMember<decltype(Member)>::Type;

template <auto Member>
inline constexpr std::string_view kNameOf =
    std::get<Named<Member>>(Contract<InterfaceOf<Member>>::kOperations).name;

}  // namespace Trace
