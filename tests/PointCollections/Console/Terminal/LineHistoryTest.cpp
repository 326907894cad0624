// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LineHistory.h"

#include "PointCollections/Support/Files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

using Lines = std::vector<std::string>;

TEST(LineHistory, KeepsLinesInOrder)
{
  const TemporaryFolder folder;
  const auto file = folder.path() / "state" / "history";
  LineHistory(file).add("one");
  LineHistory(file).add("zwei Größen");

  EXPECT_EQ(LineHistory(file).read(), (Lines{"one", "zwei Größen"}));
}

TEST(LineHistory, LeavesOutWhatNobodyCanHaveTyped)
{
  const TemporaryFolder folder;
  const auto file = folder.write("history", "one\n\n\xFF\na\x1b[31mb\ntwo");

  EXPECT_EQ(LineHistory(file).read(), (Lines{"one", "two"}));
}

TEST(LineHistory, DoesNotKeepVeryLongLines)
{
  const TemporaryFolder folder;
  const LineHistory history(folder.path() / "history");
  history.add(std::string(LineHistory::longestLine + 1, 'x'));
  history.add("short");

  EXPECT_EQ(history.read(), Lines{"short"});
}

TEST(LineHistory, ForgetsTheOldestLines)
{
  const TemporaryFolder folder;
  std::string content;
  for (std::size_t i = 0; i < 3 * LineHistory::mostLines; ++i)
    content += std::to_string(i) + '\n';
  const auto file = folder.write("history", content);

  const auto lines = LineHistory(file).read();

  ASSERT_EQ(lines.size(), LineHistory::mostLines);
  EXPECT_EQ(lines.back(), std::to_string(3 * LineHistory::mostLines - 1));
  EXPECT_LT(std::filesystem::file_size(file), content.size() / 2);
  EXPECT_EQ(LineHistory(file).read(), lines);
}

TEST(LineHistory, DoesWithoutAFile)
{
  const TemporaryFolder folder;
  for (const auto& file : {std::filesystem::path(), folder.path(), folder.path() / "a" / "b"}) {
    if (file.filename() == "b")
      folder.write("a", "not a folder");
    LineHistory(file).add("one");
    EXPECT_TRUE(LineHistory(file).read().empty());
  }
}

}
}
