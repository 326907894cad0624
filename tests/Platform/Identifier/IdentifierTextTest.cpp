// SPDX-License-Identifier: MIT
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include "Platform/Identifier/KnownIdentifiers.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

/// How both kinds of identifiers are written as text, and read.
template <class T>
class IdsAsText : public ::testing::Test {};
TYPED_TEST_SUITE(IdsAsText, ElementIdentifiers, KindName);

/// 32 digits in the text form of an identifier.
template <class T>
std::string textOf(std::string digits)
{
  if constexpr (std::is_same_v<T, GUIdentifier>)
    for (const std::size_t hyphen : {20U, 16U, 12U, 8U})
      digits.insert(hyphen, 1, '-');
  return digits;
}

TYPED_TEST(IdsAsText, AreWrittenInLowerCaseDigits)
{
  EXPECT_EQ(TypeParam(knownBits).toString(), textOf<TypeParam>("0123456789abcdef"
                                                               "fedcba9876543210"));
  EXPECT_EQ(TypeParam::getInvalidId().toString(), textOf<TypeParam>(std::string(32, '0')));
  EXPECT_EQ(withBits<TypeParam>(~0ULL, ~0ULL).toString(), textOf<TypeParam>(std::string(32, 'f')));
  EXPECT_EQ(withBits<TypeParam>(0, 1).toString(), textOf<TypeParam>(std::string(31, '0') + '1'));
}

TYPED_TEST(IdsAsText, AreReadFromWhatTheyWrite)
{
  std::mt19937_64 random(11);
  std::vector<TypeParam> ids = {TypeParam(), TypeParam::getInvalidId(),
                                withBits<TypeParam>(~0ULL, ~0ULL), withBits<TypeParam>(1, 0),
                                withBits<TypeParam>(0, 1)};
  for (int i = 0; i < 100; ++i) {
    const auto high = random();
    ids.push_back(withBits<TypeParam>(high, random()));
  }

  for (const auto& id : ids) {
    const auto read = TypeParam::fromString(id.toString());
    ASSERT_TRUE(read.has_value()) << id.toString();
    EXPECT_EQ(read->toString(), id.toString());
    EXPECT_TRUE(*read == id) << id.toString();
  }
}

TYPED_TEST(IdsAsText, AreReadInUpperCaseToo)
{
  for (const auto* const digits :
       {"0123456789ABCDEFFEDCBA9876543210", "0123456789AbCdEffEdCbA9876543210",
        "0123456789abcdefFEDCBA9876543210"}) {
    const auto read = TypeParam::fromString(textOf<TypeParam>(digits));
    ASSERT_TRUE(read.has_value()) << digits;
    EXPECT_TRUE(read->bits() == knownBits) << digits;
  }
}

TYPED_TEST(IdsAsText, AreReadFromAPartOfAText)
{
  const auto text = textOf<TypeParam>("0123456789abcdeffedcba9876543210");
  const auto longer = "id " + text + "0";

  const auto read = TypeParam::fromString(std::string_view(longer).substr(3, text.size()));

  ASSERT_TRUE(read.has_value());
  EXPECT_TRUE(read->bits() == knownBits);
}

TYPED_TEST(IdsAsText, AreNotReadFromATextOfAnotherLength)
{
  const auto text = textOf<TypeParam>("0123456789abcdeffedcba9876543210");

  for (std::size_t length = 0; length < text.size(); ++length)
    EXPECT_FALSE(TypeParam::fromString(text.substr(0, length)).has_value()) << length;
  for (const char more : {'0', '-', ' ', '\n', '}', '\0'}) {
    EXPECT_FALSE(TypeParam::fromString(text + more).has_value()) << text + more;
    EXPECT_FALSE(TypeParam::fromString(more + text).has_value()) << more + text;
  }
  EXPECT_FALSE(TypeParam::fromString('{' + text + '}').has_value());
  EXPECT_FALSE(TypeParam::fromString("urn:uuid:" + text).has_value());
  EXPECT_FALSE(TypeParam::fromString("0x" + text).has_value());
  EXPECT_FALSE(TypeParam::fromString(text + text).has_value());
  EXPECT_FALSE(TypeParam::fromString(std::string_view()).has_value());
}

