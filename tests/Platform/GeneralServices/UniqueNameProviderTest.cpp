// SPDX-License-Identifier: MIT
#include "GeneralServices/UniqueNameProvider.h"

#include "GeneralServices/SimpleNameSetProvider.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

/// The unique name for a base where the names are taken: `unique("Group", {"Group"})`.
std::string unique(const std::string& base, std::initializer_list<std::string> taken)
{
  SimpleNameSetProvider names;
  for (const auto& name : taken)
    names.addName(name);
  return UniqueNameProvider::createUniqueName(base, names);
}

TEST(UniqueName, IsTheBaseItselfWhenThatIsFree)
{
  EXPECT_EQ(unique("Group", {}), "Group");
  EXPECT_EQ(unique("Group", {"Group 2", "group", "Group "}), "Group");
  EXPECT_EQ(unique("", {"Group"}), "");
  EXPECT_EQ(unique("Group 7", {"Group"}), "Group 7");
  EXPECT_EQ(unique("  Group\t02 ", {}), "  Group\t02 ");
}

TEST(UniqueName, HasTheLowestFreeNumberFromTwoUpAfterATakenBase)
{
  EXPECT_EQ(unique("Group", {"Group"}), "Group 2");
  EXPECT_EQ(unique("Group", {"Group", "Group 2"}), "Group 3");
  EXPECT_EQ(unique("Group", {"Group", "Group 1"}), "Group 2");
}

TEST(UniqueName, FillsGaps)
{
  EXPECT_EQ(unique("Group", {"Group", "Group 3", "Group 4"}), "Group 2");
  EXPECT_EQ(unique("Group", {"Group", "Group 2", "Group 4"}), "Group 3");
  EXPECT_EQ(unique("Group 5", {"Group", "Group 2", "Group 5"}), "Group 3");
}

TEST(UniqueName, ReplacesTheNumberOfATakenBase)
{
  EXPECT_EQ(unique("Group 2", {"Group", "Group 2"}), "Group 3");
  EXPECT_EQ(unique("Group 2", {"Group 2"}), "Group 3");
  EXPECT_EQ(unique("Group 1", {"Group 1"}), "Group 2");
  EXPECT_EQ(unique("Group 9", {"Group 9"}), "Group 2");
  EXPECT_EQ(unique("Group 2 2", {"Group 2 2"}), "Group 2 3");
  EXPECT_EQ(unique("2 2", {"2 2"}), "2 3");
}

TEST(UniqueName, ReplacesANumberTooLargeForAnyCounter)
{
  const std::string large = "Group " + std::string(50, '9');

  EXPECT_EQ(unique(large, {large}), "Group 2");
}

TEST(UniqueName, CountsPastOneDigit)
{
  SimpleNameSetProvider names;
  names.addName("Group");
  for (int number = 2; number < 120; ++number) {
    const auto name = UniqueNameProvider::createUniqueName("Group", names);
    EXPECT_EQ(name, "Group " + std::to_string(number));
    names.addName(name);
  }
}

TEST(UniqueName, AddsToABaseWhoseDigitsAreNoSeparateNumber)
{
  for (const std::string base : {"Group 02", "Group 0", "Group2", "Group-2", "Group\t2", "Group 2a",
                                 "Group 2.5", "Group -2", "2", " 2", "22"})
    EXPECT_EQ(unique(base, {base}), base + " 2");
}

TEST(UniqueName, KeepsTheBlanksOfItsBase)
{
  EXPECT_EQ(unique("Group ", {"Group "}), "Group  2");
  EXPECT_EQ(unique("Group  2", {"Group  2"}), "Group  3");
  EXPECT_EQ(unique(" Group", {" Group"}), " Group 2");
  EXPECT_EQ(unique(" ", {" "}), "  2");
}

TEST(UniqueName, MayGrowFromAnEmptyBase)
{
  EXPECT_EQ(unique("", {""}), " 2");
  EXPECT_EQ(unique("", {"", " 2"}), " 3");
}

TEST(UniqueName, KeepsLettersOutsideAsciiAndZeroBytes)
{
  const std::string pumps = "Gr\xc3\xbc\xc3\x9f";
  const std::string zero("a\0b", 3);

  EXPECT_EQ(unique(pumps, {pumps}), pumps + " 2");
  EXPECT_EQ(unique(pumps + " 2", {pumps + " 2"}), pumps + " 3");
  EXPECT_EQ(unique(zero, {zero}), zero + " 2");
  EXPECT_EQ(unique("\xd9\xa2 \xd9\xa2", {"\xd9\xa2 \xd9\xa2"}), "\xd9\xa2 \xd9\xa2 2");
}

TEST(UniqueName, IsTheSameForEqualArguments)
{
  SimpleNameSetProvider names;
  names.addName("Group").addName("Group 2");

  EXPECT_EQ(UniqueNameProvider::createUniqueName("Group", names), "Group 3");
  EXPECT_EQ(UniqueNameProvider::createUniqueName("Group", names), "Group 3");
}

/// "Group", "Group 2" and so on up to a last number. Counts how often it is asked.
class NumberedGroups : public NameSetProvider {
public:
  explicit NumberedGroups(int last) : m_last(last) {}

  bool contains(std::string_view name) const override
  {
    ++m_questions;
    if (!name.starts_with("Group"))
      return false;
    name.remove_prefix(5);
    return name.empty() || (name.front() == ' ' && std::stoi(std::string(name)) <= m_last);
  }

  int questions() const { return m_questions; }

private:
  int m_last;
  mutable int m_questions = 0;
};

TEST(UniqueName, IsFoundWithOneQuestionForEachNumber)
{
  const NumberedGroups names(100'000);

  EXPECT_EQ(UniqueNameProvider::createUniqueName("Group", names), "Group 100001");

  EXPECT_LE(names.questions(), 100'001);
}

TEST(UniqueName, IsFoundWithOneQuestionWhenTheBaseIsFree)
{
  const NumberedGroups names(100'000);

  EXPECT_EQ(UniqueNameProvider::createUniqueName("Valves", names), "Valves");

  EXPECT_EQ(names.questions(), 1);
}

TEST(UniqueName, FollowsTheHostsOwnIdeaOfTakenNames)
{
  class LongNamesAreTaken : public NameSetProvider {
  public:
    bool contains(std::string_view name) const override { return name.size() > 7; }
  };
  class ShortNamesAreTaken : public NameSetProvider {
  public:
    bool contains(std::string_view name) const override { return name.size() < 8; }
  };

  EXPECT_EQ(UniqueNameProvider::createUniqueName("Group", LongNamesAreTaken()), "Group");
  EXPECT_EQ(UniqueNameProvider::createUniqueName("Group", ShortNamesAreTaken()), "Group 10");
}

TEST(UniqueName, NeedsNoProviderObject)
{
  static_assert(!std::is_default_constructible_v<UniqueNameProvider>);
}

}
}
