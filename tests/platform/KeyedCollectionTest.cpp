#include "platform/KeyedCollection.h"

#include <gmock/gmock.h>

#include "tests/support/ErrorNumberOf.h"

namespace {
using testing::ElementsAre;

TEST(KeyedCollection, FindsByKeyWhateverItsCaseAndByIndexFromOneAlsoAfterARemoval) {
  KeyedCollection<int> collection;
  for (const auto& [value, key] : {std::pair{1, "a"}, {2, "Bee"}, {3, "1"}, {4, ""}, {5, "d"}})
    collection.Add(value, key);
  EXPECT_EQ(collection.Item("bEE"), 2);
  EXPECT_EQ(collection.Item("1"), 3);  // a text is a key, never an index
  EXPECT_EQ(collection.Item(4), 4);
  for (const char* key : {"5", ""}) EXPECT_EQ(ErrorNumberOf([&] { collection.Item(key); }), 5);
  for (const int index : {0, 6, -1}) EXPECT_EQ(ErrorNumberOf([&] { collection.Item(index); }), 9) << index;
  EXPECT_EQ(ErrorNumberOf([&] { collection.Add(6, "BEE"); }), 457);

  collection.Remove("BEE");
  collection.Remove(1);
  EXPECT_EQ(collection.Item("1"), 3);
  EXPECT_EQ(collection.Item("d"), 5);
  EXPECT_EQ(ErrorNumberOf([&] { collection.Remove("a"); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { collection.Remove(4); }), 9);
  collection.Add(6, "a");
  EXPECT_THAT(std::vector(collection.begin(), collection.end()), ElementsAre(3, 4, 5, 6));
}
}  // namespace
