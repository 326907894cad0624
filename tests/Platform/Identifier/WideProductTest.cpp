// SPDX-License-Identifier: MIT
#include "Identifier/WideProduct.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace Tarvik {
namespace {

constexpr std::uint64_t largest = 0xFFFFFFFFFFFFFFFF;

void expectProduct(std::uint64_t a, std::uint64_t b, std::uint64_t high, std::uint64_t low)
{
  for (const auto& product : {WideProduct::of(a, b), WideProduct::ofHalves(a, b)}) {
    EXPECT_EQ(product.high, high) << std::hex << a << " * " << b;
    EXPECT_EQ(product.low, low) << std::hex << a << " * " << b;
  }
}

TEST(WideProduct, HasAllBitsOfTheProduct)
{
  expectProduct(0, largest, 0, 0);
  expectProduct(1, largest, 0, largest);
  expectProduct(2, largest, 1, largest - 1);
  expectProduct(largest, largest, largest - 1, 1);
  expectProduct(0x100000000, 0x100000000, 1, 0);
  expectProduct(0x0123456789abcdef, 0xfedcba9876543210, 0x0121fa00ad77d742, 0x2236d88fe5618cf0);
}

TEST(WideProduct, IsTheSameWhenItIsComputedFromHalves)
{
  std::mt19937_64 random(1); // NOLINT: the same in every run
  for (int i = 0; i < 10'000; ++i) {
    const auto a = random();
    const auto b = random();
    const auto halves = WideProduct::ofHalves(a, b);

    expectProduct(a, b, halves.high, halves.low);
  }
}

}
}
