// SPDX-License-Identifier: MIT
// Groups in a program whose registry takes no casters.

#include "GroupEntries.h"

#include <gtest/gtest.h>

namespace Tarvik {
namespace {

template <class T>
class RefusedCasters : public ::testing::Test {};
TYPED_TEST_SUITE(RefusedCasters, ElementIdentifiers, KindName);

TYPED_TEST(RefusedCasters, LeaveTheClassRegistered)
{
  EXPECT_TRUE(TKGroup<TypeParam>::s_force_serialization_registration);
  EXPECT_EQ(recordOf<TKGroup<TypeParam>>().classHash,
            PersistenceArchiver::getHashForName(groupClassName<TypeParam>()));
}

TYPED_TEST(RefusedCasters, KeepGroupsFromBeingSaved)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto pumps = group("Pumps", {a});
  RecordedArchive archive;
  const Recording recording;

  EXPECT_EQ(failureOf([&] { save(pumps, archive); }), "Parent not registered");

  EXPECT_EQ(recording.calls(), Calls());
  EXPECT_TRUE(archive.values.empty());
}

TYPED_TEST(RefusedCasters, KeepGroupsFromBeingLoaded)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const GroupBody<TypeParam> body{.name = "New", .members = {b}};
  auto archive = body.written();
  auto pumps = group("Old", {a});
  const auto before = pumps;
  const Recording recording;

  EXPECT_EQ(failureOf([&] { load(pumps, archive); }), "Parent not registered");

  EXPECT_EQ(recording.calls(), Calls());
  EXPECT_EQ(archive.values, body.written().values);
  EXPECT_TRUE(identical(pumps, before)) << ::testing::PrintToString(list(pumps));
}

TYPED_TEST(RefusedCasters, KeepGroupsFromBeingSavedAndLoadedInEveryVersion)
{
  TKGroup<TypeParam> group;
  RecordedArchive archive;
  auto record = recordOf<TKGroup<TypeParam>>();

  for (const unsigned int version : {0U, 500002U, 0xFFFFFFFFU}) {
    record.writeVersion = version;
    record.readVersion = version;
    EXPECT_EQ(failureOf([&] { save(group, archive, record); }), "Parent not registered");
    EXPECT_EQ(failureOf([&] { load(group, archive, record); }), "Parent not registered");
  }
}

}
}
