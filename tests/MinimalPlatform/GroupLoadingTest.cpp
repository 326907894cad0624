// SPDX-License-Identifier: MIT
// The calls of the archive when a group is loaded, one by one, and the group after them.

#include "GroupEntries.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

constexpr auto unknown = BaseClassRegister::unknownClassHash;
constexpr unsigned int noVersion = 0xFFFFFFFF;

template <class T>
class GroupLoading : public ::testing::Test {
protected:
  static inline const std::string kind =
      std::is_same_v<T, Identifier> ? "Identifier" : "GUIdentifier";

  /// The calls that load a name and one member in the given versions.
  static Calls loadCalls(const BaseClassRegister& record, RecordedArchive archive)
  {
    TKGroup<T> group;
    const Recording recording;
    load(group, archive, record);
    Calls found;
    for (const auto& call : recording.calls())
      if (call.starts_with("load "))
        found.push_back(call);
    return found;
  }
  static Calls loadCalls(const RecordedArchive& archive)
  {
    return loadCalls(recordOf<TKGroup<T>>(), archive);
  }

  static BaseClassRegister classMet(unsigned int classHash, unsigned int readVersion)
  {
    BaseClassRegister record;
    record.classHash = classHash;
    record.readVersion = readVersion;
    return record;
  }

  static Identifier newId() { return {}; }

  const unsigned int nameClass = recordOf<NameInterface>().classHash;
  const unsigned int memberClass = recordOf<T>().classHash;
  const GroupBody<T> oneMember{.name = "Pumps", .members = std::vector<T>(1)};
};
TYPED_TEST_SUITE(GroupLoading, ElementIdentifiers, KindName);

TYPED_TEST(GroupLoading, ReadsTheNameTheIdAndTheMembersInThisOrder)
{
  const GroupBody<TypeParam> body{.name = "Pumps", .members = std::vector<TypeParam>(2)};
  auto archive = body.written();
  archive.classTable = {{this->nameClass, this->classMet(this->nameClass, 5)},
                        {this->memberClass, this->classMet(this->memberClass, 6)}};
  TKGroup<TypeParam> group;
  const Recording recording;

  load(group, archive);

  EXPECT_EQ(recording.calls(), (Calls{
                                   "read_to_address_header()",
                                   ">> NameInterface",
                                   "NameInterface::serialization_register()",
                                   "classTable()",
                                   "load NameInterface in version 5",
                                   "end_read_to_address(1004)",
                                   ">> an Identifier",
                                   "read_to_address_header()",
                                   ">> " + this->kind,
                                   ">> 2",
                                   "check_container_size(2)",
                                   this->kind + "::serialization_register()",
                                   "classTable()",
                                   "load " + this->kind + " in version 6",
                                   "load " + this->kind + " in version 6",
                                   "end_read_to_address(1025)",
                               }));
  EXPECT_TRUE(archive.values.empty()) << archive.values.size() << " values are left";
}

TYPED_TEST(GroupLoading, ReplacesNameIdAndMembers)
{
  const auto [a, b, x] = distinct<TypeParam, 3>();
  const GroupBody<TypeParam> body{.name = "New", .members = {b, a}};
  auto archive = body.written();
  auto loaded = group("Old", {x});

  load(loaded, archive);

  EXPECT_EQ(loaded.getName(), "New");
  EXPECT_EQ(loaded.getId(), body.id);
  EXPECT_EQ(loaded.getGroupMembers(), body.members);
}

TYPED_TEST(GroupLoading, TakesMembersAsTheyComeTheInvalidAndTheDoubleOnes)
{
  const auto [a] = distinct<TypeParam, 1>();
  const GroupBody<TypeParam> body{.members = {a, TypeParam::getInvalidId(), a}};
  auto archive = body.written();
  TKGroup<TypeParam> loaded;

  load(loaded, archive);

  EXPECT_EQ(loaded.getGroupMembers(), body.members);
}

TYPED_TEST(GroupLoading, EmptiesTheListForACountOfZero)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const GroupBody<TypeParam> body{.name = "Empty"};
  auto archive = body.written();
  auto loaded = group("Old", {a, b});
  const Recording recording;

  load(loaded, archive);

  EXPECT_EQ(list(loaded), list(group<TypeParam>("Empty", {})));
  EXPECT_EQ(recording.calls()[10], "check_container_size(0)");
  EXPECT_EQ(recording.calls().back(), "end_read_to_address(1025)");
}

