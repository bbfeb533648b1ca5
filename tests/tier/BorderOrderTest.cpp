#include <gtest/gtest.h>

#include <array>
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
  constexpr std::size_t kDestructors = 2;
  const auto words = std::bit_cast<std::array<std::size_t, 2>>(operation);
  EXPECT_EQ(words[0] % sizeof(void*), 1U) << "not virtual";
  return words[0] / sizeof(void*) - kDestructors;
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
  using T = Itier;
  ExpectOrder<T>(&T::Activate, &T::CurrentProvInfo, &T::CurrentProvider, &T::ProviderOwner, &T::Schema,
                 &T::Terminator, &T::UserInterface, &T::Validator, &T::Initialize, &T::Terminate, &T::TierKey,
                 &T::SetTierKey, &T::SetTierName, &T::TierName, &T::Messenger, &T::InitializeAsDelegate);
  ExpectOrder<Iterminator>(&Iterminator::TerminateApplication);
  using S = ItierSchema;
  ExpectOrder<S>(&S::TierMenuList, &S::TierList, &S::GetDBVersionPathForTier,
                 &S::GetDBVersionPathForTierAndVersion, &S::GetLatestTierForTierNameAndVersion,
                 &S::Initialize);
  using L = IcolProvInfo;
  ExpectOrder<L>(&L::Add, &L::Item, &L::Count, &L::Remove, &L::NewEnum, &L::Exists);
  using U = ItierUserInterface;
  ExpectOrder<U>(&U::GetATGridIDByUIID, &U::GetCustAccessLevelByUIID, &U::InitialiseUserInterface,
                 &U::GetNavLabelByUIID, &U::GetHelpIdByUIID, &U::GetUIWidthByUIID, &U::GetLabelByUIID,
                 &U::GetUnitsByUIID, &U::GetFactoryVisible, &U::GetCustVisInFact, &U::GetDecimalSymbolByUIID);
  using O = IproviderOwner;
  ExpectOrder<O>(&O::BackwardsCompatibility, &O::PostReadProcessing, &O::PreWriteProcessing,
                 &O::PostAddProcessing, &O::PostInsertProcessing, &O::GetComboItemsByUIID,
                 &O::TransformFromUI, &O::TransformToUI, &O::GetFrequencyRanges, &O::GetBands,
                 &O::GetBandDesc, &O::Initialize, &O::GetCurrentFrequencyRanges, &O::PostDeleteProcessing);
  using V = ItierValidator;
  ExpectOrder<V>(&V::AddRecord, &V::DeleteRecord, &V::ExecuteByTriggerID, &V::FormValidationByFormName,
                 &V::GetEnabledStatebyUIID, &V::PermissionToOpenFormByFormName, &V::RunPreProgramValidation,
                 &V::RunFinalValidation, &V::ValidateByUIID, &V::ExitFocusByUIID, &V::EnterFocusByUIID,
                 &V::Validator, &V::SetValidator, &V::Initialize);
  using F = IclassFactory;
  ExpectOrder<F>(&F::SetHostServices, &F::CreateTier, &F::CreateSchema, &F::CreateUserInterface,
                 &F::CreateProviderOwner, &F::CreateValidator);
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
