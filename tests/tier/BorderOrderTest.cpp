#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <numeric>
#include <vector>

#include "host/TierLibrary.h"

/// A host calls an operation by its place, so the order of the operations is part of the contract.
namespace {
/// The place of a virtual operation in its table. The first word of a pointer to it is the offset in the
/// table plus 1; the two entries of the destructor come first.
template <typename Operation>
std::size_t PlaceOf(Operation operation) {
  struct Words {
    std::size_t function, adjustment;
  };
  constexpr std::size_t kDestructors = 2;
  const Words words = std::bit_cast<Words>(operation);
  EXPECT_EQ(words.function % sizeof(void*), 1U) << "not virtual";
  return words.function / sizeof(void*) - kDestructors;
}

/// Takes the first place behind all operations of the interface.
template <typename Interface>
struct Extended : Interface {
  virtual void Behind() = 0;
};

template <typename Interface, typename... Operations>
void ExpectOrder(Operations... operations) {
  std::vector<std::size_t> expected(sizeof...(operations) + 1);
  std::iota(expected.begin(), expected.end(), std::size_t{0});
  EXPECT_EQ((std::vector<std::size_t>{PlaceOf(operations)..., PlaceOf(&Extended<Interface>::Behind)}),
            expected);
}

TEST(BorderOrder, OfTheInterfacesOfTheTier) {
  ExpectOrder<Itier>(&Itier::Activate, &Itier::CurrentProvInfo, &Itier::CurrentProvider,
                     &Itier::ProviderOwner, &Itier::Schema, &Itier::Terminator, &Itier::UserInterface,
                     &Itier::Validator, &Itier::Initialize, &Itier::Terminate, &Itier::TierKey,
                     &Itier::SetTierKey, &Itier::SetTierName, &Itier::TierName, &Itier::Messenger,
                     &Itier::InitializeAsDelegate);
  ExpectOrder<Iterminator>(&Iterminator::TerminateApplication);
  ExpectOrder<ItierSchema>(&ItierSchema::TierMenuList, &ItierSchema::TierList,
                           &ItierSchema::GetDBVersionPathForTier,
                           &ItierSchema::GetDBVersionPathForTierAndVersion,
                           &ItierSchema::GetLatestTierForTierNameAndVersion, &ItierSchema::Initialize);
  ExpectOrder<IcolProvInfo>(&IcolProvInfo::Add, &IcolProvInfo::Item, &IcolProvInfo::Count,
                            &IcolProvInfo::Remove, &IcolProvInfo::NewEnum, &IcolProvInfo::Exists);
  using UI = ItierUserInterface;
  ExpectOrder<UI>(&UI::GetATGridIDByUIID, &UI::GetCustAccessLevelByUIID, &UI::InitialiseUserInterface,
                  &UI::GetNavLabelByUIID, &UI::GetHelpIdByUIID, &UI::GetUIWidthByUIID, &UI::GetLabelByUIID,
                  &UI::GetUnitsByUIID, &UI::GetFactoryVisible, &UI::GetCustVisInFact,
                  &UI::GetDecimalSymbolByUIID);
  using Owner = IproviderOwner;
  ExpectOrder<Owner>(&Owner::BackwardsCompatibility, &Owner::PostReadProcessing, &Owner::PreWriteProcessing,
                     &Owner::PostAddProcessing, &Owner::PostInsertProcessing, &Owner::GetComboItemsByUIID,
                     &Owner::TransformFromUI, &Owner::TransformToUI, &Owner::GetFrequencyRanges,
                     &Owner::GetBands, &Owner::GetBandDesc, &Owner::Initialize,
                     &Owner::GetCurrentFrequencyRanges, &Owner::PostDeleteProcessing);
  using Rules = ItierValidator;
  ExpectOrder<Rules>(&Rules::AddRecord, &Rules::DeleteRecord, &Rules::ExecuteByTriggerID,
                     &Rules::FormValidationByFormName, &Rules::GetEnabledStatebyUIID,
                     &Rules::PermissionToOpenFormByFormName, &Rules::RunPreProgramValidation,
                     &Rules::RunFinalValidation, &Rules::ValidateByUIID, &Rules::ExitFocusByUIID,
                     &Rules::EnterFocusByUIID, &Rules::Validator, &Rules::SetValidator, &Rules::Initialize);
  using Factory = IclassFactory;
  ExpectOrder<Factory>(&Factory::SetHostServices, &Factory::CreateTier, &Factory::CreateSchema,
                       &Factory::CreateUserInterface, &Factory::CreateProviderOwner,
                       &Factory::CreateValidator);
}

TEST(BorderOrder, OfTheInterfacesOfTheHost) {
  using P = Iprovider;
  ExpectOrder<P>(&P::DefaultValue, &P::RefreshField, &P::RefreshValues, &P::TransformIdOf, &P::Field,
                 &P::Tables, &P::FactoryMode, &P::AutoUpdate, &P::SetAutoUpdate, &P::ClearTable);
  ExpectOrder<Itables>(&Itables::FieldExists, &Itables::Field, &Itables::Table);
  using T = Itable;
  ExpectOrder<T>(&T::RecordCount, &T::MinRecords, &T::MaxRecords, &T::Fields, &T::Sort, &T::InsertRecord,
                 &T::NewRecord, &T::AppendRecord, &T::DeleteRecord);
  ExpectOrder<Ifields>(&Ifields::Exists, &Ifields::Item, &Ifields::NewEnum);
  using F = Ifield;
  ExpectOrder<F>(&F::TransformId, &F::Default, &F::Name, &F::TableNumber, &F::Maximum, &F::Minimum,
                 &F::ListCount, &F::Scale, &F::RecordCount, &F::Value, &F::SetValue, &F::Values, &F::Units,
                 &F::FreeValues, &F::UsedValues, &F::Validation);
  ExpectOrder<IvalueList>(&IvalueList::Item, &IvalueList::Count);
  ExpectOrder<Imessenger>(&Imessenger::ShowMessage, &Imessenger::GetRadioInformation,
                          &Imessenger::RefreshField, &Imessenger::SetFieldEnabled);
  ExpectOrder<IvalidatorHost>(&IvalidatorHost::Caption);
  using V = IprovInfo;
  ExpectOrder<V>(&V::DisplayText, &V::ShowInMenu, &V::Key, &V::BaseKey, &V::Provider, &V::Siblings, &V::Load);
  using S = IhostServices;
  ExpectOrder<S>(&S::CreateProvInfo, &S::ShowMessageBox, &S::ApplicationFolder, &S::RaiseEvent);
}
}  // namespace
