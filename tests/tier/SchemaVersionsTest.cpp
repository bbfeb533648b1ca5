#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tier/HostServices.h"
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

  bool Initialize(const std::vector<std::string>& versions = {"KD4410"}) {
    services.created = 0;
    Boolean done = kFalse;
    status = NumberOf(schema.Initialize(nullptr, versions, currentVersion, done));
    return done != kFalse;
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
  bool PathOfKey(std::string_view key) {
    Boolean found = kFalse;
    status = NumberOf(schema.GetDBVersionPathForTier(key, path, found));
    return found != kFalse;
  }
  bool PathOfVersion(std::string_view tierName, std::string_view version) {
    Boolean found = kTrue;
    status = NumberOf(schema.GetDBVersionPathForTierAndVersion(tierName, version, path, found));
    return found != kFalse;
  }
  std::string Latest(std::string_view tierName, std::string_view version) {
    std::string key = "untouched";
    status = NumberOf(schema.GetLatestTierForTierNameAndVersion(tierName, version, key));
    return key;
  }
  std::string Menu() {
    std::string menu;
    EXPECT_TRUE(schema.TierMenuList(menu).Ok());
    return menu;
  }

  FakeVersion oldest{"0029.KD4410"}, middle{"0053.KD4410", "0029.KD4410"},
      newest{"0054.KD4410", "0053.KD4410"};
  FakeServices services;
  clsSchema schema;
  std::string currentVersion;
  std::vector<std::string> path{"left over"};
  std::int32_t status = 0;
};

TEST_F(SchemaVersions, InitializeLetsTheHostLoadEachEntry) {
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(currentVersion, "0054");
  EXPECT_THAT(newest.loaded, ElementsAre("KD4410/KD4410/"));
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(ListedKeys().size(), 3U) << "the versions found before are gone";
}

TEST_F(SchemaVersions, InitializeIsFalseWhenTheHostCreatesNoVersion) {
  services.versions.clear();
  EXPECT_FALSE(Initialize());
  EXPECT_EQ(status, 0);
  HostServices::Set(nullptr);
  EXPECT_FALSE(Initialize());
  EXPECT_EQ(status, 0);
  EXPECT_THAT(services.boxes, IsEmpty());
}

TEST_F(SchemaVersions, AFailureOfTheHostLeavesNoAnswer) {
  newest.loadFault = Fault{77, "Host", "no disk"};
  EXPECT_FALSE(Initialize());
  EXPECT_EQ(status, 77);
}

TEST_F(SchemaVersions, TwoEntriesOfOneKeyAreADoubleKey) {
  services.versions = {&newest, &newest};
  EXPECT_FALSE(Initialize({"KD4410", "KD4410"}));
  EXPECT_EQ(status, 457);
}

TEST_F(SchemaVersions, TheMenuHoldsThreeFieldsOfEachVersionThatShows) {
  FakeVersion hidden{"0001.x"}, blank;
  hidden.inMenu = false;
  blank.displayText = "";
  services.versions = {&hidden, &newest, &blank, &oldest};
  EXPECT_TRUE(Initialize({"a", "b", "c", "d"}));
  EXPECT_EQ(Menu(),
            "0053.KD4410|text of 0054.KD4410|0054.KD4410||||"
            "|text of 0029.KD4410|0029.KD4410");
  services.versions = {&blank, &newest};
  EXPECT_TRUE(Initialize({"a", "b"}));
  EXPECT_EQ(Menu(), "|||0053.KD4410|text of 0054.KD4410|0054.KD4410");
  services.versions = {&hidden};
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(Menu(), "");
}

TEST_F(SchemaVersions, TheTierListHoldsAllSiblingsAndAVersionThatIsNotAmongThem) {
  EXPECT_TRUE(Initialize());
  EXPECT_THAT(ListedKeys(), ElementsAre("0054.KD4410", "0029.KD4410", "0053.KD4410"));
  newest.siblings = {&oldest};
  EXPECT_THAT(ListedKeys(), ElementsAre("0054.KD4410", "0029.KD4410"));
  FakeVersion twin{"0029.kd4410"};
  newest.siblings = {&newest, &oldest, &twin};
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
  middle.siblings = {&oldest, &oldest};
  EXPECT_FALSE(PathOfKey("0053.KD4410"));
  EXPECT_EQ(status, 457);
}

