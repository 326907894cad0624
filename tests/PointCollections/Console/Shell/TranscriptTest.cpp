// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Transcript.h"

#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace Tarvik::PointCollections {
namespace {

/// Keeps what is printed, without allocating.
class FixedBuffer : public std::streambuf {
public:
  FixedBuffer() { setp(m_text.data(), m_text.data() + m_text.size()); }
  std::string text() const { return {pbase(), pptr()}; }

private:
  std::array<char, 200> m_text{};
};

TEST(Transcript, TellsAMistakeWithoutItsPlaceWhenThereIsNoMemoryLeft)
{
  FixedBuffer text;
  std::ostringstream output;
  std::ostream errors(&text);
  Transcript transcript(output, errors, Transcript::Detail::Full);
  const std::string where = "a script with a long name.pcs:12";
  {
    const AllocationWatch watch(0, AllocationWatch::none);
    transcript.error(where, "this could not be done: ", "out of luck");
  }

  EXPECT_EQ(text.text(), "error: this could not be done: out of luck\n");
}

}
}
