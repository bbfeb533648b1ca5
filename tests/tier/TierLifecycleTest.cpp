#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshLibrary.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

template <typename Object, typename Base, typename Out>
Out Get(const std::shared_ptr<Object>& object, Status (Base::*operation)(Out&)) {
  Out out{};
  EXPECT_TRUE(((*object).*operation)(out).Ok());
  return out;
}

constexpr const char* kClasses[] = {"clsKD4410Tier", "clsSchema", "clsTierUI", "clsKD4410ProvOwn",
                                    "cKD4410TierValidator"};

/// A tier of the built plug-in, as if in a process of its own, on versions and a platform that the test
/// describes.
class TierLifecycle : public testing::Test {
 protected:
  TierLifecycle() {
    newer.siblings = older.siblings = {&older, &newer};
    newer.current = "0094";
    newer.provider = Store("KD4410.0094", 5);
    older.provider = Store("KD4410.0093", 1);
    services.versions = {&newer};
    for (const char* name : {"KD4410_UI_U.dat", "KD4410_UI_D.dat", "KD4410_UI_C.dat"})
      data.Write(name, ContentOf(std::string(DATA_FOLDER "/") + name));
    services.folder = data.Path();
    library.SetServices(services.Handle());
    tier = library.CreateTier();
  }

  /// A store whose band stands at that position of the list.
  static std::shared_ptr<Provider> Store(std::string_view version, std::int32_t band) {
    auto store = std::make_shared<Provider>(ProjectSchemas()->At(version));
    store->Set("Band_k6k", 1, band);
    return store;
  }
  bool Initialize(const std::shared_ptr<Itier>& any) {
    services.created = 0;
    Boolean done = kTrue;
    EXPECT_TRUE(any->Initialize("KD4410", validatorHost, messenger, Variant(), done).Ok());
    return done != kFalse;
  }
  bool Initialize() { return Initialize(tier); }
  /// Which of provider owner, schema, user interface and validator the tier has.
  std::vector<bool> Children() {
    return {Get(tier, &Itier::ProviderOwner) != nullptr, Get(tier, &Itier::Schema) != nullptr,
            Get(tier, &Itier::UserInterface) != nullptr, Get(tier, &Itier::Validator) != nullptr};
  }
  std::string Key() { return Get(tier, &Itier::TierKey); }
  std::int32_t CurrentProvider() { return NumberOf(tier->CurrentProvider(provider)); }

  FakeVersion older{"0093.KD4410"}, newer{"0094.KD4410", "0093.KD4410"};
  FakeServices services;
  const TemporaryFolder data;
  const std::shared_ptr<ScriptedMessenger> messenger = std::make_shared<ScriptedMessenger>();
  const std::shared_ptr<ValidatorHost> validatorHost = std::make_shared<ValidatorHost>("Caption");
  const FreshLibrary library;  // goes after the tier
  std::shared_ptr<Itier> tier;
  std::shared_ptr<Iprovider> provider;
};

TEST_F(TierLifecycle, InitializeFindsTheVersionsFirstAndThenReadsTheFilesOnce) {
  EXPECT_THAT(Children(), ElementsAre(false, false, false, false));
  Boolean active = kFalse;
  EXPECT_FALSE(tier->Activate(active).Ok());
  EXPECT_TRUE(Initialize());
  EXPECT_THAT(services.calls, ElementsAre("CreateProvInfo", "ApplicationFolder"));
  EXPECT_THAT(Children(), ElementsAre(true, true, true, true));
  EXPECT_EQ(Get(tier, &Itier::Messenger), messenger);
  EXPECT_EQ(Get(Get(tier, &Itier::Validator), &ItierValidator::Validator), validatorHost);
  EXPECT_EQ(Key(), "0094.KD4410");

  std::filesystem::remove_all(data.Path());
  EXPECT_EQ(Get(tier, &Itier::Activate), kTrue);
  EXPECT_TRUE(Initialize()) << "the files are read once in the life of the process";
  EXPECT_THAT(services.calls, ElementsAre("CreateProvInfo", "ApplicationFolder", "CreateProvInfo"));
}

TEST_F(TierLifecycle, AFailingStepEndsInitializeAndIsTriedAgain) {
  library.SetServices(nullptr);
  EXPECT_FALSE(Initialize());
  library.SetServices(services.Handle());

  newer.loadFault = Fault{77, "Host", "no disk"};
  EXPECT_FALSE(Initialize());
  EXPECT_THAT(services.calls, ElementsAre("CreateProvInfo", "ShowMessageBox", "RaiseEvent 1"));
  EXPECT_THAT(services.boxes, ElementsAre(HasSubstr("no disk")));
  EXPECT_THAT(Children(), ElementsAre(true, true, false, false));
  newer.loadFault.reset();

  services.calls.clear();
  std::filesystem::remove(data.PathOf("KD4410_UI_C.dat"));
  EXPECT_FALSE(Initialize());
  EXPECT_THAT(services.calls,
              ElementsAre("CreateProvInfo", "ApplicationFolder", "ShowMessageBox", "RaiseEvent 1"));
  EXPECT_THAT(Children(), ElementsAre(true, true, true, false));
  EXPECT_EQ(Key(), "0094.KD4410");
  data.Write("KD4410_UI_C.dat", "CTCSSID\tCTCSSVALUE\n1\t67.0\n");
  EXPECT_TRUE(Initialize());
  EXPECT_THAT(Children(), ElementsAre(true, true, true, true));
}

