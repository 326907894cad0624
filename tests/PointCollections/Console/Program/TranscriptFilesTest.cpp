// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Programs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

/// Runs every NAME.pcs in the folder of transcripts on points.csv there, in an empty working
/// folder. NAME.out is the expected output; NAME.err, if it exists, the expected errors. For each
/// LANGUAGE/NAME.out, NAME.pcs is run in that language as well.
namespace Tarvik::PointCollections {
namespace {

/// A script, and the language that the program is to speak.
struct TranscribedRun {
  std::string script;
  std::string language; ///< such as "de"

  /// Where the expected texts are; those in English are beside the scripts.
  std::filesystem::path folder() const
  {
    return language == english ? transcripts() : transcripts() / language;
  }

  static constexpr auto english = "en";
};

/// For messages.
void PrintTo(const TranscribedRun& run, std::ostream* stream)
{
  *stream << run.script << " in " << run.language;
}

/// The files in a folder that have this ending, without it.
std::vector<std::string> namesIn(const std::filesystem::path& folder, const std::string& ending)
{
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ending)
      names.push_back(Utf8::fromPath(entry.path().stem()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The languages other than English. None if translations are not built.
std::vector<std::string> languages()
{
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(transcripts())) {
    if (POINT_COLLECTIONS_HAS_TRANSLATIONS && entry.is_directory())
      names.push_back(Utf8::fromPath(entry.path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<TranscribedRun> runs()
{
  std::vector<TranscribedRun> result;
  for (const auto& script : namesIn(transcripts(), ".pcs"))
    result.push_back({script, TranscribedRun::english});
  for (const auto& language : languages()) {
    for (const auto& script : namesIn(transcripts() / language, ".out"))
      result.push_back({script, language});
  }
  return result;
}

std::vector<std::string> argumentsOf(const TranscribedRun& run)
{
  const auto scripts = Utf8::fromPath(transcripts()) + '/';
  return {scripts + "points.csv", "--script", scripts + run.script + ".pcs", "--language",
          run.language};
}

/// The errors, without the folder before the script's name.
std::string withoutFolder(std::string errors)
{
  const auto folder = Utf8::fromPath(transcripts()) + '/';
  const auto found = errors.find(folder);
  return found == std::string::npos ? errors : errors.erase(found, folder.size());
}

/// Test names can only have letters, digits and underscores.
std::string asTestName(const TranscribedRun& run)
{
  auto name = run.script + "_in_" + run.language;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

class ScriptInFolder : public ::testing::TestWithParam<TranscribedRun> {};

TEST_P(ScriptInFolder, PrintsWhatTheFileBesideItContains)
{
  const auto expectedErrors = contentOf(GetParam().folder() / (GetParam().script + ".err"));
  const bool isToStop = expectedErrors.starts_with(GetParam().script + ".pcs:");
  const TemporaryFolder folder;
  const WorkingFolder workingFolder(folder);

  const auto outcome = runProgram(folder, argumentsOf(GetParam()));

  EXPECT_EQ(outcome.output, contentOf(GetParam().folder() / (GetParam().script + ".out")));
  EXPECT_EQ(withoutFolder(outcome.errors), expectedErrors);
  EXPECT_EQ(outcome.status, isToStop ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Transcripts,
                         ScriptInFolder,
                         ::testing::ValuesIn(runs()),
                         [](const auto& test) { return asTestName(test.param); });

}
}
