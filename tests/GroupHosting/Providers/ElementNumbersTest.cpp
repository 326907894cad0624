// SPDX-License-Identifier: MIT
#include "GroupHosting/Providers/ElementNumbers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <map>
#include <random>

namespace Tarvik {

/// An element whose hash says little, so that many share a place in a table.
struct ElementWithPoorHash {
  int value = 0;
  friend bool operator==(const ElementWithPoorHash& a, const ElementWithPoorHash& b) = default;
};

struct ElementWithoutHash {
  int value = 0;
  friend bool operator==(const ElementWithoutHash& a, const ElementWithoutHash& b) = default;
};

}

template <>
struct std::hash<Tarvik::ElementWithPoorHash> {
  std::size_t operator()(const Tarvik::ElementWithPoorHash& element) const noexcept
  {
    return static_cast<std::size_t>(element.value % 5);
  }
};

namespace Tarvik::GroupLists {
namespace {

template <class T>
class NumbersOfElements : public ::testing::Test {
protected:
  ElementNumbers<T> numbers;
};
using Kinds = ::testing::Types<ElementWithPoorHash, ElementWithoutHash>;
TYPED_TEST_SUITE(NumbersOfElements, Kinds);

TYPED_TEST(NumbersOfElements, AreSmallAndStay)
{
  EXPECT_EQ(this->numbers.find({7}), this->numbers.none);
  EXPECT_EQ(this->numbers.add({7}), 0U);
  EXPECT_EQ(this->numbers.add({8}), 1U);
  EXPECT_EQ(this->numbers.add({7}), 0U);
  EXPECT_EQ(this->numbers.find({8}), 1U);
  EXPECT_EQ(this->numbers[1], TypeParam{8});
  EXPECT_EQ(this->numbers.size(), 2U);
  EXPECT_EQ(this->numbers.limit(), 2U);
}

TYPED_TEST(NumbersOfElements, AreGivenOutAgain)
{
  this->numbers.add({7});
  this->numbers.add({8});
  this->numbers.remove(0);

  EXPECT_FALSE(this->numbers.has(0));
  EXPECT_EQ(this->numbers.find({7}), this->numbers.none);
  EXPECT_EQ(this->numbers.add({9}), 0U);
  EXPECT_EQ(this->numbers.add({7}), 2U);
  EXPECT_EQ(this->numbers.find({7}), 2U);
  EXPECT_EQ(this->numbers.find({8}), 1U);
}

TYPED_TEST(NumbersOfElements, AreRightWhileElementsComeAndGo)
{
  std::mt19937 random(1);
  std::map<int, unsigned int> expected;
  this->numbers.reserve(10);
  for (int i = 0; i < 20'000; ++i) {
    const TypeParam element{static_cast<int>(random() % 60)};
    const auto known = expected.find(element.value);
    if (random() % 2 == 0) {
      const auto number = this->numbers.add(element);
      if (known != expected.end()) {
        ASSERT_EQ(number, known->second);
      }
      expected[element.value] = number;
    } else if (known != expected.end()) {
      this->numbers.remove(known->second);
      expected.erase(known);
    }
    ASSERT_EQ(this->numbers.size(), expected.size());
    for (int value = 0; value < 60; ++value) {
      const auto each = expected.find(value);
      ASSERT_EQ(this->numbers.find({value}),
                each != expected.end() ? each->second : this->numbers.none);
    }
  }
  EXPECT_LE(this->numbers.limit(), 60U);
}

}
}