TYPED_TEST(GroupLoading, IsTheSameInEveryVersion)
{
  const auto [a] = distinct<TypeParam, 1>();
  const GroupBody<TypeParam> body{.name = "Pumps", .members = {a}};
  auto expected = body.written();
  TKGroup<TypeParam> inOwnVersion;
  load(inOwnVersion, expected);

  for (const unsigned int version : {0U, 1U, 500000U, 500002U, noVersion}) {
    auto record = recordOf<TKGroup<TypeParam>>();
    record.readVersion = version;
    auto archive = body.written();
    TKGroup<TypeParam> loaded;
    load(loaded, archive, record);
    EXPECT_TRUE(identical(loaded, inOwnVersion)) << "version " << version;
    EXPECT_EQ(this->loadCalls(record, body.written()), this->loadCalls(body.written()))
        << "version " << version;
  }
}

TYPED_TEST(GroupLoading, TakesTheReadVersionsOfTheClassesMetInTheArchive)
{
  auto archive = this->oneMember.written();
  archive.classTable = {{this->nameClass, this->classMet(this->nameClass, 3)},
                        {this->memberClass, this->classMet(this->memberClass, 4)}};

  EXPECT_EQ(this->loadCalls(archive),
            (Calls{"load NameInterface in version 3", "load " + this->kind + " in version 4"}));
}

TYPED_TEST(GroupLoading, TakesTheReadVersionOfAnyOtherClassMetUnderTheHash)
{
  auto body = this->oneMember;
  body.nameClass = 51;
  body.memberClass = 52;
  auto archive = body.written();
  archive.classTable = {{51U, this->classMet(61, 3)}, {52U, this->classMet(62, 4)}};

  EXPECT_EQ(this->loadCalls(archive),
            (Calls{"load NameInterface in version 3", "load " + this->kind + " in version 4"}));
}

TYPED_TEST(GroupLoading, HasNoReadVersionOfAnEntryWithoutAClass)
{
  auto archive = this->oneMember.written();
  archive.classTable = {{this->nameClass, this->classMet(unknown, 3)},
                        {this->memberClass, this->classMet(unknown, 4)}};

  EXPECT_EQ(this->loadCalls(archive), (Calls{"load NameInterface in version none",
                                             "load " + this->kind + " in version none"}));
}

TYPED_TEST(GroupLoading, LeavesEntriesAsTheyAre)
{
  auto archive = this->oneMember.written();
  archive.classTable = {{this->nameClass, this->classMet(unknown, 3)},
                        {this->memberClass, this->classMet(this->memberClass, 4)}};
  TKGroup<TypeParam> group;

  load(group, archive);

  ASSERT_EQ(archive.classTable.size(), 2U);
  EXPECT_EQ(archive.classTable.at(this->nameClass).classHash, unknown);
  EXPECT_EQ(archive.classTable.at(this->nameClass).readVersion, 3U);
  EXPECT_EQ(archive.classTable.at(this->memberClass).readVersion, 4U);
}

TYPED_TEST(GroupLoading, ReadsInVersion0WhereTheArchiveNamesNoClass)
{
  auto body = this->oneMember;
  body.nameClass = unknown;
  body.memberClass = unknown;
  auto archive = body.written();
  archive.classTable = {{unknown, this->classMet(this->nameClass, 9)}};
  TKGroup<TypeParam> group;

  EXPECT_EQ(this->loadCalls(archive),
            (Calls{"load NameInterface in version 0", "load " + this->kind + " in version 0"}));
  load(group, archive);

  EXPECT_EQ(group.getGroupMembers(), body.members);
  EXPECT_EQ(archive.classTable.size(), 1U);
}

TYPED_TEST(GroupLoading, AddsTheRecordOfNamesForANameClassThatWasNotMet)
{
  auto body = this->oneMember;
  body.nameClass = 51;
  auto archive = body.written();
  TKGroup<TypeParam> group;

  load(group, archive);

  ASSERT_TRUE(archive.classTable.contains(51));
  const auto& added = archive.classTable.at(51);
  const auto expected = recordOf<NameInterface>();
  EXPECT_EQ(added.load, expected.load);
  EXPECT_EQ(added.save, expected.save);
  EXPECT_EQ(added.classHash, expected.classHash);
  EXPECT_EQ(added.writeVersion, expected.writeVersion);
  EXPECT_EQ(added.readVersion, noVersion);
  EXPECT_EQ(added.object, static_cast<NameInterface*>(&group));
  EXPECT_EQ(this->loadCalls(body.written()).front(), "load NameInterface in version none");
}

