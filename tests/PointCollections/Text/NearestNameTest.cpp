// SPDX-License-Identifier: MIT
#include "PointCollections/Text/NearestName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace Tarvik::PointCollections {
namespace {

const std::vector<std::string> cities = {"Paris",    "Prague",    "Paramaribo", "Rome",
                                         "New York", "New Salem", "Zürich"};

TEST(NearestName, IsFoundForATypingMistake)
{
  EXPECT_EQ(nearestName("Pariss", cities), "Paris");
  EXPECT_EQ(nearestName("Pars", cities), "Paris");
  EXPECT_EQ(nearestName("Paros", cities), "Paris");
  EXPECT_EQ(nearestName("Prais", cities), "Paris");
  EXPECT_EQ(nearestName("Paramarbo", cities), "Paramaribo");
}

TEST(NearestName, IsFoundWhateverTheCase)
{
  EXPECT_EQ(nearestName("paris", cities), "Paris");
  EXPECT_EQ(nearestName("ROME", cities), "Rome");
}

TEST(NearestName, CountsCharactersRatherThanBytes)
{
  EXPECT_EQ(nearestName("Zurich", cities), "Zürich");
  EXPECT_EQ(nearestName("ü", {"é"}), std::nullopt);
}

TEST(Suggestion, TellsWhatOnlyLooksTheSame)
{
  EXPECT_EQ(suggestion("Zu\u0308rich", cities, "show lists them"),
            R"(; did you mean "Z\u{FC}rich", which looks the same but is written differently?)");
  EXPECT_EQ(suggestion("Z\u00FCrich", {"Zurich", "Zu\u0308rich"}, "show lists them"),
            R"(; did you mean "Zu\u{308}rich", which looks the same but is written differently?)");
  EXPECT_EQ(suggestion("Rome", {"Rom", "Ro\u200Bme"}, "show lists them"),
            R"(; did you mean "Ro\u{200B}me", which looks the same but is written differently?)");
  EXPECT_EQ(suggestion("Rom", cities, "show lists them"), "; did you mean Rome?");
}

TEST(NearestName, IsTheFirstOfThoseThatAreEquallyClose)
{
  EXPECT_EQ(nearestName("cat", {"car", "bat"}), "car");
  EXPECT_EQ(nearestName("cat", {"dart", "bat"}), "bat");
}

TEST(NearestName, IsNotFoundForSomethingElse)
{
  EXPECT_EQ(nearestName("Berlin", cities), std::nullopt);
  EXPECT_EQ(nearestName("x", {"y", ""}), std::nullopt);
  EXPECT_EQ(nearestName("", cities), std::nullopt);
  EXPECT_EQ(nearestName("Paris", {}), std::nullopt);
}

TEST(NearestName, IsALongerNameThatLostItsQuotes)
{
  EXPECT_EQ(nearestName("New", cities), "New York");
}

TEST(NearestName, GivesUpOnEndlessWords)
{
  const std::string endless(1000000, 'x');

  EXPECT_EQ(nearestName(endless, {endless + 'x', "Paris"}), std::nullopt);
  EXPECT_EQ(nearestName("Pariss", {endless, "Paris"}), "Paris");
  EXPECT_EQ(nearestName("\xFF\xFF\xFF", cities), std::nullopt);
}

TEST(NearestName, IsSuggestedAsItIsTyped)
{
  EXPECT_EQ(suggestion("New Yrok", cities, "or nothing"), "; did you mean \"New York\"?");
  EXPECT_EQ(suggestion("Berlin", cities, "show lists them"), "; show lists them");
}

/// How many insertions, deletions, replacements and swaps of neighbours turn one into the other.
std::size_t plainDistance(const std::string& a, const std::string& b)
{
  std::vector<std::vector<std::size_t>> d(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        d[i][j] = i + j;
        continue;
      }
      d[i][j] = std::min(
          {d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
    }
  }
  return d[a.size()][b.size()];
}

TEST(NearestName, IsTheOneOfTheLeastDistance)
{
  std::minstd_rand random(1); // NOLINT: the same in every run
  const auto randomName = [&random] {
    std::string name(3 + random() % 10, 'a');
    for (char& c : name)
      c = static_cast<char>('a' + random() % 3);
    return name;
  };
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::string> names(20);
    std::generate(names.begin(), names.end(), randomName);
    const auto word = randomName();
    const auto most = std::min({std::max<std::size_t>(1, word.size() / 3), std::size_t(3)});
    std::optional<std::string> expected;
    for (const auto& name : names) {
      const auto least = expected ? plainDistance(word, *expected) : most + 1;
      if (plainDistance(word, name) < std::min(least, std::max<std::size_t>(1, name.size())))
        expected = name;
    }
    EXPECT_EQ(nearestName(word, names), expected) << word;
  }
}

}
}
