#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshLibrary.h"
#include "tests/support/TierFixture.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

template <typename Out, typename Object, typename Operation>
Out Get(const std::shared_ptr<Object>& object, Operation operation) {
  Out out{};
  EXPECT_TRUE(((*object).*operation)(out).Ok());
  return out;
}

std::string ContentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  return content.str();
}

/// A tier of the built plug-in in a process of its own, so to speak, on versions and a platform that the test
/// describes.
class TierLifecycle : public testing::Test {
 protected:
  TierLifecycle() {
    newer.siblings = older.siblings = {&older, &newer};
    newer.current = "0094";
    newer.provider = Store("KD4410.0094", 5);
    older.provider = Store("KD4410.0093", 1);
    services.versions = {&newer};
    for (const char* name : {"KD4410_UI_U.dat", "KD4410_UI_D.dat", "KD4410_UI_C.dat"}) {
      data.Write(name, ContentOf(std::string(DATA_FOLDER) + "/" + name));
    }
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
  bool Initialize(const std::shared_ptr<Itier>& any, std::string_view name = "KD4410") {
    services.created = 0;
    Boolean done = kTrue;
    EXPECT_TRUE(any->Initialize(name, validatorHost, messenger, Variant(), done).Ok());
    return done != kFalse;
  }
  bool Initialize() { return Initialize(tier); }
  std::vector<bool> ChildrenOf(const std::shared_ptr<Itier>& any) {
    return {Get<std::shared_ptr<IproviderOwner>>(any, &Itier::ProviderOwner) != nullptr,
            Get<std::shared_ptr<ItierSchema>>(any, &Itier::Schema) != nullptr,
            Get<std::shared_ptr<ItierUserInterface>>(any, &Itier::UserInterface) != nullptr,
            Get<std::shared_ptr<ItierValidator>>(any, &Itier::Validator) != nullptr};
  }
  std::string Key() { return Get<std::string>(tier, &Itier::TierKey); }
  std::int32_t CurrentProvider(std::shared_ptr<Iprovider>& out) {
    return NumberOf(tier->CurrentProvider(out));
  }
  std::ptrdiff_t Calls(std::string_view name) const { return std::ranges::count(services.calls, name); }

  FakeVersion older{"0093.KD4410"}, newer{"0094.KD4410", "0093.KD4410"};
  FakeServices services;
  const TemporaryFolder data;
  const std::shared_ptr<ScriptedMessenger> messenger = std::make_shared<ScriptedMessenger>();
  const std::shared_ptr<ValidatorHost> validatorHost = std::make_shared<ValidatorHost>("Caption");
  const FreshLibrary library;  // goes after the tier
  std::shared_ptr<Itier> tier;
};

TEST_F(TierLifecycle, BeforeInitializeThereIsNothing) {
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(false, false, false, false));
  EXPECT_EQ(Get<std::shared_ptr<Imessenger>>(tier, &Itier::Messenger), nullptr);
  EXPECT_EQ(Key(), "");
  std::shared_ptr<Iprovider> provider;
  EXPECT_NE(CurrentProvider(provider), 0);
  Boolean active = kFalse;
  EXPECT_FALSE(tier->Activate(active).Ok());
  EXPECT_EQ(active, kFalse);
}

TEST_F(TierLifecycle, InitializeFindsTheVersionsFirstAndThenReadsTheFilesOnce) {
  EXPECT_TRUE(Initialize());
  EXPECT_THAT(services.calls, ElementsAre("CreateProvInfo", "ApplicationFolder"));
  EXPECT_THAT(newer.loaded, ElementsAre("KD4410/KD4410/"));
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(true, true, true, true));
  EXPECT_EQ(Get<std::shared_ptr<Imessenger>>(tier, &Itier::Messenger), messenger);
  EXPECT_EQ(Get<std::shared_ptr<IvalidatorHost>>(
                Get<std::shared_ptr<ItierValidator>>(tier, &Itier::Validator), &ItierValidator::Validator),
            validatorHost);
  EXPECT_EQ(Get<std::string>(tier, &Itier::TierName), "KD4410");
  EXPECT_EQ(Key(), "0094.KD4410");
  EXPECT_NE(Get<std::shared_ptr<Iterminator>>(tier, &Itier::Terminator), nullptr);

  std::filesystem::remove_all(data.Path());
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Get<Boolean>(tier, &Itier::Activate), kTrue);
  EXPECT_EQ(Calls("ApplicationFolder"), 1);
  EXPECT_TRUE(Initialize()) << "the files are read once in the life of the process";
  EXPECT_THAT(services.boxes, IsEmpty());
}

TEST_F(TierLifecycle, WithoutServicesNothingBehindTheSchemaIsCreated) {
  library.SetServices(nullptr);
  EXPECT_FALSE(Initialize());
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(true, true, false, false));
  EXPECT_EQ(Get<std::string>(tier, &Itier::TierName), "KD4410");
  EXPECT_TRUE(tier->Terminate().Ok());
}