TYPED_TEST(IdsAsText, AreNotReadFromATextWithAWrongCharacterAnywhere)
{
  const auto text = textOf<TypeParam>("0123456789abcdeffedcba9876543210");

  for (std::size_t place = 0; place < text.size(); ++place)
    for (const char wrong : std::string("gG/:@`xX+ {}().,_\t\n\x7f\x80\xc3\xb2\xff") + '\0') {
      auto damaged = text;
      damaged[place] = wrong;
      EXPECT_FALSE(TypeParam::fromString(damaged).has_value()) << damaged << ", place " << place;
    }
}

TYPED_TEST(IdsAsText, AreNotReadFromATextWithSignOrPrefix)
{
  for (const std::string start : {"+", "-", " ", "0x", "0X", "\t", "\n"})
    for (const std::size_t word : {0U, 16U}) {
      std::string digits(32, '1');
      digits.replace(word, start.size(), start);
      EXPECT_FALSE(TypeParam::fromString(textOf<TypeParam>(digits)).has_value()) << digits;
    }
}

TYPED_TEST(IdsAsText, AreNotReadFromDigitsInOtherScripts)
{
  std::string digits(28, '1');
  digits += "\xd9\xa1\xd9\xa1"; // two Arabic ones, 32 bytes in all

  EXPECT_FALSE(TypeParam::fromString(textOf<TypeParam>(digits)).has_value());
}

TEST(IdentifierText, HasNoHyphens)
{
  EXPECT_FALSE(Identifier::fromString("01234567-89ab-cdef-fedc-ba9876543210").has_value());
  EXPECT_FALSE(Identifier::fromString("01234567-89ab-cdef-fedc-ba987654").has_value());
}

TEST(GUIdentifierText, HasItsHyphensAtTheirPlacesOnly)
{
  const std::string digits = "0123456789abcdeffedcba9876543210";
  ASSERT_TRUE(GUIdentifier::fromString("01234567-89ab-cdef-fedc-ba9876543210").has_value());

  EXPECT_FALSE(GUIdentifier::fromString(digits).has_value());
  for (const std::string wrong :
       {"0123456-789ab-cdef-fedc-ba9876543210", "012345678-9ab-cdef-fedc-ba9876543210",
        "01234567-89abc-def-fedc-ba9876543210", "01234567-89ab-cdeff-edc-ba9876543210",
        "01234567-89ab-cdef-fedcb-a9876543210", "----0123456789abcdeffedcba9876543210",
        "0123456789abcdeffedcba9876543210----", "01234567--89ab-cdef-fedcba9876543210",
        "01234567-89ab-cdef-fedc-ba987654321-", "------------------------------------"})
    EXPECT_FALSE(GUIdentifier::fromString(wrong).has_value()) << wrong;
  for (const std::size_t hyphen : {8U, 13U, 18U, 23U})
    for (const char other : {'0', 'a', ' ', '_', '+'}) {
      std::string wrong = "01234567-89ab-cdef-fedc-ba9876543210";
      wrong[hyphen] = other;
      EXPECT_FALSE(GUIdentifier::fromString(wrong).has_value()) << wrong;
    }
}

TEST(GUIdentifierText, IsThatOfKnownUuids)
{
  struct Known {
    std::string text;
    IdentifierBits bits;
  };
  const std::vector<Known> known = {
      {"00000000-0000-0000-0000-000000000000", {0, 0}},
      {"ffffffff-ffff-ffff-ffff-ffffffffffff", {~0ULL, ~0ULL}},
      {"6ba7b810-9dad-11d1-80b4-00c04fd430c8", {0x6ba7b8109dad11d1, 0x80b400c04fd430c8}},
      {"919108f7-52d1-4320-9bac-f847db4148a8", {0x919108f752d14320, 0x9bacf847db4148a8}},
      {"2ed6657d-e927-568b-95e1-2665a8aea6a2", {0x2ed6657de927568b, 0x95e12665a8aea6a2}},
      {"017f22e2-79b0-7cc3-98c4-dc0c0c07398f", {0x017f22e279b07cc3, 0x98c4dc0c0c07398f}}};

  for (const auto& [text, bits] : known) {
    EXPECT_EQ(GUIdentifier(bits).toString(), text);
    const auto read = GUIdentifier::fromString(text);
    ASSERT_TRUE(read.has_value()) << text;
    EXPECT_TRUE(read->bits() == bits) << text;
  }
}

}
}
