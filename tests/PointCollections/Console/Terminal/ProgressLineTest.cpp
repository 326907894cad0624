// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/ProgressLine.h"

#include "PointCollections/Support/Language.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <chrono>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <thread>

namespace Tarvik::PointCollections {
namespace {

/// Shows a line for that time.
/// @return what the terminal got
std::string shownFor(std::chrono::milliseconds time)
{
  std::ostringstream terminal;
  {
    ProgressLine line(&terminal);
    line.begin("sort");
    std::this_thread::sleep_for(time);
    line.end();
  }
  return terminal.str();
}

TEST(ProgressLine, OverwritesAllColumnsOfWideCharacters)
{
  const Language language({{"{} … {} s", "{}：{}秒"}});

  const auto shown = shownFor(2 * ProgressLine::patience); // it is there in between

  EXPECT_TRUE(shown.starts_with("sort：1秒\r" + std::string(9, ' ') + '\r')) << shown;
}

TEST(ProgressLine, IsMissingIfThereIsNoMemoryForIt)
{
  Translator::installCatalogue(
      [](auto...) -> std::optional<std::string> { throw std::bad_alloc(); });

  EXPECT_EQ(shownFor(ProgressLine::patience + std::chrono::milliseconds(300)), "");

  Translator::installCatalogue({});
}

}
}