TEST_F(TierLifecycle, AVersionThatCanNotBeLoadedEndsInitialize) {
  newer.loadFault = Fault{77, "Host", "no disk"};
  EXPECT_FALSE(Initialize());
  EXPECT_THAT(services.calls, ElementsAre("CreateProvInfo", "ShowMessageBox", "RaiseEvent 1"));
  EXPECT_THAT(services.boxes[0].text, HasSubstr("no disk"));
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(true, true, false, false));
}

TEST_F(TierLifecycle, AFileThatCanNotBeReadEndsInitializeAndIsTriedAgain) {
  std::filesystem::remove(data.PathOf("KD4410_UI_C.dat"));
  EXPECT_FALSE(Initialize());
  EXPECT_THAT(services.calls,
              ElementsAre("CreateProvInfo", "ApplicationFolder", "ShowMessageBox", "RaiseEvent 1"));
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(true, true, true, false));
  EXPECT_EQ(Key(), "0094.KD4410");
  data.Write("KD4410_UI_C.dat", "CTCSSID\tCTCSSVALUE\n1\t67.0\n");
  EXPECT_TRUE(Initialize());
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(true, true, true, true));
}

TEST_F(TierLifecycle, WithoutOpenPersonalityTheKeyStaysEmptyUntilItIsSet) {
  newer.current = "";
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(Key(), "");
  std::shared_ptr<Iprovider> provider;
  EXPECT_EQ(CurrentProvider(provider), 5);
  EXPECT_THAT(services.boxes, IsEmpty());  // the error goes to the caller
  EXPECT_TRUE(tier->SetTierKey("0093.KD4410").Ok());
  EXPECT_EQ(CurrentProvider(provider), 0);
  EXPECT_EQ(provider, older.provider);
}

TEST_F(TierLifecycle, TheKeyKeepsItsVersionUntilItChangesAndItsProviderNever) {
  EXPECT_TRUE(Initialize());
  std::shared_ptr<Iprovider> provider;
  EXPECT_EQ(CurrentProvider(provider), 0);
  EXPECT_EQ(provider, newer.provider);
  const int listings = newer.siblingCalls;
  EXPECT_TRUE(tier->SetTierKey("0094.KD4410").Ok());
  newer.provider = Store("KD4410.0094", 0);
  EXPECT_EQ(CurrentProvider(provider), 0);
  EXPECT_EQ(provider, newer.provider);
  EXPECT_EQ(newer.siblingCalls, listings);
  EXPECT_EQ(newer.providerCalls, 2);

  EXPECT_TRUE(tier->SetTierKey("0094.kd4410").Ok());  // another text, though the same key
  EXPECT_EQ(CurrentProvider(provider), 0);
  EXPECT_GT(newer.siblingCalls, listings);
  EXPECT_TRUE(tier->SetTierKey("0001.KD4410").Ok());
  std::shared_ptr<IprovInfo> version;
  EXPECT_EQ(NumberOf(tier->CurrentProvInfo(version)), 5);
  EXPECT_EQ(version, nullptr);
  EXPECT_THAT(services.boxes, IsEmpty());
}

TEST_F(TierLifecycle, TerminateDropsChildrenAndMessengerAndKeepsTheNames) {
  EXPECT_TRUE(Initialize());
  std::shared_ptr<Iprovider> provider;
  EXPECT_EQ(CurrentProvider(provider), 0);
  EXPECT_TRUE(tier->Terminate().Ok());
  EXPECT_THAT(ChildrenOf(tier), ElementsAre(false, false, false, false));
  EXPECT_EQ(Get<std::shared_ptr<Imessenger>>(tier, &Itier::Messenger), nullptr);
  EXPECT_EQ(messenger.use_count(), 1);
  EXPECT_EQ(Key(), "0094.KD4410");
  EXPECT_EQ(Get<std::string>(tier, &Itier::TierName), "KD4410");
  EXPECT_EQ(CurrentProvider(provider), 0) << "the version found stays";
  EXPECT_TRUE(tier->SetTierName("other").Ok());
  EXPECT_EQ(Get<std::string>(tier, &Itier::TierName), "other");
  EXPECT_TRUE(Initialize());
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
    const auto owner = Get<std::shared_ptr<IproviderOwner>>(tier, &Itier::ProviderOwner);
    EXPECT_TRUE(owner->GetCurrentFrequencyRanges(limit, ignored, ignored, ignored, steps).Ok());
    return limit;
  };
  const auto validator = Get<std::shared_ptr<ItierValidator>>(tier, &Itier::Validator);
  EXPECT_EQ(lowest(), 136'000'000);
  EXPECT_EQ(Get<std::shared_ptr<IvalidatorHost>>(validator, &ItierValidator::Validator), otherHost);
  EXPECT_EQ(Get<Boolean>(tier, &Itier::Activate), kTrue);
  EXPECT_EQ(lowest(), 400'000'000);
  EXPECT_EQ(Get<std::shared_ptr<IvalidatorHost>>(validator, &ItierValidator::Validator), validatorHost);
}

