// SPDX-License-Identifier: MIT
// Groups in a program whose registry takes casters but no classes. The casters alone decide whether
// groups can be saved and loaded.

#include "GroupEntries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <typeinfo>

namespace Tarvik {
namespace {

template <class T>
class RefusedClasses : public ::testing::Test {
protected:
  /// The record that the registry was asked to take.
  static BaseClassRegister given() { return RecordedRegistry::get().given.at(groupClassName<T>()); }
};
TYPED_TEST_SUITE(RefusedClasses, ElementIdentifiers, KindName);

TYPED_TEST(RefusedClasses, AreReported)
{
  EXPECT_FALSE(TKGroup<TypeParam>::s_force_serialization_registration);
}

TYPED_TEST(RefusedClasses, LeaveARecordThatIsToBeFilledAlone)
{
  BaseClassRegister record;
  record.word = 99;
  record.object = &record;

  TKGroup<TypeParam>::serialization_register(&record);

  EXPECT_EQ(record.load, nullptr);
  EXPECT_EQ(record.save, nullptr);
  EXPECT_EQ(record.create, nullptr);
  EXPECT_EQ(record.runtimeClass, nullptr);
  EXPECT_EQ(record.createContainer, nullptr);
  EXPECT_EQ(record.word, 99U);
  EXPECT_EQ(record.classHash, BaseClassRegister::unknownClassHash);
  EXPECT_EQ(record.writeVersion, 0xFFFFFFFF);
  EXPECT_EQ(record.readVersion, 0xFFFFFFFF);
  EXPECT_EQ(record.object, &record);
  EXPECT_EQ(record.reserved, nullptr);
}

TYPED_TEST(RefusedClasses, HaveCastersUnderTheHashOfTheirTypesName)
{
  const std::string type = typeid(TKGroup<TypeParam>).name();
  const std::string parentType = typeid(NameInterface).name();
  const auto& calls = RecordedRegistry::get().calls;

  EXPECT_EQ(
      std::count(calls.begin(), calls.end(), "registerCaster(" + parentType + ", " + type + ")"),
      2);
  EXPECT_TRUE(RecordedRegistry::get().classHashesOfTypes.empty());
}

TYPED_TEST(RefusedClasses, HaveNoRuntimeClass)
{
  TKGroup<TypeParam> group;

  EXPECT_EQ(runtimeClassOf(this->given(), group), BaseClassRegister::unknownClassHash);
}

TYPED_TEST(RefusedClasses, AreSavedAndLoadedByWhoeverHasTheirEntries)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto saved = group("Pumps", {a, b});
  RecordedArchive archive;
  TKGroup<TypeParam> loaded;

  save(saved, archive, this->given());
  load(loaded, archive, this->given());

  EXPECT_TRUE(identical(loaded, saved)) << ::testing::PrintToString(list(loaded));
}

}
}
