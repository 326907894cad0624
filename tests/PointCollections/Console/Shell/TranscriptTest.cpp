// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Transcript.h"

#include "PointCollections/Text/Interruption.h"
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

TEST(Transcript, LeavesOutTheRestOfALongAnswerThatTheUserStops)
{
  std::ostringstream output;
  std::ostringstream errors;
  Transcript transcript(output, errors, Transcript::Detail::ResultsOnly);
  const Interruptible whilePrinting;
  Interruptible::request();

  transcript.result("Created G with 0 elements.");
  EXPECT_EQ(output.str(), "Created G with 0 elements.\n");

  transcript.result(std::string(100'000, 'x'));
  EXPECT_LT(output.str().size(), 10'000U);
  EXPECT_TRUE(output.str().ends_with("x\n… stopped\n"));
}

TEST(Transcript, WrapsMistakes)
{
  std::ostringstream output;
  std::ostringstream errors;
  Transcript transcript(output, errors, Transcript::Detail::ResultsOnly);
  transcript.setColumns([] { return std::size_t(20); });

  transcript.error("error", "there is no group named G");

  EXPECT_EQ(errors.str(), "error: there is no\ngroup named G\n");
}

}
}