TEST_F(TierLifecycle, TerminateApplicationRaisesTheEventOfTheTier) {
  const auto terminator = Get<std::shared_ptr<Iterminator>>(tier, &Itier::Terminator);
  EXPECT_TRUE(terminator->TerminateApplication().Ok());
  EXPECT_THAT(services.calls, ElementsAre("RaiseEvent 1"));
  library.SetServices(nullptr);
  EXPECT_TRUE(terminator->TerminateApplication().Ok());  // the event is lost
}

TEST(TierLibraryFile, ExportsItsFourEntryPointsAndNothingElse) {
  std::unique_ptr<FILE, int (*)(FILE*)> symbols(
      ::popen("nm -D --defined-only --format=posix '" TIER_LIBRARY "' | cut -d' ' -f1 | sort", "r"),
      ::pclose);
  ASSERT_NE(symbols, nullptr);
  std::string names;
  for (int c = std::fgetc(symbols.get()); c != EOF; c = std::fgetc(symbols.get()))
    names += static_cast<char>(c);
  EXPECT_EQ(names, "DllCanUnloadNow\nDllGetClassObject\nDllRegisterServer\nDllUnregisterServer\n");
  const FreshLibrary library;
  EXPECT_NE(library.Symbol("DllGetClassObject"), nullptr);
  EXPECT_EQ(library.Symbol("_ZN13clsKD4410TierD1Ev"), nullptr);
}

TEST(TierLibraryFile, EachFactoryMakesItsOwnClassAlone) {
  const FreshLibrary library;
  const auto created = [&](const char* className) {
    const auto factory = library.Factory(className);
    std::shared_ptr<Itier> tier;
    std::shared_ptr<ItierSchema> schema;
    std::shared_ptr<ItierUserInterface> userInterface;
    std::shared_ptr<IproviderOwner> owner;
    std::shared_ptr<ItierValidator> validator;
    return std::vector{NumberOf(factory->CreateTier(tier)), NumberOf(factory->CreateSchema(schema)),
                       NumberOf(factory->CreateUserInterface(userInterface)),
                       NumberOf(factory->CreateProviderOwner(owner)),
                       NumberOf(factory->CreateValidator(validator))};
  };
  EXPECT_THAT(created("clsKD4410Tier"), ElementsAre(0, 430, 430, 430, 430));
  EXPECT_THAT(created("clsSchema"), ElementsAre(430, 0, 430, 430, 430));
  EXPECT_THAT(created("CLSTIERUI"), ElementsAre(430, 430, 0, 430, 430));
  EXPECT_THAT(created("clsKD4410ProvOwn"), ElementsAre(430, 430, 430, 0, 430));
  EXPECT_THAT(created("cKD4410TierValidator"), ElementsAre(430, 430, 430, 430, 0));
  const auto getClassObject = library.EntryPoint<DllGetClassObjectFunction>("DllGetClassObject");
  for (const char* unknown : {"", "colProvInfo", "clsKD4410Tier ", "clsKD4410"}) {
    std::shared_ptr<IclassFactory> factory;
    EXPECT_EQ(getClassObject(unknown, factory), 5) << unknown;
    EXPECT_EQ(factory, nullptr);
  }
}

TEST(TierLibraryFile, MayBeUnloadedWhenNoObjectLives) {
  const FreshLibrary library;
  EXPECT_TRUE(library.CanUnloadNow());
  auto factory = library.Factory();
  EXPECT_FALSE(library.CanUnloadNow());
  std::shared_ptr<Itier> tier;
  EXPECT_TRUE(factory->CreateTier(tier).Ok());
  factory.reset();
  EXPECT_FALSE(library.CanUnloadNow());
  tier.reset();
  EXPECT_TRUE(library.CanUnloadNow());

  std::shared_ptr<ItierSchema> schema;
  EXPECT_TRUE(library.Factory("clsSchema")->CreateSchema(schema).Ok());
  std::shared_ptr<IcolProvInfo> list;
  EXPECT_TRUE(schema->TierList(list).Ok());
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
  const std::string file = deep + "/kd4410tier.registration";
  std::string expected;
  for (const char* name :
       {"clsKD4410Tier", "clsSchema", "clsTierUI", "clsKD4410ProvOwn", "cKD4410TierValidator"}) {
    expected += std::string(name) + "\t" + library.Path() + "\n";
  }
  EXPECT_EQ(ContentOf(file), expected);
  EXPECT_EQ(unregisterServer(), 0);
  EXPECT_FALSE(std::filesystem::exists(file));

  ::setenv(kVariable, folder.Write("file", "").append("/below").c_str(), 1);
  EXPECT_EQ(registerServer(), 75);
  kept.empty() ? ::unsetenv(kVariable) : ::setenv(kVariable, kept.c_str(), 1);
}
}  // namespace