TYPED_TEST(GroupLoading, AddsAnEmptyEntryForAMemberClassThatWasNotMet)
{
  auto body = this->oneMember;
  body.memberClass = 52;
  auto archive = body.written();
  TKGroup<TypeParam> group;

  load(group, archive);

  ASSERT_TRUE(archive.classTable.contains(52));
  const auto& added = archive.classTable.at(52);
  EXPECT_EQ(added.load, nullptr);
  EXPECT_EQ(added.save, nullptr);
  EXPECT_EQ(added.word, 0U);
  EXPECT_EQ(added.classHash, unknown);
  EXPECT_EQ(added.writeVersion, noVersion);
  EXPECT_EQ(added.readVersion, noVersion);
  EXPECT_EQ(added.object, nullptr);
  EXPECT_EQ(this->loadCalls(body.written()).back(), "load " + this->kind + " in version none");
}

/// What is left of the group when so many calls succeed and the next one fails.
template <class T>
GroupView<T> leftAfter(std::size_t calls, const GroupBody<T>& body, TKGroup<T> before)
{
  auto archive = body.written();
  archive.callsUntilFailure = calls;
  EXPECT_THROW(load(before, archive), std::runtime_error) << calls << " calls";
  const std::string id = before.getId() == body.id ? " with the new id" : " with the old id";
  return {before.getName() + id, before.getGroupMembers()};
}

TYPED_TEST(GroupLoading, ReplacesNameThenIdThenOneMemberAfterTheOtherUntilTheArchiveThrows)
{
  const auto [a, b, x, y, z] = distinct<TypeParam, 5>();
  const GroupBody<TypeParam> body{.name = "New", .members = {a, b}};
  const auto before = group("Old", {x, y, z});
  using View = GroupView<TypeParam>;

  EXPECT_EQ(leftAfter(0, body, before), (View{"Old with the old id", {x, y, z}})) << "header";
  EXPECT_EQ(leftAfter(1, body, before), (View{"Old with the old id", {x, y, z}})) << "class hash";
  EXPECT_EQ(leftAfter(2, body, before), (View{"Old with the old id", {x, y, z}})) << "name";
  EXPECT_EQ(leftAfter(3, body, before), (View{"New with the old id", {x, y, z}})) << "end";
  EXPECT_EQ(leftAfter(4, body, before), (View{"New with the old id", {x, y, z}})) << "id";
  EXPECT_EQ(leftAfter(5, body, before), (View{"New with the new id", {x, y, z}})) << "header";
  EXPECT_EQ(leftAfter(6, body, before), (View{"New with the new id", {x, y, z}})) << "class hash";
  EXPECT_EQ(leftAfter(7, body, before), (View{"New with the new id", {x, y, z}})) << "count";
  EXPECT_EQ(leftAfter(8, body, before), (View{"New with the new id", {x, y, z}})) << "count check";
  EXPECT_EQ(leftAfter(9, body, before), (View{"New with the new id", {x, y}})) << "first member";
  EXPECT_EQ(leftAfter(10, body, before), (View{"New with the new id", {a, y}})) << "second member";
  EXPECT_EQ(leftAfter(11, body, before), (View{"New with the new id", {a, b}})) << "end";
}

TYPED_TEST(GroupLoading, AppendsNewIdentifiersWhereMembersAreMissingBeforeItReadsThem)
{
  const auto [a, b, c, x] = distinct<TypeParam, 4>();
  const GroupBody<TypeParam> body{.name = "New", .members = {a, b, c}};

  const auto left = leftAfter(10, body, group("Old", {x})).members;

  ASSERT_EQ(left.size(), 3U);
  EXPECT_EQ(left[0], a);
  EXPECT_TRUE(left[1].isValid());
  EXPECT_TRUE(left[2].isValid());
  EXPECT_FALSE(left[1] == b || left[1] == x || left[1] == left[2]);
}

}
}
