// SPDX-License-Identifier: MIT
#include "Identifier/Identifier.h"
#include "Identifier/GUIdentifier.h"

#include "Platform/Identifier/KnownIdentifiers.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace Tarvik {
namespace {

/// What both kinds of identifiers promise; `Ids` are the subjects.
template <class T>
class Ids : public ::testing::Test {};
TYPED_TEST_SUITE(Ids, ElementIdentifiers, KindName);

TYPED_TEST(Ids, AreNewAndValidUnlessGiven)
{
  const TypeParam one;
  const TypeParam other;

  EXPECT_TRUE(one.isValid());
  EXPECT_TRUE(other.isValid());
  EXPECT_FALSE(one == other);
  EXPECT_TRUE(one != other);
}

TYPED_TEST(Ids, CarryTheVersionAndTheVariantOfAUuidInTheirText)
{
  for (int i = 0; i < 100; ++i) {
    auto digits = TypeParam().toString();
    std::erase(digits, '-');
    EXPECT_EQ(digits[12], '8') << digits;
    EXPECT_NE(std::string("89ab").find(digits[16]), std::string::npos) << digits;
  }
}

TYPED_TEST(Ids, AreInvalidOnlyWhenAllBitsAreZero)
{
  EXPECT_FALSE(withBits<TypeParam>(0, 0).isValid());
  for (unsigned int bit = 0; bit < 64; ++bit) {
    EXPECT_TRUE(withBits<TypeParam>(1ULL << bit, 0).isValid()) << bit;
    EXPECT_TRUE(withBits<TypeParam>(0, 1ULL << bit).isValid()) << bit;
  }
}

TYPED_TEST(Ids, ShareOneInvalidId)
{
  const TypeParam& invalid = TypeParam::getInvalidId();

  EXPECT_FALSE(invalid.isValid());
  EXPECT_TRUE(invalid.bits().isZero());
  EXPECT_EQ(&TypeParam::getInvalidId(), &invalid);
  EXPECT_TRUE(invalid == withBits<TypeParam>(0, 0));
}

TYPED_TEST(Ids, KeepTheirBitsWhenCopied)
{
  const TypeParam source(knownBits);
  TypeParam assigned;

  const TypeParam copy(source); // NOLINT(performance-unnecessary-copy-initialization): the subject
  auto& result = (assigned = source);
  const auto& alias = assigned;
  assigned = alias;

  EXPECT_EQ(&result, &assigned);
  EXPECT_TRUE(copy.bits() == knownBits);
  EXPECT_TRUE(assigned.bits() == knownBits);
  EXPECT_TRUE(source == copy && source == assigned);
}

TYPED_TEST(Ids, AreSmallValues)
{
  static_assert(sizeof(TypeParam) == 16);
  static_assert(std::is_nothrow_copy_constructible_v<TypeParam>);
  static_assert(std::is_nothrow_copy_assignable_v<TypeParam>);
  static_assert(!std::is_convertible_v<IdentifierBits, TypeParam>);
  static_assert(std::is_trivially_copyable_v<Identifier>);
  static_assert(!std::is_trivially_destructible_v<GUIdentifier>);
}

}
}