TEST_F(TierLifecycle, TheKeyKeepsItsVersionUntilItChangesAndItsProviderNever) {
  newer.current = "";  // no personality is open
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(Key(), "");
  EXPECT_EQ(CurrentProvider(), 5);
  EXPECT_THAT(services.boxes, IsEmpty());  // the error goes to the caller
  EXPECT_TRUE(tier->SetTierKey("0094.KD4410").Ok());
  EXPECT_EQ(CurrentProvider(), 0);
  const int listings = newer.siblingCalls;
  EXPECT_TRUE(tier->SetTierKey("0094.KD4410").Ok());
  newer.provider = Store("KD4410.0094", 0);
  EXPECT_EQ(CurrentProvider(), 0);
  EXPECT_EQ(provider, newer.provider);
  EXPECT_EQ(newer.siblingCalls, listings);

  EXPECT_TRUE(tier->SetTierKey("0094.kd4410").Ok());  // another text, though the same key
  EXPECT_EQ(CurrentProvider(), 0);
  EXPECT_GT(newer.siblingCalls, listings);
  EXPECT_TRUE(tier->SetTierKey("0001.KD4410").Ok());
  EXPECT_EQ(CurrentProvider(), 5);
}

TEST_F(TierLifecycle, TerminateDropsChildrenAndMessengerAndKeepsTheNames) {
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(CurrentProvider(), 0);
  EXPECT_TRUE(tier->Terminate().Ok());
  EXPECT_THAT(Children(), ElementsAre(false, false, false, false));
  EXPECT_EQ(messenger.use_count(), 1);
  EXPECT_EQ(Key(), "0094.KD4410");
  EXPECT_EQ(Get(tier, &Itier::TierName), "KD4410");
  EXPECT_EQ(CurrentProvider(), 0) << "the version found stays";
  EXPECT_TRUE(Get(tier, &Itier::Terminator)->TerminateApplication().Ok());
  EXPECT_EQ(services.calls.back(), "RaiseEvent 1");
}

TEST_F(TierLifecycle, ADelegateReadsTheProviderOfTheOtherTier) {
  EXPECT_TRUE(Initialize());
  const auto other = library.CreateTier();
  EXPECT_TRUE(Initialize(other));
  EXPECT_TRUE(other->SetTierKey("0093.KD4410").Ok());
  const auto otherHost = std::make_shared<ValidatorHost>("Other");
  EXPECT_TRUE(tier->InitializeAsDelegate(other.get(), otherHost).Ok());

  const auto lowest = [&] {
    std::int32_t limit = 0, ignored = 0;
    std::string steps;
    const auto owner = Get(tier, &Itier::ProviderOwner);
    EXPECT_TRUE(owner->GetCurrentFrequencyRanges(limit, ignored, ignored, ignored, steps).Ok());
    return limit;
  };
  const auto validator = Get(tier, &Itier::Validator);
  EXPECT_EQ(lowest(), 136'000'000);
  EXPECT_EQ(Get(validator, &ItierValidator::Validator), otherHost);
  EXPECT_EQ(Get(tier, &Itier::Activate), kTrue);
  EXPECT_EQ(lowest(), 400'000'000);
  EXPECT_EQ(Get(validator, &ItierValidator::Validator), validatorHost);
}

TEST(TierLibraryFile, MayBeUnloadedWhenNoObjectLives) {
  const FreshLibrary library;
  EXPECT_TRUE(library.CanUnloadNow());
  auto factory = library.Factory("clsSchema");
  EXPECT_FALSE(library.CanUnloadNow());
  std::shared_ptr<ItierSchema> schema;
  EXPECT_TRUE(factory->CreateSchema(schema).Ok());
  factory.reset();
  EXPECT_FALSE(library.CanUnloadNow());
  auto list = Get(schema, &ItierSchema::TierList);
  schema.reset();
  EXPECT_FALSE(library.CanUnloadNow()) << "a collection is still out";
  list.reset();
  EXPECT_TRUE(library.CanUnloadNow());
}

TEST(TierLibraryFile, RegistersItsClassesInTheFolderOfTheEnvironment) {
  constexpr const char* kVariable = "KD4410_REGISTRATION_DIR";
  const char* before = std::getenv(kVariable);
  const std::string kept = before == nullptr ? "" : before;
  const FreshLibrary library;
  const TemporaryFolder folder;
  const auto registerServer = library.EntryPoint<DllRegisterServerFunction>("DllRegisterServer");
  const auto unregisterServer = library.EntryPoint<DllUnregisterServerFunction>("DllUnregisterServer");

  const std::string deep = folder.PathOf("not/yet/there");
  ::setenv(kVariable, deep.c_str(), 1);
  EXPECT_EQ(unregisterServer(), 0) << "nothing to remove";
  for (int i = 0; i < 2; ++i) EXPECT_EQ(registerServer(), 0);
  std::string expected;
  for (const char* name : kClasses) expected += std::string(name) + "\t" + library.Path() + "\n";
  const std::string file = deep + "/kd4410tier.registration";
  EXPECT_EQ(ContentOf(file), expected);
  EXPECT_EQ(unregisterServer(), 0);
  EXPECT_FALSE(std::filesystem::exists(file));

  ::setenv(kVariable, folder.Write("file", "").append("/below").c_str(), 1);
  EXPECT_EQ(registerServer(), 75);
  kept.empty() ? ::unsetenv(kVariable) : ::setenv(kVariable, kept.c_str(), 1);
}
}  // namespace
