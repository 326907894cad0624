// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Programs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

/// Runs every NAME.pcs in the folder of transcripts on points.csv there, in an empty working
/// folder. NAME.out is the expected output; NAME.err, if it exists, the expected errors.
namespace Tarvik::PointCollections {
namespace {

std::vector<std::string> scriptNames()
{
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(transcripts())) {
    if (entry.path().extension() == ".pcs")
      names.push_back(Utf8::fromPath(entry.path().stem()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The errors, without the folder before the script's name.
std::string withoutFolder(std::string errors)
{
  const auto folder = Utf8::fromPath(transcripts()) + '/';
  const auto found = errors.find(folder);
  return found == std::string::npos ? errors : errors.erase(found, folder.size());
}

/// Test names can only have letters, digits and underscores.
std::string asTestName(std::string name)
{
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

class ScriptInFolder : public ::testing::TestWithParam<std::string> {};

TEST_P(ScriptInFolder, PrintsWhatTheFileBesideItContains)
{
  const auto expectedErrors = contentOf(transcripts() / (GetParam() + ".err"));
  const bool isToStop = expectedErrors.starts_with(GetParam() + ".pcs:");
  const TemporaryFolder folder;
  const WorkingFolder workingFolder(folder);

  const auto scripts = Utf8::fromPath(transcripts()) + '/';
  const auto outcome =
      runProgram(folder, {scripts + "points.csv", "--script", scripts + GetParam() + ".pcs"});

  EXPECT_EQ(outcome.output, contentOf(transcripts() / (GetParam() + ".out")));
  EXPECT_EQ(withoutFolder(outcome.errors), expectedErrors);
  EXPECT_EQ(outcome.status, isToStop ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Transcripts,
                         ScriptInFolder,
                         ::testing::ValuesIn(scriptNames()),
                         [](const auto& test) { return asTestName(test.param); });

}
}
