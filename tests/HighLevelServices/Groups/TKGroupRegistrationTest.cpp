// SPDX-License-Identifier: MIT
// The registration of groups while the library is loaded.

#include "HighLevelServices/Groups/PointerMapContainer.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Support/GroupRecords.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <concepts>
#include <memory>
#include <string>
#include <tuple>

namespace Tarvik {
namespace {

template <class T>
class GroupRecord : public ::testing::Test {};
TYPED_TEST_SUITE(GroupRecord, ElementIdentifiers, KindName);

auto fieldsOf(const BaseClassRegister& record)
{
  return std::tuple(record.load, record.save, record.create, record.runtimeClass,
                    record.createContainer, record.word, record.classHash, record.writeVersion,
                    record.readVersion, record.object, record.reserved);
}

template <class T>
struct UnregisteredKind : TKGroup<T> {};

template <class T>
struct RegisteredKind : TKGroup<T> {};

template <class Group>
concept IsSavedByAnyone = requires(const Group& group, PersistenceArchiver& archive)
{
  group.save(archive, 0U);
};

template <class Group>
concept IsLoadedByAnyone = requires(Group& group, PersistenceArchiver& archive)
{
  group.load(archive, 0U);
};

TYPED_TEST(GroupRecord, HasHappenedWhenTheLibraryIsLoaded)
{
  static_assert(
      std::same_as<decltype(TKGroup<TypeParam>::s_force_serialization_registration), bool>);
  EXPECT_TRUE(TKGroup<TypeParam>::s_force_serialization_registration);
  EXPECT_EQ(PersistenceArchiver::getHashForType(typeNameHash<TKGroup<TypeParam>>()),
            recordOf<TKGroup<TypeParam>>().classHash);
}

TYPED_TEST(GroupRecord, FillsTheWholeRecord)
{
  const auto record = recordOf<TKGroup<TypeParam>>();

  EXPECT_NE(record.load, nullptr);
  EXPECT_NE(record.save, nullptr);
  EXPECT_NE(record.create, nullptr);
  EXPECT_NE(record.runtimeClass, nullptr);
  EXPECT_NE(record.createContainer, nullptr);
  EXPECT_EQ(record.word, 1U);
  EXPECT_NE(record.classHash, 0U);
  EXPECT_NE(record.classHash, BaseClassRegister::unknownClassHash);
  EXPECT_EQ(record.writeVersion, 500001U);
  EXPECT_EQ(record.object, nullptr);
  EXPECT_EQ(record.reserved, nullptr);
}

TYPED_TEST(GroupRecord, GivesTheSameRecordEachTime)
{
  const auto first = recordOf<TKGroup<TypeParam>>();
  BaseClassRegister second;
  second.object = &second;
  second.reserved = &second;
  second.word = 99;

  TKGroup<TypeParam>::serialization_register(&second);

  EXPECT_EQ(fieldsOf(second), fieldsOf(first));
}

TEST(GroupRecords, KeepTheTwoKindsApart)
{
  const auto idGroup = recordOf<TKGroup<Identifier>>();
  const auto guidGroup = recordOf<TKGroup<GUIdentifier>>();

  EXPECT_NE(idGroup.classHash, guidGroup.classHash);
  EXPECT_NE(idGroup.load, guidGroup.load);
  EXPECT_NE(idGroup.save, guidGroup.save);
  EXPECT_NE(idGroup.create, guidGroup.create);
  EXPECT_NE(idGroup.runtimeClass, guidGroup.runtimeClass);
  EXPECT_NE(idGroup.createContainer, guidGroup.createContainer);
}

TYPED_TEST(GroupRecord, MakesNewGroups)
{
  const auto record = recordOf<TKGroup<TypeParam>>();

  const std::unique_ptr<TKGroup<TypeParam>> one(static_cast<TKGroup<TypeParam>*>(record.create()));
  const std::unique_ptr<TKGroup<TypeParam>> other(
      static_cast<TKGroup<TypeParam>*>(record.create()));

  EXPECT_EQ(list(*one), list(TKGroup<TypeParam>()));
  EXPECT_TRUE(one->getId().isValid());
  EXPECT_FALSE(one->getId() == other->getId());
}

TYPED_TEST(GroupRecord, MakesEmptyContainersOfSharedGroups)
{
  using Container = PointerMapContainer<TKGroup<TypeParam>>;
  const auto record = recordOf<TKGroup<TypeParam>>();

  const std::unique_ptr<MapContainer> made(record.createContainer());

  auto* const container = dynamic_cast<Container*>(made.get());
  ASSERT_NE(container, nullptr);
  EXPECT_EQ(container->getPointer(0), nullptr);
  EXPECT_EQ(container->getPointer(1), nullptr);
  container->addPointer(1, std::make_shared<TKGroup<TypeParam>>());
  EXPECT_NE(container->getPointer(1), nullptr);
}

TYPED_TEST(GroupRecord, KnowsTheRuntimeClassOfAGroup)
{
  const auto record = recordOf<TKGroup<TypeParam>>();
  TKGroup<TypeParam> group;

  EXPECT_EQ(runtimeClassOf(record, group), record.classHash);
}

TYPED_TEST(GroupRecord, KnowsNoRuntimeClassOfADerivedClassThatIsNotRegistered)
{
  UnregisteredKind<TypeParam> derived;

  EXPECT_EQ(runtimeClassOf(recordOf<TKGroup<TypeParam>>(), derived),
            BaseClassRegister::unknownClassHash);
}

TYPED_TEST(GroupRecord, KnowsTheRuntimeClassOfADerivedClassThatIsRegistered)
{
  const auto classHash =
      PersistenceArchiver::getHashForName("Special" + groupClassName<TypeParam>());
  PersistenceArchiver::registerHash(typeNameHash<RegisteredKind<TypeParam>>(), classHash);
  RegisteredKind<TypeParam> derived;

  EXPECT_EQ(runtimeClassOf(recordOf<TKGroup<TypeParam>>(), derived), classHash);
}

TYPED_TEST(GroupRecord, LetsOnlyTheArchiveSaveAndLoad)
{
  static_assert(!IsSavedByAnyone<TKGroup<TypeParam>>);
  static_assert(!IsLoadedByAnyone<TKGroup<TypeParam>>);
}

}
}