TEST_F(SchemaVersions, ThePathOfAVersionFollowsTheBaseKeys) {
  EXPECT_TRUE(Initialize());
  EXPECT_TRUE(PathOfVersion("KD4410", "0054"));
  EXPECT_THAT(path, ElementsAre("0054.KD4410", "0053.KD4410", "0029.KD4410"));
  EXPECT_TRUE(PathOfVersion("KD4410", "0029"));
  EXPECT_THAT(path, ElementsAre("0029.KD4410"));
  EXPECT_FALSE(PathOfVersion("KD4410", "0099"));
  EXPECT_EQ(status, 0);
  EXPECT_THAT(path, IsEmpty());
  EXPECT_THAT(services.boxes, IsEmpty());

  middle.baseKey = "0029.kd4410";  // exactly, so none of them
  EXPECT_TRUE(PathOfVersion("KD4410", "0054"));
  EXPECT_THAT(path, ElementsAre("0054.KD4410", "0053.KD4410"));
}

TEST_F(SchemaVersions, AWalkEndsWhereItWouldComeRoundAgain) {
  oldest.baseKey = "0054.KD4410";
  EXPECT_TRUE(Initialize());
  EXPECT_TRUE(PathOfVersion("KD4410", "0053"));
  EXPECT_THAT(path, ElementsAre("0053.KD4410", "0029.KD4410", "0054.KD4410"));
  EXPECT_EQ(Latest("KD4410", "0053"), "0054.KD4410");
  oldest.baseKey = "0029.KD4410";
  EXPECT_EQ(Latest("KD4410", "0054"), "0029.KD4410");
}

TEST_F(SchemaVersions, TheLatestIsWhereTheBaseKeysEnd) {
  EXPECT_EQ(Latest("KD4410", "0054"), "");  // nothing is known yet
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(Initialize());
  EXPECT_EQ(Latest("KD4410", "0054"), "0029.KD4410");
  middle.baseKey = "0028.KD4410";
  EXPECT_EQ(Latest("KD4410", "0054"), "0053.KD4410");
  EXPECT_EQ(Latest("KD4410", "0099"), "untouched");
  EXPECT_EQ(status, 5);
}

TEST(ColProvInfo, ATextIsAKeyANumberAnIndex) {
  FakeVersion a, b, c;
  colProvInfo list;
  std::int32_t count = 0;
  std::shared_ptr<IprovInfo> found;
  const auto item = [&](const Variant& place) {
    found = nullptr;
    return NumberOf(list.Item(place, found));
  };
  EXPECT_TRUE(list.Add(a.Handle(), "Key").Ok());
  EXPECT_TRUE(list.Add(b.Handle(), "").Ok());
  EXPECT_TRUE(list.Add(c.Handle(), "1").Ok());
  EXPECT_EQ(NumberOf(list.Add(b.Handle(), "kEY")), 457);
  EXPECT_EQ(item("key"), 0);
  EXPECT_EQ(found.get(), &a);
  EXPECT_EQ(item(2.0), 0);
  EXPECT_EQ(found.get(), &b);
  EXPECT_EQ(item("1"), 0);
  EXPECT_EQ(found.get(), &c);
  for (const Variant& key : {Variant("2"), Variant("")}) EXPECT_EQ(item(key), 5);
  for (const Variant& index : {Variant(0), Variant(4), Variant(-1)}) EXPECT_EQ(item(index), 9);
  Boolean exists = kFalse;
  EXPECT_TRUE(list.Exists("KEY", exists).Ok());
  EXPECT_EQ(exists, kTrue);
  exists = kFalse;
  EXPECT_EQ(NumberOf(list.Exists("other", exists)), 5);
  EXPECT_EQ(exists, kFalse);
  EXPECT_TRUE(list.Remove(1).Ok());
  EXPECT_EQ(NumberOf(list.Remove("Key")), 5);
  EXPECT_TRUE(list.Remove("1").Ok());
  EXPECT_TRUE(list.Count(count).Ok());
  EXPECT_EQ(count, 1);
}
}  // namespace
