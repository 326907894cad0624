// SPDX-License-Identifier: MIT
#include "PointCollections/Input/TextInput.h"

#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Files.h"
#include "Support/Allocations.h"

#include <gmock/gmock.h>

#include <new>
#include <sstream>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::vector<std::string> linesOf(const std::string& text)
{
  std::istringstream stream(text);
  std::vector<std::string> lines;
  while (const auto line = readLine(stream))
    lines.push_back(*line);
  return lines;
}

TEST(TextInput, ReadsLinesWithEitherLineEnd)
{
  EXPECT_THAT(linesOf("a\nb\r\n\nc\rd"), ElementsAre("a", "b", "", "c\rd"));
  EXPECT_THAT(linesOf(""), ElementsAre());
  EXPECT_THAT(linesOf("\n"), ElementsAre(""));
}

TEST(TextInput, KeepsNulBytesInLines)
{
  EXPECT_THAT(linesOf(std::string("a\0b\n", 4)), ElementsAre(std::string("a\0b", 3)));
}

TEST(TextInput, RefusesEndlessLines)
{
  EXPECT_EQ(linesOf(std::string(longestLine, 'a')).front().size(), longestLine);
  EXPECT_EQ(mistakeIn([] { linesOf(std::string(longestLine + 1, 'a')); }),
            "a line of more than 16777216 bytes; expected a shorter one");
}

TEST(TextInput, ReadsAFileByteForByte)
{
  const TemporaryFolder folder;
  const std::string content = "a\r\nb\n\xFF" + std::string(3000000, 'x');

  EXPECT_EQ(readText(folder.write("file", content)), content);
}

TEST(TextInput, RefusesAFileThatDoesNotExist)
{
  const TemporaryFolder folder;
  const auto file = folder.path() / "none.csv";

  EXPECT_THAT(mistakeIn([&] { readText(file); }),
              StartsWith(Utf8::fromPath(file) + ": the file cannot be opened"));
}

TEST(TextInput, RefusesAFolder)
{
  const TemporaryFolder folder;

  EXPECT_THAT(mistakeIn([&] { readText(folder.path()); }),
              HasSubstr("this is a directory; expected a file"));
}

TEST(TextInput, RefusesAFileWithANulByte)
{
  const TemporaryFolder folder;
  const auto file = folder.write("file.csv", std::string("a\nb\0c\n", 6));

  EXPECT_EQ(mistakeIn([&] { readText(file); }),
            Utf8::fromPath(file) + ":2: a NUL byte; expected a text file in UTF-8");
}

TEST(TextInput, NamesUtf16InPlaceOfNulBytes)
{
  const TemporaryFolder folder;
  for (const std::string& text :
       {std::string("\xFF\xFE"
                    "a\0",
                    4),
        std::string("\xFE\xFF\0a", 4), std::string("a\0,\0x\0", 6), std::string("\0a\0,\0x", 6)}) {
    const auto file = folder.write("file.csv", text);

    EXPECT_EQ(mistakeIn([&] { readText(file); }),
              Utf8::fromPath(file) + ": this text is in UTF-16; save it as UTF-8");
  }
  const auto file = folder.write("file.csv", std::string("\xFF\xFE\0\0a\0\0\0", 8));
  EXPECT_THAT(mistakeIn([&] { readText(file); }), HasSubstr("UTF-32"));
}

TEST(TextInput, ReadsAnyStream)
{
  std::istringstream input("a\nb");
  EXPECT_EQ(readText(input, "<stdin>"), "a\nb");

  std::istringstream withNul(std::string("a\nb\0", 4));
  EXPECT_EQ(mistakeIn([&] { readText(withNul, "<stdin>"); }),
            "<stdin>:2: a NUL byte; expected a text file in UTF-8");
}

TEST(TextInput, DropsTheRestOfALineThatThereIsNoMemoryFor)
{
  std::istringstream input("delete an element that has a long name\nnext");
  {
    const AllocationWatch watch(0);
    EXPECT_THROW(readLine(input), std::bad_alloc);
  }

  EXPECT_EQ(readLine(input), "next");
}

}
}
