#include "platform/KeyedCollection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ErrorNumberOf.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> Values(const KeyedCollection<int>& collection) {
  return {collection.begin(), collection.end()};
}

TEST(KeyedCollection, FindsByKeyWhateverItsCaseAndByIndexFromOne) {
  KeyedCollection<int> collection;
  collection.Add(10, "Ten");
  collection.Add(20);
  collection.Add(30, "2");
  EXPECT_EQ(collection.Item("tEN"), 10);
  EXPECT_EQ(collection.Item(2), 20);
  EXPECT_EQ(collection.Item("2"), 30);  // a text is a key, never an index
  EXPECT_TRUE(collection.Exists("TEN"));
  EXPECT_FALSE(collection.Exists(""));
  EXPECT_EQ(ErrorNumberOf([&] { collection.Item("20"); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { collection.Item(""); }), 5);
  for (const int index : {0, 4, -1}) EXPECT_EQ(ErrorNumberOf([&] { collection.Item(index); }), 9) << index;
}

TEST(KeyedCollection, RefusesADoubleKeyAndStaysAsItWas) {
  KeyedCollection<int> collection;
  collection.Add(1, "key");
  EXPECT_EQ(ErrorNumberOf([&] { collection.Add(2, "KEY"); }), 457);
  EXPECT_THAT(Values(collection), ElementsAre(1));
  collection.Add(3);
  collection.Add(4);  // no key is no double
  EXPECT_THAT(Values(collection), ElementsAre(1, 3, 4));
}

TEST(KeyedCollection, KeysFollowTheirElementsAfterARemoval) {
  KeyedCollection<int> collection;
  for (const auto& [value, key] : {std::pair{1, "a"}, {2, "b"}, {3, "c"}, {4, "d"}})
    collection.Add(value, key);
  collection.Remove("B");
  collection.Remove(1);
  EXPECT_THAT(Values(collection), ElementsAre(3, 4));
  EXPECT_EQ(collection.Item("c"), 3);
  EXPECT_EQ(collection.Item("d"), 4);
  EXPECT_FALSE(collection.Exists("a"));
  EXPECT_EQ(ErrorNumberOf([&] { collection.Remove("a"); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { collection.Remove(3); }), 9);
  collection.Add(5, "a");
  EXPECT_EQ(collection.Item("a"), 5);
  collection.RemoveAll();
  EXPECT_THAT(Values(collection), IsEmpty());
  EXPECT_FALSE(collection.Exists("c"));
}
}  // namespace
