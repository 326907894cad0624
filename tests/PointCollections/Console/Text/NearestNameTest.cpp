// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/NearestName.h"

#include <gtest/gtest.h>

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

}
}
