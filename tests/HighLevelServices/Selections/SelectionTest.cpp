// SPDX-License-Identifier: MIT

/// Selections that are taken out of random lists all at once, by hash and by comparing, against the
/// walk that takes one element after another.
///
/// 75,000 cases for each kind of identifier, way of finding and operation run by default. A longer
/// run from another seed:
///   TKM_SELECTION_CASES=10000000 TKM_SELECTION_SEED=2 build/dev/bin/SelectionTests

#include "HighLevelServices/GroupCommands/Selection.h"
#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "OwnIdentifier.h"
#include "Support/Groups.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

using namespace GroupLists;

std::uint64_t setting(const char* name, std::uint64_t otherwise)
{
  const char* const value = std::getenv(name);
  return value == nullptr ? otherwise : std::stoull(value);
}

template <class T>
using Groups = std::vector<TKGroup<T>>;

/// A list of groups, a selection and a place for it. Few different identifiers, so that members and
/// elements repeat and groups share members.
template <class T>
struct Case {
  Groups<T> groups;
  std::vector<T> elements;
  std::size_t target = 0;
  int index = -1;
};

template <class T>
class RandomCases {
public:
  explicit RandomCases(std::uint64_t seed) : m_random(seed) {}

  Case<T> next()
  {
    m_numberOfIdentifiers = upTo(m_identifiers.size());
    Case<T> result;
    result.groups.resize(upTo(4));
    for (auto& group : result.groups)
      group.addGroupMembersAtIndex(identifiers(upTo(16) - 1), -1);
    result.elements = identifiers(upTo(12) - 1);
    result.target = upTo(result.groups.size()) - 1;
    result.index = static_cast<int>(upTo(20)) - 3;
    return result;
  }

private:
  /// 1 to most.
  std::size_t upTo(std::size_t most) { return static_cast<std::size_t>(m_random() % most) + 1; }

  std::vector<T> identifiers(std::size_t count)
  {
    std::vector<T> result;
    for (std::size_t i = 0; i < count; ++i)
      result.push_back(m_identifiers[upTo(m_numberOfIdentifiers) - 1]);
    return result;
  }

  std::mt19937_64 m_random;
  std::vector<T> m_identifiers = std::vector<T>(24);
  std::size_t m_numberOfIdentifiers = 1;
};

/// A list in which the elements are members of several groups, and which holds some twice.
template <class T>
Case<T> manyOf(std::size_t count)
{
  std::mt19937_64 random(1);
  const std::vector<T> identifiers(count);
  const auto some = [&] {
    std::vector<T> result;
    for (std::size_t i = 0; i < count; ++i)
      result.push_back(identifiers[static_cast<std::size_t>(random() % count)]);
    return result;
  };
  Case<T> result;
  result.groups.resize(5);
  for (auto& group : result.groups)
    group.addGroupMembersAtIndex(some(), -1);
  result.elements = some();
  result.target = 2;
  result.index = static_cast<int>(count / 2);
  return result;
}

/// Where searches may divide the members of a group.
constexpr std::array<std::size_t, 12> placesInPieces = {0,   126,  127,  128,  129,  255,
                                                        256, 1023, 1024, 1025, 2047, 2048};
constexpr std::array<std::size_t, 10> sizesInPieces = {1,   127,  128,  129,  256,
                                                       257, 1024, 1025, 2048, 2049};

/// Two groups of so many members, and elements where searches may divide them: one in each group,
/// and one of them twice.
template <class T>
Case<T> longGroups(std::size_t size, std::size_t index)
{
  Case<T> result;
  result.groups.resize(2);
  for (auto& group : result.groups) {
    const std::vector<T> members(size);
    group.addGroupMembersAtIndex(members, -1);
    for (const auto place : placesInPieces) {
      if (place < size)
        result.elements.push_back(members[place]);
    }
    result.elements.push_back(members.back());
  }
  result.target = 1;
  result.index = static_cast<int>(index);
  return result;
}

template <class T>
void takeOutOfFirstHolder(Groups<T>& groups, const T& element)
{
  for (auto& group : groups) {
    if (group.removeGroupMember(element))
      return;
  }
}

template <class T>
void walkOut(Case<T>& each)
{
  for (const T& element : each.elements)
    takeOutOfFirstHolder(each.groups, element);
}

/// Element by element; lowers the index of the case.
template <class T>
void walkIn(Case<T>& each)
{
  for (const T& element : each.elements) {
    const auto& members = each.groups[each.target].getGroupMembers();
    const auto found = std::find(members.begin(), members.end(), element);
    if (found != members.end() && found - members.begin() < each.index)
      --each.index;
    takeOutOfFirstHolder(each.groups, element);
  }
  each.groups[each.target].addGroupMembersAtIndex(each.elements, each.index);
}

template <class T>
bool isSame(const Case<T>& a, const Case<T>& b)
{
  return a.index == b.index && identical(a.groups, b.groups);
}

template <class T>
std::string text(const Case<T>& each)
{
  return ::testing::PrintToString(view(each.groups)) + "\nelements " +
         ::testing::PrintToString(each.elements) + " into group " + std::to_string(each.target) +
         " at " + std::to_string(each.index);
}

