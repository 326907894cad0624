// SPDX-License-Identifier: MIT
#include "GroupHosting/Providers/HolderIndex.h"
#include "GroupHosting/Providers/HolderEdit.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <random>
#include <vector>

namespace Tarvik::GroupLists {
namespace {

template <class T>
class Holders : public ::testing::Test {
protected:
  using Holding = typename HolderIndex<T>::Holding;

  std::vector<std::uint32_t> holdersOf(const T& element) const
  {
    std::vector<std::uint32_t> holders;
    index.forEachHolder(index.numbers().find(element),
                        [&holders](auto group) { holders.push_back(group); });
    std::sort(holders.begin(), holders.end());
    return holders;
  }

  HolderIndex<T> index;
};
TYPED_TEST_SUITE(Holders, ElementIdentifiers, KindName);

using Groups = std::vector<std::uint32_t>;

TYPED_TEST(Holders, AreKeptOncePerMember)
{
  const TypeParam a;
  const auto number = this->index.add(a);
  EXPECT_FALSE(this->index.isHeld(number));

  for (const std::uint32_t group : {3U, 1U, 3U})
    this->index.addHolder({number, group});
  EXPECT_TRUE(this->index.isHeld(number));
  EXPECT_EQ(this->holdersOf(a), (Groups{1, 3, 3}));

  std::vector<typename TestFixture::Holding> one = {{number, 3}};
  this->index.removeHolders(one);
  EXPECT_EQ(this->holdersOf(a), (Groups{1, 3}));
}

TYPED_TEST(Holders, AreRemovedTogetherWhereAnElementHasMany)
{
  std::mt19937 random(1);
  const TypeParam a;
  const auto number = this->index.add(a);
  for (int round = 0; round < 200; ++round) {
    Groups expected;
    std::vector<typename TestFixture::Holding> removed;
    std::vector<typename TestFixture::Holding> kept;
    for (int i = 0; i < 40; ++i) {
      const auto group = static_cast<std::uint32_t>(random() % 15);
      this->index.addHolder({number, group});
      if (random() % 2 == 0) {
        removed.push_back({number, group});
      } else {
        kept.push_back({number, group});
        expected.push_back(group);
      }
    }
    std::shuffle(removed.begin(), removed.end(), random);
    const auto count = removed.size();
    removed.push_back({number, 99});
    removed.push_back({number, 98});
    std::sort(expected.begin(), expected.end());

    this->index.removeHolders(removed);

    ASSERT_EQ(this->holdersOf(a), expected);
    ASSERT_EQ(std::count_if(removed.begin(), removed.end(),
                            [number](const auto& each) { return each.number == number; }),
              static_cast<std::ptrdiff_t>(count))
        << "what was not there is marked";
    this->index.removeHolders(kept);
    ASSERT_FALSE(this->index.isHeld(number));
  }
}

TYPED_TEST(Holders, OfAnElementInVeryManyGroupsTakeNoQuadraticTime)
{
  const TypeParam a;
  const auto number = this->index.add(a);
  std::vector<typename TestFixture::Holding> all;
  for (std::uint32_t group = 0; group < 200'000; ++group) {
    this->index.addHolder({number, group});
    all.push_back({number, group});
  }
  std::shuffle(all.begin(), all.end(), std::mt19937(1));

  const auto start = std::chrono::steady_clock::now();
  this->index.removeHolders(all);

  EXPECT_FALSE(this->index.isHeld(number));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

TYPED_TEST(Holders, AreAsBeforeWhenAnEditIsNotKept)
{
  const std::vector<TypeParam> ids(4);
  {
    HolderEdit<TypeParam> edit(this->index);
    edit.add(ids.begin(), ids.begin() + 3, 1);
    edit.apply();
    edit.keep([](auto) { return false; });
  }
  {
    HolderEdit<TypeParam> edit(this->index);
    edit.remove(ids.begin(), ids.begin() + 2, 1);
    edit.add(ids.begin() + 1, ids.end(), 2);
    edit.apply();
    EXPECT_EQ(this->holdersOf(ids[1]), Groups{2});
  }

  EXPECT_EQ(this->holdersOf(ids[0]), Groups{1});
  EXPECT_EQ(this->holdersOf(ids[1]), Groups{1});
  EXPECT_EQ(this->holdersOf(ids[2]), Groups{1});
  EXPECT_EQ(this->index.numbers().size(), 3U) << "the new element is forgotten";
}

TYPED_TEST(Holders, ForgetElementsThatNobodyUses)
{
  const std::vector<TypeParam> ids(3);
  HolderEdit<TypeParam> first(this->index);
  first.add(ids.begin(), ids.end(), 1);
  first.add(ids.begin(), ids.end(), 1);
  first.apply();
  first.keep([](auto) { return false; });

  HolderEdit<TypeParam> second(this->index);
  second.remove(ids.begin(), ids.end(), 1);
  second.remove(ids.begin(), ids.begin() + 2, 1);
  second.apply();
  second.keep([](auto number) { return number == 0; });

  EXPECT_EQ(this->index.numbers().find(ids[0]), 0U);
  EXPECT_EQ(this->index.numbers().find(ids[1]), this->index.none);
  EXPECT_TRUE(this->index.isHeld(2));
  EXPECT_EQ(this->index.numbers().size(), 2U);
}

TYPED_TEST(Holders, SkipWhatIsNotThere)
{
  const std::vector<TypeParam> ids(2);
  this->index.add(ids[0]);

  HolderEdit<TypeParam> edit(this->index);
  edit.remove(ids.begin(), ids.end(), 1);
  edit.apply();
  edit.keep([](auto) { return true; });

  EXPECT_FALSE(this->index.isHeld(0));
}

}
}
