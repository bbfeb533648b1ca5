#include <gmock/gmock.h>

#include "common/HostServices.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tier/clsSchema.h"
#include "tier/colProvInfo.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

/// Three versions, each the base of the next, that know each other.
class SchemaVersions : public testing::Test {
 protected:
  SchemaVersions() {
    newest.siblings = middle.siblings = oldest.siblings = {&newest, &oldest, &middle};
    services.versions = {&newest};
    newest.current = "0054";
    HostServices::Set(services.Handle());
  }
  ~SchemaVersions() override { HostServices::Set(nullptr); }

  /// Whether the operation found what it was asked for; its status is kept.
  template <typename Operation, typename... Args>
  bool Ask(Operation operation, Args&&... args) {
    Boolean found = kTrue;
    status = NumberOf((schema.*operation)(args..., found));
    return status == 0 && found != kFalse;
  }
  bool Initialize(const std::vector<std::string>& versions = {"KD4410"}) {
    services.created = 0;
    return Ask(&clsSchema::Initialize, nullptr, versions, currentVersion);
  }
  std::vector<std::string> ListedKeys() {
    std::shared_ptr<IcolProvInfo> list;
    status = NumberOf(schema.TierList(list));
    std::vector<std::shared_ptr<IprovInfo>> versions;
    EXPECT_TRUE(list == nullptr || list->NewEnum(versions).Ok());
    std::vector<std::string> keys(versions.size());
    for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_TRUE(versions[i]->Key(keys[i]).Ok());
    return keys;
  }
  bool PathOfKey(std::string_view key) { return Ask(&clsSchema::GetDBVersionPathForTier, key, path); }
  bool PathOfVersion(std::string_view version) {
    return Ask(&clsSchema::GetDBVersionPathForTierAndVersion, "KD4410", version, path);
  }
  std::string Latest(std::string_view version) {
    std::string key = "untouched";
    status = NumberOf(schema.GetLatestTierForTierNameAndVersion("KD4410", version, key));
    return key;
  }

  FakeVersion oldest{"0029.KD4410"}, middle{"0053.KD4410", "0029.KD4410"},
      newest{"0054.KD4410", "0053.KD4410"};
  FakeServices services;
  clsSchema schema;
  std::string currentVersion;
  std::vector<std::string> path{"left over"};
  std::int32_t status = 0;
};

TEST_F(SchemaVersions, InitializeLetsTheHostLoadEachEntryAndRefusesADoubleKey) {
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(currentVersion, "0054");
  EXPECT_THAT(newest.loaded, ElementsAre("KD4410/KD4410/"));
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(ListedKeys().size(), 3U) << "the versions found before are gone";
  newest.loadFault = Fault{77, "Host", "no disk"};
  EXPECT_FALSE(Initialize());
  EXPECT_EQ(status, 77);
  newest.loadFault.reset();
  services.versions = {&newest, &newest};
  EXPECT_FALSE(Initialize({"KD4410", "KD4410"}));
  EXPECT_EQ(status, 457);
  services.versions.clear();
  EXPECT_FALSE(Initialize());
  EXPECT_EQ(status, 0);
}

TEST_F(SchemaVersions, TheMenuHoldsThreeFieldsOfEachVersionThatShows) {
  FakeVersion hidden{"0001.x"}, blank;
  hidden.inMenu = false;
  blank.displayText = "";
  services.versions = {&hidden, &newest, &blank, &oldest};
  EXPECT_TRUE(Initialize({"a", "b", "c", "d"}));
  std::string menu;
  EXPECT_TRUE(schema.TierMenuList(menu).Ok());
  EXPECT_EQ(menu,
            "0053.KD4410|text of 0054.KD4410|0054.KD4410||||"
            "|text of 0029.KD4410|0029.KD4410");
}

