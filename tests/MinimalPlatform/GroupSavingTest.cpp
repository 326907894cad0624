// SPDX-License-Identifier: MIT
// The calls of the archive when a group is saved, one by one.

#include "GroupEntries.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {
namespace {

template <class T>
class GroupSaving : public ::testing::Test {
protected:
  static constexpr bool hasIds = std::is_same_v<T, Identifier>;
  static inline const std::string kind = hasIds ? "Identifier" : "GUIdentifier";
  static inline const std::string saveMember =
      hasIds ? "save Identifier in version 12" : "save GUIdentifier in version 13";
};
TYPED_TEST_SUITE(GroupSaving, ElementIdentifiers, KindName);

TYPED_TEST(GroupSaving, WritesTheNameTheIdAndTheMembersInThisOrder)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto pumps = group("Pumps", {a, b});
  RecordedArchive archive{.position = 100};
  const Recording recording;

  save(pumps, archive);

  EXPECT_EQ(recording.calls(), (Calls{
                                   "tellp()",
                                   "NameInterface::serialization_register()",
                                   "mark_object_start(104, NameInterface)",
                                   "save NameInterface in version 11",
                                   "tellp()",
                                   "mark_object_end(104, 113)",
                                   "<< an Identifier",
                                   "tellp()",
                                   this->kind + "::serialization_register()",
                                   "mark_object_start(125, " + this->kind + ")",
                                   "<< 2",
                                   this->saveMember,
                                   this->saveMember,
                                   "tellp()",
                                   "mark_object_end(125, 149)",
                               }));
}

TYPED_TEST(GroupSaving, WritesTheValuesOfTheGroup)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto pumps = group("Pumps", {b, a});
  RecordedArchive archive;

  save(pumps, archive);

  const GroupBody<TypeParam> expected{.name = "Pumps", .id = pumps.getId(), .members = {b, a}};
  EXPECT_EQ(archive.values, expected.written().values);
}

TYPED_TEST(GroupSaving, WritesACountOfZeroForAGroupWithoutMembers)
{
  TKGroup<TypeParam> empty(std::string("Empty"));
  RecordedArchive archive{.position = 100};
  const Recording recording;

  save(empty, archive);

  EXPECT_EQ(recording.calls(), (Calls{
                                   "tellp()",
                                   "NameInterface::serialization_register()",
                                   "mark_object_start(104, NameInterface)",
                                   "save NameInterface in version 11",
                                   "tellp()",
                                   "mark_object_end(104, 113)",
                                   "<< an Identifier",
                                   "tellp()",
                                   this->kind + "::serialization_register()",
                                   "mark_object_start(125, " + this->kind + ")",
                                   "<< 0",
                                   "tellp()",
                                   "mark_object_end(125, 133)",
                               }));
}

TYPED_TEST(GroupSaving, CutsPositionsTo32Bits)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto pumps = group("Pumps", {a});
  RecordedArchive below{.position = 0xFFFFFFFE};
  const Recording recording;

  save(pumps, below);

  EXPECT_EQ(recording.calls()[2], "mark_object_start(2, NameInterface)");
  EXPECT_EQ(recording.calls()[5], "mark_object_end(2, 11)");
  EXPECT_EQ(recording.calls()[9], "mark_object_start(23, " + this->kind + ")");
  EXPECT_EQ(recording.calls().back(), "mark_object_end(23, 39)");
}

TYPED_TEST(GroupSaving, IsTheSameInEveryVersion)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto pumps = group("Pumps", {a});
  RecordedArchive expected;
  save(pumps, expected);

  for (const unsigned int version : {0U, 1U, 500000U, 500002U, 0xFFFFFFFFU}) {
    auto record = recordOf<TKGroup<TypeParam>>();
    record.writeVersion = version;
    RecordedArchive archive;
    save(pumps, archive, record);
    EXPECT_EQ(archive.values, expected.values) << "version " << version;
  }
}

TYPED_TEST(GroupSaving, LeavesTheGroupAsItIs)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto pumps = group("Pumps", {a, b});
  const auto before = pumps;
  RecordedArchive archive;

  save(pumps, archive);

  EXPECT_TRUE(identical(pumps, before)) << ::testing::PrintToString(list(pumps));
}

TYPED_TEST(GroupSaving, PassesOnWhatTheArchiveThrows)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto pumps = group("Pumps", {a});
  const std::size_t callsThatMayFail = 12;

  for (std::size_t calls = 0; calls < callsThatMayFail; ++calls) {
    RecordedArchive archive{.callsUntilFailure = calls};
    EXPECT_THROW(save(pumps, archive), std::runtime_error) << calls << " calls";
  }
  RecordedArchive archive{.callsUntilFailure = callsThatMayFail};
  EXPECT_NO_THROW(save(pumps, archive));
}

}
}
