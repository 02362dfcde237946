#include "zelnor/platform/collection.h"

#include "platform/error_number.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The items in their order.
std::vector<int> Items(const Collection<int>& collection) { return {collection.begin(), collection.end()}; }

Collection<int> OneTwoThree() {
  Collection<int> numbers;
  numbers.Add(1, "One");
  numbers.Add(2);
  numbers.Add(3, "Three");
  return numbers;
}

TEST(Collection, KeepsTheOrderOfAdding) {
  EXPECT_THAT(Items(OneTwoThree()), ElementsAre(1, 2, 3));
  EXPECT_THAT(Items(Collection<int>()), IsEmpty());
  EXPECT_EQ(Collection<int>().Count(), 0);
  EXPECT_EQ(OneTwoThree().Count(), 3);
}

TEST(Collection, CountsPositionsFromOne) {
  const Collection<int> numbers = OneTwoThree();
  EXPECT_EQ(numbers.Item(1), 1);
  EXPECT_EQ(numbers.Item(3), 3);
  for (const Long position : {0, 4, -1}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)numbers.Item(position); }), 9) << position;
  }
}

TEST(Collection, FindsKeysIgnoringCase) {
  const Collection<int> numbers = OneTwoThree();
  EXPECT_EQ(numbers.Item("one"), 1);
  EXPECT_EQ(numbers.Item(String("THREE")), 3);
  EXPECT_TRUE(numbers.Contains("oNe"));
  EXPECT_FALSE(numbers.Contains("two"));
  EXPECT_FALSE(numbers.Contains(""));
  EXPECT_EQ(ErrorNumberOf([&] { (void)numbers.Item("two"); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { (void)numbers.Item(""); }), 5);
}

TEST(Collection, RefusesAKeyTwice) {
  Collection<int> numbers = OneTwoThree();
  EXPECT_EQ(ErrorNumberOf([&] { numbers.Add(4, "ONE"); }), 457);
  EXPECT_THAT(Items(numbers), ElementsAre(1, 2, 3));
  numbers.Add(4, "Four");
  EXPECT_EQ(numbers.Item("four"), 4);
}

TEST(Collection, TakesAnEmptyKeyForNone) {
  Collection<int> numbers;
  numbers.Add(1, "");
  numbers.Add(2, "");
  numbers.Add(3, "Three");
  numbers.Add(4, "");
  EXPECT_THAT(Items(numbers), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(numbers.Item("three"), 3);
}

TEST(Collection, RemovesByPositionAndByKey) {
  Collection<int> numbers = OneTwoThree();
  numbers.Add(4, "Four");
  numbers.Remove(2);
  EXPECT_THAT(Items(numbers), ElementsAre(1, 3, 4));
  EXPECT_EQ(numbers.Item("three"), 3);
  numbers.Remove("One");
  EXPECT_THAT(Items(numbers), ElementsAre(3, 4));
  EXPECT_EQ(numbers.Item("four"), 4);
  EXPECT_FALSE(numbers.Contains("One"));
  numbers.Add(5, "One");
  EXPECT_EQ(numbers.Item("one"), 5);
  EXPECT_THAT(Items(numbers), ElementsAre(3, 4, 5));
}

TEST(Collection, RefusesToRemoveWhatIsNotThere) {
  Collection<int> numbers = OneTwoThree();
  EXPECT_EQ(ErrorNumberOf([&] { numbers.Remove("two"); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { numbers.Remove(0); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { numbers.Remove(4); }), 9);
  EXPECT_THAT(Items(numbers), ElementsAre(1, 2, 3));
}

TEST(Collection, FindsEveryKeyAfterManyRemovals) {
  Collection<int> numbers;
  for (int i = 0; i < 1000; ++i) numbers.Add(i, "Key" + std::to_string(i));
  for (int i = 0; i < 1000; i += 3) numbers.Remove("key" + std::to_string(i));
  for (int i = 0; i < 1000; ++i) {
    const String key = "KEY" + std::to_string(i);
    ASSERT_EQ(numbers.Contains(key), i % 3 != 0) << key;
    if (i % 3 != 0) {
      ASSERT_EQ(numbers.Item(key), i);
    }
  }
  while (numbers.Count() > 0) numbers.Remove(1);
  EXPECT_FALSE(numbers.Contains("key1"));
}

TEST(Collection, ItemsCanBeReplacedInPlace) {
  Collection<int> numbers = OneTwoThree();
  numbers.Item(2) = 20;
  numbers.Item("one") = 10;
  EXPECT_THAT(Items(numbers), ElementsAre(10, 20, 3));
}

TEST(Collection, IsSharedByReference) {
  const CollectionRef<int> numbers = MakeCollection<int>();
  numbers->Add(std::make_shared<int>(7), "Seven");
  const CollectionRef<int> same = numbers;
  EXPECT_EQ(*same->Item("seven"), 7);
}

}  // namespace
}  // namespace zelnor
