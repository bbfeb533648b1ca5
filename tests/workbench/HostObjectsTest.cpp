#include "workbench/HostObjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "platform/Conversions.h"
#include "tests/support/Temporary.h"
#include "tests/support/TierFixture.h"
#include "workbench/FileError.h"
#include "workbench/TierLoader.h"

namespace {
using testing::HasSubstr;

std::string KeyOf(IprovInfo& info) {
  std::string key;
  EXPECT_TRUE(info.Key(key).Ok());
  return key;
}

std::string BaseKeyOf(IprovInfo& info) {
  std::string key = "untouched";
  EXPECT_TRUE(info.BaseKey(key).Ok());
  return key;
}

/// Sets where registrations lie, for the life of this object.
class RegistrationFolder {
 public:
  RegistrationFolder() { ::setenv("KD4410_REGISTRATION_DIR", folder.Path().c_str(), 1); }
  ~RegistrationFolder() { ::unsetenv("KD4410_REGISTRATION_DIR"); }
  TemporaryFolder folder;
};

class HostVersions : public TierFixture {
 protected:
  HostVersions() : TierFixture("KE2210 Tx.0090") {}
};
}  // namespace

TEST(ProvInfo, EachVersionButTheOldestDerivesFromTheOneBefore) {
  const auto personality = std::make_shared<OpenPersonality>(ProjectSchemas());
  const struct {
    VersionName version;
    const char *key, *baseKey;
  } cases[] = {
      {{"KD4410", 29}, "0029.KD4410", ""},
      {{"KD4410", 81}, "0081.KD4410", "0054.KD4410"},
      {{"KD4410", 93}, "0093.KD4410", "0091.KD4410"},
      {{"KE2210 Rx", 87}, "0087.KE2210 Rx", ""},
      {{"KE2210 Tx", 94}, "0094.KE2210 Tx", "0093.KE2210 Tx"},
  };
  for (const auto& [version, key, baseKey] : cases) {
    ProvInfo info(personality, version);
    EXPECT_EQ(KeyOf(info), key);
    EXPECT_EQ(BaseKeyOf(info), baseKey) << key;
    std::vector<std::shared_ptr<IprovInfo>> siblings;
    ASSERT_TRUE(info.Siblings(siblings).Ok());
    std::vector<std::string> keys;
    for (const auto& sibling : siblings) keys.push_back(KeyOf(*sibling));
    EXPECT_THAT(keys, testing::Contains(key));
    EXPECT_EQ(keys.size(), SchemaFiles::VersionsOf(version.model).size());
  }
}

TEST(ProvInfo, LoadsTheVersionOfTheOpenPersonalityElseTheLatestOfTheTier) {
  const auto personality = std::make_shared<OpenPersonality>(ProjectSchemas());
  ProvInfo info(personality);
  std::string current = "untouched";
  Boolean loaded = kFalse;
  std::shared_ptr<Iprovider> provider;
  EXPECT_FALSE(info.Provider(provider).Ok());  // empty until it is loaded
  EXPECT_EQ(KeyOf(info), "");
  EXPECT_FALSE(info.Load("KD9999", "KD9999", "", current, loaded).Ok());

  ASSERT_TRUE(info.Load("KD4410", "KD4410", "", current, loaded).Ok());
  EXPECT_EQ(current, "");
  EXPECT_EQ(KeyOf(info), "0094.KD4410");

  const auto open = std::make_shared<Provider>(ProjectSchemas()->At("KE2210 Rx.0088"));
  personality->Open(open);
  ASSERT_TRUE(info.Load("KD4410", "KD4410", "", current, loaded).Ok());
  EXPECT_EQ(current, "0088");
  EXPECT_EQ(KeyOf(info), "0088.KE2210 Rx");
  ASSERT_TRUE(info.Provider(provider).Ok());
  EXPECT_EQ(provider, open);

  const auto other = personality->ProviderOf({"KE2210 Rx", 87});
  EXPECT_EQ(personality->ProviderOf({"KE2210 Rx", 87}), other);
  EXPECT_NE(other, open);
}

TEST_F(HostVersions, TheTierWorksOnTheOpenPersonality) {
  std::string key;
  std::shared_ptr<Iprovider> current;
  ASSERT_TRUE(Tier()->TierKey(key).Ok());
  EXPECT_EQ(key, "0090.KE2210 Tx");
  ASSERT_TRUE(Tier()->CurrentProvider(current).Ok());
  EXPECT_EQ(current, sharedProvider);
}

TEST(TierLibrary, IsLoadedThroughItsEntryPointsAndOutlivesItsHolder) {
  const auto personality = std::make_shared<OpenPersonality>(ProjectSchemas());
  const auto services = std::make_shared<ApplicationServices>(personality, DATA_FOLDER);
  auto library = TierLibrary::Load(TIER_LIBRARY);
  EXPECT_TRUE(library->CanUnloadNow());
  auto tier = library->CreateTier(services);
  EXPECT_FALSE(library->CanUnloadNow());
  library.reset();
  Boolean initialised = kFalse;
  ASSERT_TRUE(tier->Initialize("KD4410", std::make_shared<ValidatorHost>(),
                               std::make_shared<RecordingMessenger>(), Variant(), initialised)
                  .Ok());
  EXPECT_EQ(initialised, kTrue) << testing::PrintToString(services->BoxTexts());
  EXPECT_TRUE(tier->Terminate().Ok());
  tier.reset();
  TierLibrary::Load(TIER_LIBRARY)->WithdrawServices();
}

TEST(TierLibrary, AFileThatIsNoTierIsRefused) {
  const TemporaryFolder folder;
  const std::pair<std::string, const char*> cases[] = {
      {folder.PathOf("missing.so"), "missing.so: load: "},
      {folder.Write("text.so", "no library"), "text.so: load: "},
      {"libdl.so.2", "libdl.so.2: load: "},  // not looked for in the system's folders
  };
  for (const auto& [path, expected] : cases) {
    try {
      TierLibrary::Load(path);
      ADD_FAILURE() << path;
    } catch (const FileError& error) {
      EXPECT_THAT(error.what(), HasSubstr(expected));
    }
  }
}

TEST(TierLibrary, IsFoundByChoiceThenByRegistrationThenBesideTheExecutable) {
  const RegistrationFolder registrations;
  EXPECT_EQ(FindTierLibrary("chosen.so"), "chosen.so");
  EXPECT_THAT(FindTierLibrary(""), HasSubstr("/kd4410/libkd4410tier.so"));
  TierLibrary::Load(TIER_LIBRARY)->Register();
  EXPECT_TRUE(std::filesystem::equivalent(FindTierLibrary(""), TIER_LIBRARY));
  TierLibrary::Load(TIER_LIBRARY)->Unregister();
  EXPECT_THAT(FindTierLibrary(""), HasSubstr("/kd4410/libkd4410tier.so"));

  registrations.folder.Write("kd4410tier.registration", "clsSchema\t/a.so\nno tab\n");
  EXPECT_THROW(FindTierLibrary(""), FileError);
}

TEST(TierLibrary, ARegistrationThatCanNotBeWrittenIsAnError) {
  const RegistrationFolder registrations;
  ::setenv("KD4410_REGISTRATION_DIR", registrations.folder.Write("file", "").c_str(), 1);
  EXPECT_THROW(TierLibrary::Load(TIER_LIBRARY)->Register(), FileError);
}

TEST(DataFolder, MustExist) {
  EXPECT_EQ(FindDataFolder(DATA_FOLDER), DATA_FOLDER);
  EXPECT_THROW(FindDataFolder(std::string(DATA_FOLDER) + "/missing"), FileError);
}
