// SPDX-License-Identifier: MIT
// The calls of the registry while the library is loaded, one by one.

#include "HighLevelServices/Groups/TKGroupPersistence.h"
#include "RecordedRegistry.h"
#include "Support/GroupRecords.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace Tarvik {
namespace {

using Calls = std::vector<std::string>;

/// The calls of the registry before the first test ran.
const Calls& callsAtLoad()
{
  static const Calls calls = RecordedRegistry::get().calls;
  return calls;
}

struct KeepCallsAtLoad : ::testing::Environment {
  void SetUp() override { callsAtLoad(); }
};
const auto* const keepCallsAtLoad = ::testing::AddGlobalTestEnvironment(new KeepCallsAtLoad);

template <class C>
std::string typeName()
{
  return typeid(C).name();
}

template <class T>
Calls classRegistration()
{
  const auto type = typeName<TKGroup<T>>();
  const auto name = groupClassName<T>();
  return {"registerFactory(" + name + ", 500001)", "getHashForName(" + type + ")",
          "registerHash(" + type + ", " + name + ")"};
}

/// The parent has the hash of its type's name, since this platform's NameInterface does not
/// register its type.
template <class T>
Calls casterRegistration()
{
  const auto type = typeName<TKGroup<T>>();
  const auto parentType = typeName<NameInterface>();
  return {"NameInterface::serialization_register()",
          "getHashForName(" + type + ")",
          "getHashForType(" + type + ")",
          "getHashForName(" + parentType + ")",
          "getHashForType(" + parentType + ")",
          "registerCaster(" + parentType + ", " + groupClassName<T>() + ")"};
}

Calls inTurn(const std::vector<Calls>& parts)
{
  Calls all;
  for (const auto& part : parts)
    all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST(RegistrationAtLoad, RegistersBothClassesAndThenTwoCastersForEach)
{
  ASSERT_NE(keepCallsAtLoad, nullptr);
  EXPECT_EQ(callsAtLoad(),
            inTurn({classRegistration<Identifier>(), classRegistration<GUIdentifier>(),
                    casterRegistration<Identifier>(), casterRegistration<Identifier>(),
                    casterRegistration<GUIdentifier>(), casterRegistration<GUIdentifier>()}));
}

template <class T>
class Registration : public ::testing::Test {
protected:
  using Group = TKGroup<T>;

  /// The casters registered for this kind of groups.
  static std::vector<const Caster*> casters()
  {
    std::vector<const Caster*> found;
    for (const auto& [parentHash, childHash, caster] : RecordedRegistry::get().casters)
      if (childHash == recordOf<Group>().classHash)
        found.push_back(caster);
    return found;
  }
};
TYPED_TEST_SUITE(Registration, ElementIdentifiers, KindName);

TYPED_TEST(Registration, HandsOverARecordWithoutClassHashAndObject)
{
  const auto& given = RecordedRegistry::get().given.at(groupClassName<TypeParam>());

  EXPECT_NE(given.load, nullptr);
  EXPECT_NE(given.save, nullptr);
  EXPECT_NE(given.create, nullptr);
  EXPECT_NE(given.runtimeClass, nullptr);
  EXPECT_NE(given.createContainer, nullptr);
  EXPECT_EQ(given.word, 1U);
  EXPECT_EQ(given.classHash, 0U);
  EXPECT_EQ(given.writeVersion, 500001U);
  EXPECT_EQ(given.readVersion, 500001U);
  EXPECT_EQ(given.object, nullptr);
  EXPECT_EQ(given.reserved, nullptr);
}

TYPED_TEST(Registration, AsksNothingMoreOfTheRegistryOnceItHasHappened)
{
  const Recording recording;

  recordOf<TKGroup<TypeParam>>();
  recordOf<TKGroup<TypeParam>>();

  EXPECT_EQ(recording.calls(), Calls());
}

TYPED_TEST(Registration, GivesOutTheRecordThatTheRegistryHolds)
{
  auto& registered = RecordedRegistry::get().registered.at(groupClassName<TypeParam>());

  registered.reserved = &registered;
  const auto record = recordOf<TKGroup<TypeParam>>();
  registered.reserved = nullptr;

  EXPECT_EQ(record.reserved, &registered);
}

TYPED_TEST(Registration, AsksForTheRuntimeClassByTheNameOfTheObjectsType)
{
  struct Derived : TKGroup<TypeParam> {};
  const auto record = recordOf<TKGroup<TypeParam>>();
  TKGroup<TypeParam> group;
  Derived derived;
  const Recording recording;

  runtimeClassOf(record, group);
  runtimeClassOf(record, derived);

  const auto type = typeName<TKGroup<TypeParam>>();
  const auto derivedType = typeName<Derived>();
  EXPECT_EQ(recording.calls(),
            (Calls{"getHashForName(" + type + ")", "getHashForType(" + type + ")",
                   "getHashForName(" + derivedType + ")", "getHashForType(" + derivedType + ")"}));
}

TYPED_TEST(Registration, GivesTheRegistryTwoCastersOfTheirOwn)
{
  const auto casters = this->casters();

  ASSERT_EQ(casters.size(), 2U);
  EXPECT_NE(casters[0], casters[1]);
  for (const auto* const caster : casters)
    EXPECT_NE((dynamic_cast<const CasterAccess<NameInterface, TKGroup<TypeParam>, 1, 0>*>(caster)),
              nullptr);
}

TYPED_TEST(Registration, LetsPointersToGroupsBecomePointersToNamesAndBack)
{
  TKGroup<TypeParam> group;
  NameInterface& named = group;

  for (const auto* const caster : this->casters()) {
    EXPECT_EQ(caster->toBase(&group), &named);
    EXPECT_EQ(caster->toDerived(&named), &group);
  }
}

TYPED_TEST(Registration, LetsNothingElseBecomeAPointerToAGroup)
{
  using OtherKind =
      std::conditional_t<std::is_same_v<TypeParam, Identifier>, GUIdentifier, Identifier>;
  NameInterface onlyNamed;
  TKGroup<OtherKind> otherGroup;
  NameInterface& otherNamed = otherGroup;

  for (const auto* const caster : this->casters()) {
    EXPECT_EQ(caster->toDerived(&onlyNamed), nullptr);
    EXPECT_EQ(caster->toDerived(&otherNamed), nullptr);
    EXPECT_EQ(caster->toDerived(nullptr), nullptr);
    EXPECT_EQ(caster->toBase(nullptr), nullptr);
  }
}

TEST(RegisteredVersion, IsTheOneAskedFor)
{
  const Recording recording;

  EXPECT_EQ(GroupPersistence::versionOrCurrent(500001), 500001U);
  EXPECT_EQ(GroupPersistence::versionOrCurrent(0), 0U);

  EXPECT_EQ(recording.calls(), Calls());
}

TEST(RegisteredVersion, IsTheCurrentOneWhenNoneIsAskedFor)
{
  const Recording recording;

  EXPECT_EQ(GroupPersistence::versionOrCurrent(0xFFFFFFFF), 77U);

  EXPECT_EQ(recording.calls(), Calls{"getCurrentVersion(0)"});
}

}
}
