// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Programs.h"
#include "PointCollections/Input/PointFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

constexpr double earthRadius = 6371; // km, as in the sample

class Sample : public ::testing::Test {
protected:
  std::vector<PointCollection> m_cities = readPointFile(samples() / "time-zone-cities.csv");

  Point placeOf(const std::string& name) const
  {
    const auto found = std::find_if(m_cities.begin(), m_cities.end(),
                                    [&name](const auto& city) { return city.name == name; });
    return found != m_cities.end() ? found->points.front() : Point();
  }

  /// Expects the city at these degrees, to within 2 km, which is about a minute of arc.
  void expectAt(const std::string& name, double latitude, double longitude) const
  {
    const double degree = std::acos(-1.0) / 180;
    const double toAxis = earthRadius * std::cos(latitude * degree);
    const auto [x, y, z] = placeOf(name);
    EXPECT_NEAR(x, toAxis * std::cos(longitude * degree), 2) << name;
    EXPECT_NEAR(y, toAxis * std::sin(longitude * degree), 2) << name;
    EXPECT_NEAR(z, earthRadius * std::sin(latitude * degree), 2) << name;
  }
};

TEST_F(Sample, HasOnePointForEachCity)
{
  EXPECT_GT(m_cities.size(), 400U);
  for (const auto& city : m_cities)
    EXPECT_EQ(city.points.size(), 1U) << city.name;
}

TEST_F(Sample, IsSortedByName)
{
  EXPECT_TRUE(
      std::is_sorted(m_cities.begin(), m_cities.end(),
                     [](const auto& one, const auto& other) { return one.name < other.name; }));
}

TEST_F(Sample, LiesOnTheSphere)
{
  for (const auto& city : m_cities) {
    const auto [x, y, z] = city.points.front();
    EXPECT_NEAR(std::sqrt(x * x + y * y + z * z), earthRadius, 0.1) << city.name;
  }
}

TEST_F(Sample, HasCitiesWhereTheyAre)
{
  expectAt("London", 51 + 30.0 / 60 + 30.0 / 3600, -(7.0 / 60 + 31.0 / 3600));
  expectAt("New York", 40 + 42.0 / 60 + 51.0 / 3600, -(74 + 23.0 / 3600));
  expectAt("Sydney", -(33 + 52.0 / 60), 151 + 13.0 / 60);
  expectAt("Buenos Aires", -(34 + 36.0 / 60), -(58 + 27.0 / 60));
  expectAt("Tokyo", 35 + 39.0 / 60 + 16.0 / 3600, 139 + 44.0 / 60 + 41.0 / 3600);
}

/// The languages that the script is transcribed in: continents.LANGUAGE.out, in English
/// continents.out.
std::vector<std::string> transcribedLanguages()
{
  std::vector<std::string> languages = {"en"};
  if (POINT_COLLECTIONS_HAS_TRANSLATIONS)
    languages.insert(languages.end(), {"de", "ja"});
  return languages;
}

class SampleIn : public ::testing::TestWithParam<std::string> {
protected:
  const TemporaryFolder folder;
  const WorkingFolder workingFolder = WorkingFolder(folder);

  Outcome run(std::vector<std::string> arguments) const
  {
    arguments.insert(arguments.end(), {Utf8::fromPath(samples() / "time-zone-cities.csv"),
                                       "--language", GetParam()});
    return runProgram(folder, arguments);
  }
};

TEST_P(SampleIn, RunsItsScriptToTheEnd)
{
  const auto transcript =
      GetParam() == "en" ? "continents.out" : "continents." + GetParam() + ".out";

  const auto outcome = run({"--script", Utf8::fromPath(samples() / "continents.pcs")});

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output, contentOf(samples() / transcript));
}

TEST_P(SampleIn, WritesTheSameForOtherProgramsInEveryLanguage)
{
  const auto outcome = run({"--quiet", "--command", "create Nord London", "--command",
                            "where London --json", "--command", "export points.csv"});

  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.output,
              ::testing::HasSubstr(R"([{"name":"London","groups":[{"place":1,"name":"Nord",)"
                                   R"("member":1}],"points":[[3965.3,-8.7,4986.6]]}])"));
  EXPECT_THAT(contentOf(folder.path() / "points.csv"),
              ::testing::HasSubstr("\nLondon,3965.3,-8.7,4986.6,Nord,1\n"));
}

INSTANTIATE_TEST_SUITE_P(EachLanguage,
                         SampleIn,
                         ::testing::ValuesIn(transcribedLanguages()),
                         [](const auto& each) { return each.param; });

}
}
