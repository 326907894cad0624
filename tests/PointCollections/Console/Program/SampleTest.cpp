// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Programs.h"
#include "PointCollections/Input/PointFile.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <string>

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

TEST_F(Sample, ScriptRunsToItsEnd)
{
  const TemporaryFolder folder;
  const WorkingFolder workingFolder(folder);
  const auto outcome =
      runProgram(folder, {Utf8::fromPath(samples() / "time-zone-cities.csv"), "--script",
                          Utf8::fromPath(samples() / "continents.pcs"), "--language", "en"});

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output, contentOf(samples() / "continents.out"));
}

}
}
