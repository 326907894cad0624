// SPDX-License-Identifier: MIT
#include "GeneralServices/SimpleNameSetProvider.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace Tarvik {
namespace {

TEST(NameSet, IsEmptyAtFirst)
{
  const SimpleNameSetProvider names;

  EXPECT_FALSE(names.contains(""));
  EXPECT_FALSE(names.contains("Pumps"));
}

TEST(NameSet, ContainsTheNamesThatWereAdded)
{
  SimpleNameSetProvider names;

  names.addName("Pumps");
  names.addName("");

  EXPECT_TRUE(names.contains("Pumps"));
  EXPECT_TRUE(names.contains(""));
  EXPECT_FALSE(names.contains("Valves"));
}

TEST(NameSet, ReturnsItselfSoThatCallsCanBeChained)
{
  SimpleNameSetProvider names;

  auto& result = names.addName("A").addName("B").addName("C");

  EXPECT_EQ(&result, &names);
  for (const auto* const name : {"A", "B", "C"})
    EXPECT_TRUE(names.contains(name)) << name;
}

TEST(NameSet, ComparesNamesByteForByte)
{
  SimpleNameSetProvider names;
  names.addName("Pumps").addName("Gr\xc3\xbc\xc3\x9f").addName(std::string("a\0b", 3));

  for (const std::string other : {"pumps", "PUMPS", "Pumps ", " Pumps", "Pump", "Pumpss"})
    EXPECT_FALSE(names.contains(other)) << '"' << other << '"';
  EXPECT_FALSE(names.contains("Gru\xcc\x88\xc3\x9f")) << "the same letters, composed";
  EXPECT_FALSE(names.contains("a"));
  EXPECT_TRUE(names.contains(std::string_view("a\0b", 3)));
  EXPECT_TRUE(names.contains("Gr\xc3\xbc\xc3\x9f"));
}

TEST(NameSet, AcceptsAPartOfAText)
{
  SimpleNameSetProvider names;
  names.addName("Pumps");

  const std::string_view text = "Pumps and valves";

  EXPECT_TRUE(names.contains(text.substr(0, 5)));
  EXPECT_FALSE(names.contains(text.substr(0, 6)));
  EXPECT_FALSE(names.contains(text.substr(5, 0)));
}

TEST(NameSet, StaysTheSameWhenANameIsAddedAgain)
{
  SimpleNameSetProvider names;

  names.addName("Pumps").addName("Pumps");

  EXPECT_TRUE(names.contains("Pumps"));
  EXPECT_FALSE(names.contains("Pumps 2"));
}

TEST(NameSet, KeepsItsOwnCopiesOfTheNames)
{
  SimpleNameSetProvider names;
  std::string name = "A name that is too long to be kept within the string";
  names.addName(name);

  name.assign(name.size(), 'x');

  EXPECT_TRUE(names.contains("A name that is too long to be kept within the string"));
  EXPECT_FALSE(names.contains(name));
}

TEST(NameSet, IsCopiedWithItsNames)
{
  SimpleNameSetProvider source;
  source.addName("A");
  SimpleNameSetProvider assigned;
  assigned.addName("Old");

  SimpleNameSetProvider copy(source);
  assigned = source;
  source.addName("B");
  copy.addName("C");

  EXPECT_TRUE(copy.contains("A"));
  EXPECT_FALSE(copy.contains("B"));
  EXPECT_FALSE(source.contains("C"));
  EXPECT_TRUE(assigned.contains("A"));
  EXPECT_FALSE(assigned.contains("B"));
  EXPECT_FALSE(assigned.contains("Old"));
}

TEST(NameSet, IsAskedThroughItsInterface)
{
  auto names = std::make_unique<SimpleNameSetProvider>();
  names->addName("A name that is too long to be kept within the string");

  const std::unique_ptr<NameSetProvider> provider = std::move(names);

  EXPECT_TRUE(provider->contains("A name that is too long to be kept within the string"));
  static_assert(std::has_virtual_destructor_v<NameSetProvider>);
  static_assert(std::is_abstract_v<NameSetProvider>);
}

}
}
