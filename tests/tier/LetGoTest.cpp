#include <gmock/gmock.h>

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshLibrary.h"
#include "tests/support/TierFixture.h"

/// A host may let go of anything in any callback, and keep what a tier gave it longer than the tier. What is
/// wrong here the address sanitizer sees.
namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kNotThere = 91;
constexpr std::int32_t kNotBound = 9001;

/// A small host: what it keeps of one tier.
struct Kept {
  std::shared_ptr<Itier> tier;
  std::shared_ptr<IproviderOwner> owner;
  std::shared_ptr<ItierSchema> schema;
  std::shared_ptr<ItierUserInterface> userInterface;
  std::shared_ptr<ItierValidator> validator;
};

class LetGo : public testing::Test {
 protected:
  LetGo() {
    services.folder = DATA_FOLDER;
    version.siblings = {&version};
    version.current = "0094";
    version.provider = store;
    store->SetCount(5, 1);
    library.SetServices(services.Handle());
  }
  Kept Start() {
    services.versions = {&version};
    services.created = 0;
    Kept kept{library.CreateTier(), nullptr, nullptr, nullptr, nullptr};
    Boolean done = kFalse;
    EXPECT_TRUE(kept.tier->Initialize("KD4410", validatorHost, messenger, Variant(), done).Ok());
    EXPECT_EQ(done, kTrue);
    EXPECT_TRUE(kept.tier->ProviderOwner(kept.owner).Ok() && kept.tier->Schema(kept.schema).Ok() &&
                kept.tier->UserInterface(kept.userInterface).Ok() &&
                kept.tier->Validator(kept.validator).Ok());
    services.calls.clear();
    return kept;
  }
  Status Validate(Kept& kept, std::string_view uiid, Variant value) {
    Boolean out = kFalse;
    return kept.validator->ValidateByUIID(uiid, value, 1, out);
  }
  /// One operation of each child, and what the validator has of its own.
  std::vector<std::int32_t> Answers(Kept& kept) {
    Boolean flag = kFalse;
    std::string text;
    std::int32_t limit = 0;
    Variant value(0);
    std::shared_ptr<IcolProvInfo> list;
    std::shared_ptr<IvalidatorHost> bound;
    EXPECT_EQ(NumberOf(kept.validator->EnterFocusByUIID("x", value, 1, flag)), 0);
    EXPECT_EQ(NumberOf(kept.validator->Validator(bound)), 0);
    return {NumberOf(kept.owner->TransformToUI(store, "5.ChannelTxFreqUI", 1, flag)),
            NumberOf(kept.owner->GetCurrentFrequencyRanges(limit, limit, limit, limit, text)),
            NumberOf(kept.schema->TierList(list)),
            NumberOf(kept.userInterface->GetLabelByUIID("TxFreq_k6k", text, flag)),
            NumberOf(kept.validator->GetEnabledStatebyUIID("TxInhibit_k6k", 1, flag)),
            NumberOf(kept.validator->ValidateByUIID("TxPower_k6k", value, 1, flag))};
  }

  const std::shared_ptr<Provider> store = std::make_shared<Provider>(ProjectSchemas()->At("KD4410.0094"));
  FakeVersion version{"0094.KD4410"};
  FakeServices services;
  const std::shared_ptr<ScriptedMessenger> messenger = std::make_shared<ScriptedMessenger>();
  const std::shared_ptr<ValidatorHost> validatorHost = std::make_shared<ValidatorHost>("Caption");
  const FreshLibrary library;  // goes first: nothing of it may be left then
};

TEST_F(LetGo, ATierThatIsLetGoInsideTheEventLivesUntilTheCallReturns) {
  const std::pair<const char*, Variant> edits[] = {
      {"SignallingType", 1}, {"EmergencyEnabled", 0}, {"Band_k6k", 3}};
  for (const auto& [uiid, value] : edits) {
    for (std::int64_t call = 1; call < 40; ++call) {
      Kept kept = Start();
      services.onEvent = [&] { kept = Kept{}; };
      store->Monitor().FailFrom(call);
      static_cast<void>(Validate(kept, uiid, value));
      store->Monitor().NeverFail();
      services.onEvent = nullptr;
      EXPECT_EQ(library.CanUnloadNow(), kept.tier == nullptr) << uiid << " call " << call;
    }
  }
  // Before it is a tier at all: a fault in Initialize itself.
  std::shared_ptr<Itier> tier = library.CreateTier();
  services.onEvent = [&] { tier.reset(); };
  services.folder = "/nowhere";
  version.loadFault = Fault{77, "Host", "no disk"};
  services.created = 0;
  Boolean done = kTrue;
  EXPECT_TRUE(tier->Initialize("KD4410", validatorHost, messenger, Variant(), done).Ok());
  EXPECT_EQ(done, kFalse);
  EXPECT_EQ(tier, nullptr);
}

TEST_F(LetGo, ChildrenThatOutliveTheirTierAnswerThatItIsNotThere) {
  const auto gone = ElementsAre(kNotThere, kNotThere, kNotThere, kNotThere, kNotBound, kNotBound);
  const auto there = ElementsAre(0, 0, 0, 0, 0, 0);
  Kept kept = Start();
  EXPECT_THAT(Answers(kept), there);
  EXPECT_TRUE(kept.tier->Terminate().Ok());
  EXPECT_THAT(Answers(kept), gone) << "terminated";
  Kept second = Start();
  EXPECT_THAT(Answers(second), there);
  EXPECT_THAT(Answers(kept), gone) << "another tier is none of theirs";
  second.tier.reset();
  EXPECT_THAT(Answers(second), gone) << "let go";

  Kept delegating = Start();
  Kept delegate = Start();
  EXPECT_TRUE(delegate.tier->InitializeAsDelegate(delegating.tier.get(), validatorHost).Ok());
  EXPECT_THAT(Answers(delegate), there);
  delegating = Kept{};
  EXPECT_THAT(Answers(delegate), ElementsAre(kNotThere, kNotThere, 0, kNotThere, kNotBound, kNotBound))
      << "the tier that it works for is gone; the schema is its own";
  EXPECT_THAT(services.calls, IsEmpty()) << "none of it is a fault";
}

TEST_F(LetGo, ASecondTierThatGoesLeavesTheFirstInCharge) {
  Kept first = Start();
  Start();  // and gone
  store->Monitor().FailFrom(1);
  EXPECT_TRUE(Validate(first, "SignallingType", 1).Ok());
  store->Monitor().NeverFail();
  EXPECT_THAT(services.calls, ElementsAre("ShowMessageBox", "RaiseEvent 1"));
}
}  // namespace