TEST_F(SchemaVersions, TheTierListHoldsAllSiblingsAndAVersionThatIsNotAmongThem) {
  EXPECT_TRUE(Initialize());
  EXPECT_THAT(ListedKeys(), ElementsAre("0054.KD4410", "0029.KD4410", "0053.KD4410"));
  newest.siblings = {&oldest};
  EXPECT_THAT(ListedKeys(), ElementsAre("0054.KD4410", "0029.KD4410"));
  newest.siblings = {&oldest, &oldest};
  EXPECT_THAT(ListedKeys(), IsEmpty());
  EXPECT_EQ(status, 457);
}

TEST_F(SchemaVersions, ThePathOfAKeyIsAllItsSiblingsSorted) {
  EXPECT_TRUE(Initialize());
  EXPECT_TRUE(PathOfKey("0053.kd4410"));
  EXPECT_THAT(path, ElementsAre("0029.KD4410", "0053.KD4410", "0054.KD4410"));
  middle.siblings = {&oldest};
  EXPECT_FALSE(PathOfKey("0053.KD4410"));
  EXPECT_EQ(status, 0);
  EXPECT_THAT(path, ElementsAre("0029.KD4410"));
  EXPECT_FALSE(PathOfKey("0001.KD4410"));
  EXPECT_EQ(status, 5);
}

TEST_F(SchemaVersions, ThePathOfAVersionFollowsTheBaseKeysAndTheLatestIsWhereTheyEnd) {
  EXPECT_EQ(Latest("0054"), "");  // nothing is known yet
  EXPECT_TRUE(Initialize());
  EXPECT_TRUE(PathOfVersion("0054"));
  EXPECT_THAT(path, ElementsAre("0054.KD4410", "0053.KD4410", "0029.KD4410"));
  EXPECT_EQ(Latest("0054"), "0029.KD4410");
  EXPECT_FALSE(PathOfVersion("0099"));
  EXPECT_EQ(status, 0);
  EXPECT_THAT(path, IsEmpty());
  EXPECT_EQ(Latest("0099"), "untouched");
  EXPECT_EQ(status, 5);

  middle.baseKey = "0029.kd4410";  // exactly, so none of them
  EXPECT_TRUE(PathOfVersion("0054"));
  EXPECT_THAT(path, ElementsAre("0054.KD4410", "0053.KD4410"));
  EXPECT_EQ(Latest("0054"), "0053.KD4410");
}

TEST_F(SchemaVersions, AWalkEndsWhereItWouldComeRoundAgain) {
  oldest.baseKey = "0054.KD4410";
  EXPECT_TRUE(Initialize());
  EXPECT_TRUE(PathOfVersion("0053"));
  EXPECT_THAT(path, ElementsAre("0053.KD4410", "0029.KD4410", "0054.KD4410"));
  EXPECT_EQ(Latest("0053"), "0054.KD4410");
  oldest.baseKey = "0029.KD4410";
  EXPECT_EQ(Latest("0054"), "0029.KD4410");
}

TEST(ColProvInfo, ATextIsAKeyANumberAnIndex) {
  FakeVersion a, b;
  colProvInfo list;
  EXPECT_TRUE(list.Add(a.Handle(), "2").Ok());
  EXPECT_TRUE(list.Add(b.Handle(), "Key").Ok());
  std::shared_ptr<IprovInfo> found;
  const std::pair<Variant, IprovInfo*> rows[] = {{"2", &a}, {"kEY", &b}, {1.0, &a}, {2, &b}};
  for (const auto& [place, version] : rows) {
    EXPECT_TRUE(list.Item(place, found).Ok());
    EXPECT_EQ(found.get(), version);
  }
  for (const auto& [place, number] : {std::pair{Variant("1"), 5}, {"", 5}, {0, 9}, {3, 9}})
    EXPECT_EQ(NumberOf(list.Item(place, found)), number);
  Boolean exists = kFalse;
  EXPECT_EQ(NumberOf(list.Exists("other", exists)), 5);
  EXPECT_TRUE(list.Exists("KEY", exists).Ok());
  EXPECT_EQ(exists, kTrue);
}
}  // namespace
