// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/CasterAccess.h"

#include "Support/Groups.h"
#include "Support/VirtualSlots.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <type_traits>

namespace Tarvik {
namespace {

template <class T>
using GroupCaster = CasterAccess<NameInterface, TKGroup<T>, 1, 0>;

void* next(void* pointer)
{
  return static_cast<char*>(pointer) + 1;
}

void* none(void*)
{
  return nullptr;
}

template <class T>
class GroupCasters : public ::testing::Test {};
TYPED_TEST_SUITE(GroupCasters, ElementIdentifiers, KindName);

TYPED_TEST(GroupCasters, CallTheirFunctionsWithThePointer)
{
  std::array<char, 2> places{};
  const std::unique_ptr<const Caster> caster = std::make_unique<GroupCaster<TypeParam>>(next, none);

  EXPECT_EQ(caster->toBase(places.data()), &places[1]);
  EXPECT_EQ(caster->toDerived(places.data()), nullptr);
}

TYPED_TEST(GroupCasters, HoldTwoZerosAndTheirTwoFunctions)
{
  const GroupCaster<TypeParam> caster(next, none);
  static_assert(sizeof caster == sizeof(Caster) + 4 * sizeof(void*));
  struct Fields {
    std::size_t first;
    std::size_t second;
    void* (*derivedToBase)(void*);
    void* (*baseToDerived)(void*);
  } fields{1, 1, nullptr, nullptr};

  std::memcpy(&fields, reinterpret_cast<const char*>(&caster) + sizeof(Caster), sizeof fields);

  EXPECT_EQ(fields.first, 0U);
  EXPECT_EQ(fields.second, 0U);
  EXPECT_EQ(fields.derivedToBase, &next);
  EXPECT_EQ(fields.baseToDerived, &none);
}

TEST(Casters, KeepTheOrderOfTheirVirtualOperations)
{
  EXPECT_EQ(virtualSlots(&Caster::toBase, &Caster::toDerived), slotsAfterDestructor(2));
  static_assert(std::has_virtual_destructor_v<Caster>);
}

}
}
