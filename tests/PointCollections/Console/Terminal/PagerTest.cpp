// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/Pager.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

TEST(RowsOnATerminal, AreCountedWithThoseOfLongLines)
{
  EXPECT_EQ(rowsOf("", 10), 1U);
  EXPECT_EQ(rowsOf("one\n\nthree", 10), 3U);
  EXPECT_EQ(rowsOf("0123456789", 10), 1U);
  EXPECT_EQ(rowsOf("0123456789a", 10), 2U);
  EXPECT_EQ(rowsOf("ääääääääää", 10), 1U);
}

}
}
