// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LineReader.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Tarvik::PointCollections {
namespace {

TEST(PlainReader, PromptsAndReadsLines)
{
  std::istringstream input("one\ntwo");
  std::ostringstream output;
  const auto reader = makePlainReader(input, output);

  EXPECT_EQ(reader->readLine("> "), "one");
  EXPECT_EQ(reader->readLine("> "), "two");
  EXPECT_EQ(reader->readLine("> "), std::nullopt);
  EXPECT_EQ(output.str(), "> > > ");
}

TEST(PlainReader, TakesInputThatCannotBeReadForItsEnd)
{
  std::istringstream input("one\ntwo");
  std::ostringstream output;
  const auto reader = makePlainReader(input, output);
  input.setstate(std::ios::badbit);

  EXPECT_EQ(reader->readLine("> "), std::nullopt);
}

}
}