template <class T>
void setMembers(TKGroup<T>& group, std::vector<T> members)
{
  MemberLists<T>::swap(group, members);
}

template <class E>
class SelectionOfElements;

template <class T, template <class> class Elements>
class SelectionOfElements<Elements<T>> : public ::testing::Test {
public:
  using Identifiers = T;
  using Selected = Selection<T, Elements<T>>;

  static void takeOut(Case<T>& each)
  {
    Selected selection(each.elements);
    for (auto& group : each.groups)
      setMembers(group, selection.takeOutOf(group.getGroupMembers()));
  }

  static void moveIn(Case<T>& each)
  {
    Selected selection(each.elements);
    for (std::size_t i = 0; i < each.groups.size(); ++i) {
      const auto& members = each.groups[i].getGroupMembers();
      setMembers(each.groups[i], i == each.target ? selection.moveInto(members, each.index)
                                                  : selection.takeOutOf(members));
    }
  }

  /// Does the same in two ways to many cases and reports the first one where they differ.
  template <class Expected, class Found>
  static void compare(Expected doAsExpected, Found doAsFound)
  {
    RandomCases<T> cases(setting("TKM_SELECTION_SEED", 1));
    const auto count = setting("TKM_SELECTION_CASES", 75000);
    for (std::uint64_t i = 0; i < count; ++i) {
      const auto start = cases.next();
      auto expected = start;
      auto found = start;
      doAsExpected(expected);
      doAsFound(found);
      if (!isSame(found, expected))
        FAIL() << "Case " << i << ":\n"
               << text(start) << "\nexpected:\n"
               << text(expected) << "\nfound:\n"
               << text(found);
    }
  }
};

using Ways = ::testing::Types<HashSearch<Identifier>,
                              HashSearch<GUIdentifier>,
                              HashSearch<OwnIdentifier<PlainHash>>,
                              HashSearch<OwnIdentifier<EqualQuickHashes>>,
                              HashSearch<OwnIdentifier<EqualHashes>>,
                              ComparingSearch<Identifier>,
                              ComparingSearch<GUIdentifier>>;

struct WayName {
  template <class E>
  static std::string GetName(int)
  {
    return nameOf(static_cast<E*>(nullptr));
  }

private:
  template <class T>
  static std::string nameOf(HashSearch<T>*)
  {
    return "Hashed" + KindName::GetName<T>(0);
  }
  template <class T>
  static std::string nameOf(ComparingSearch<T>*)
  {
    return "Compared" + KindName::GetName<T>(0);
  }
  static std::string nameOf(HashSearch<OwnIdentifier<PlainHash>>*) { return "WithPlainHash"; }
  static std::string nameOf(HashSearch<OwnIdentifier<EqualQuickHashes>>*)
  {
    return "WithEqualQuickHashes";
  }
  static std::string nameOf(HashSearch<OwnIdentifier<EqualHashes>>*) { return "WithEqualHashes"; }
};

TYPED_TEST_SUITE(SelectionOfElements, Ways, WayName);

TYPED_TEST(SelectionOfElements, LeaveTheirGroupsAsInTheWalk)
{
  TestFixture::compare(walkOut<typename TestFixture::Identifiers>, TestFixture::takeOut);
}

TYPED_TEST(SelectionOfElements, GoIntoAGroupAsInTheWalk)
{
  TestFixture::compare(walkIn<typename TestFixture::Identifiers>, TestFixture::moveIn);
}

TYPED_TEST(SelectionOfElements, LeaveTheirGroupsByTheThousandAsInTheWalk)
{
  auto expected = manyOf<typename TestFixture::Identifiers>(3000);
  auto found = expected;

  walkOut(expected);
  TestFixture::takeOut(found);

  EXPECT_TRUE(isSame(found, expected));
}

TYPED_TEST(SelectionOfElements, GoIntoAGroupByTheThousandAsInTheWalk)
{
  auto expected = manyOf<typename TestFixture::Identifiers>(3000);
  auto found = expected;

  walkIn(expected);
  TestFixture::moveIn(found);

  EXPECT_TRUE(isSame(found, expected));
}

TYPED_TEST(SelectionOfElements, LeaveLongGroupsAsInTheWalk)
{
  for (const auto size : sizesInPieces) {
    auto expected = longGroups<typename TestFixture::Identifiers>(size, 0);
    auto found = expected;

    walkOut(expected);
    TestFixture::takeOut(found);

    EXPECT_TRUE(isSame(found, expected)) << size << " members";
  }
}

TYPED_TEST(SelectionOfElements, GoIntoALongGroupAsInTheWalk)
{
  for (const auto size : sizesInPieces) {
    for (const auto index : placesInPieces) {
      auto expected = longGroups<typename TestFixture::Identifiers>(size, index);
      auto found = expected;

      walkIn(expected);
      TestFixture::moveIn(found);

      EXPECT_TRUE(isSame(found, expected)) << size << " members, at " << index;
    }
  }
}

}
}
