#include "workbench/host/HostObjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "tests/support/BuiltFiles.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/host/TierLoader.h"

namespace {
using testing::HasSubstr;

std::string KeysOf(IprovInfo& info) {
  std::string key, base;
  EXPECT_TRUE(info.Key(key).Ok());
  EXPECT_TRUE(info.BaseKey(base).Ok());
  return key + "<" + base;
}

TEST(ProvInfo, LoadsTheVersionOfTheOpenPersonalityElseTheLatestOfTheTier) {
  const auto personality = std::make_shared<OpenPersonality>(ProjectSchemas());
  ProvInfo info(personality);
  std::string current;
  Boolean loaded = kFalse;
  std::shared_ptr<Iprovider> provider;
  EXPECT_FALSE(info.Provider(provider).Ok());  // empty until it is loaded
  ASSERT_TRUE(info.Load("KD4410", "KD4410", "", current, loaded).Ok());
  EXPECT_EQ(current, "");
  EXPECT_EQ(KeysOf(info), "0094.KD4410<0093.KD4410");

  const auto open = std::make_shared<Provider>(ProjectSchemas()->At("KE2210 Rx.0088"));
  personality->Open(open);
  ASSERT_TRUE(info.Load("KD4410", "KD4410", "", current, loaded).Ok());
  EXPECT_EQ(current, "0088");
  EXPECT_EQ(KeysOf(info), "0088.KE2210 Rx<0087.KE2210 Rx");
  ASSERT_TRUE(info.Provider(provider).Ok());
  EXPECT_EQ(provider, open);
}

TEST(TierLibrary, OutlivesItsHolderWhileItsObjectsAreInUse) {
  const auto personality = std::make_shared<OpenPersonality>(ProjectSchemas());
  auto library = TierLibrary::Load(kTierLibrary);
  EXPECT_TRUE(library->CanUnloadNow());
  const auto tier = library->CreateTier(std::make_shared<ApplicationServices>(personality, DATA_FOLDER));
  EXPECT_FALSE(library->CanUnloadNow());
  library.reset();
  EXPECT_TRUE(tier->Terminate().Ok());
  TierLibrary::Load(kTierLibrary)->WithdrawServices();
}

TEST(TierLibrary, AFileThatIsNoTierIsRefused) {
  const TemporaryFolder folder;
  for (const std::string& path : {folder.PathOf("missing.so"), folder.Write("text.so", "no library"),
                                  std::string("libdl.so.2")}) {  // not looked for in the system's folders
    EXPECT_THAT(RefusalOf([&] { TierLibrary::Load(path); }), HasSubstr(path + ": load: "));
  }
}

TEST(TierLibrary, IsFoundByChoiceThenByRegistrationThenBesideTheExecutable) {
  const TemporaryFolder folder;
  ::setenv("KD4410_REGISTRATION_DIR", folder.Path().c_str(), 1);
  EXPECT_EQ(FindTierLibrary("chosen.so"), "chosen.so");
  TierLibrary::Load(kTierLibrary)->Register();
  EXPECT_TRUE(std::filesystem::equivalent(FindTierLibrary(""), kTierLibrary));
  TierLibrary::Load(kTierLibrary)->Unregister();
  EXPECT_THAT(FindTierLibrary(""), HasSubstr("/kd4410/libkd4410tier.so"));
  folder.Write("kd4410tier.registration", "clsSchema\t/a.so\nno tab\n");
  EXPECT_THROW(FindTierLibrary(""), FileError);
  ::setenv("KD4410_REGISTRATION_DIR", folder.Write("file", "").c_str(), 1);
  EXPECT_THROW(TierLibrary::Load(kTierLibrary)->Register(), FileError);
  ::unsetenv("KD4410_REGISTRATION_DIR");
}
}  // namespace
