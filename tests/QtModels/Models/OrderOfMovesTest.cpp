// SPDX-License-Identifier: MIT
#include "QtModels/Models/OrderOfMoves.h"

#include "QtModels/Models/ShownGroups.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

namespace Tarvik::ShownLists {
namespace {

std::vector<std::uint32_t> oldOrder(std::size_t size)
{
  std::vector<std::uint32_t> order(size);
  std::iota(order.begin(), order.end(), std::uint32_t{0});
  return order;
}

TEST(OrderOfMoves, IsTheOldOrderWithoutMoves)
{
  EXPECT_EQ(OrderOfMoves(3).order(), oldOrder(3));
  EXPECT_TRUE(OrderOfMoves(0).order().empty());
}

TEST(OrderOfMoves, HasMovesInBothDirections)
{
  OrderOfMoves moves(6);

  moves.move(0, 2, 3); // 2 3 4 0 1 5
  moves.move(5, 1, 0); // 5 2 3 4 0 1
  moves.move(1, 4, 2); // 5 1 2 3 4 0

  EXPECT_EQ(moves.order(), (std::vector<std::uint32_t>{5, 1, 2, 3, 4, 0}));
}

TEST(OrderOfMoves, IsThatOfEntriesThatMoveOneAfterAnother)
{
  constexpr std::size_t size = 5'000;
  std::mt19937 random(1); // NOLINT: the same in every run
  OrderOfMoves moves(size);
  auto entries = oldOrder(size);

  for (int i = 0; i < 3'000; ++i) {
    const auto count = 1 + random() % 3;
    const auto from = random() % (size - count + 1);
    const auto to = random() % (size - count + 1);
    moves.move(from, count, to);
    move(entries, from, count, to);
    ASSERT_TRUE(i % 500 != 0 || moves.order() == entries) << "after move " << i;
  }

  EXPECT_EQ(moves.order(), entries);
}

}
}
