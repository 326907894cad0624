// SPDX-License-Identifier: MIT
#include "Identifier/Identifier.h"
#include "Identifier/GUIdentifier.h"

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Platform/Support/Archives.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace Tarvik {
namespace {

/// What both kinds of identifiers promise; `Ids` are the subjects.
template <class T>
class Ids : public ::testing::Test {};
TYPED_TEST_SUITE(Ids, ElementIdentifiers, KindName);

constexpr IdentifierBits knownBits{0x0123456789abcdef, 0xfedcba9876543210};

template <class T>
T withBits(std::uint64_t high, std::uint64_t low)
{
  return T(IdentifierBits{high, low});
}

/// 32 digits in the text form of an identifier.
template <class T>
std::string textOf(std::string digits)
{
  if constexpr (std::is_same_v<T, GUIdentifier>)
    for (const std::size_t hyphen : {20U, 16U, 12U, 8U})
      digits.insert(hyphen, 1, '-');
  return digits;
}

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

// Comparing

TYPED_TEST(Ids, AreEqualOnlyWhenAllBitsAre)
{
  const TypeParam known(knownBits);

  EXPECT_TRUE(known == TypeParam(knownBits));
  for (unsigned int bit = 0; bit < 64; ++bit) {
    EXPECT_FALSE(known == withBits<TypeParam>(knownBits.high ^ 1ULL << bit, knownBits.low)) << bit;
    EXPECT_FALSE(known == withBits<TypeParam>(knownBits.high, knownBits.low ^ 1ULL << bit)) << bit;
  }
}

TYPED_TEST(Ids, AreOrderedAsTheirTexts)
{
  std::mt19937_64 random(7);
  std::vector<TypeParam> ids = {withBits<TypeParam>(0, 0),
                                withBits<TypeParam>(0, ~0ULL),
                                withBits<TypeParam>(~0ULL, 0),
                                withBits<TypeParam>(~0ULL, ~0ULL),
                                withBits<TypeParam>(1ULL << 63U, 0),
                                withBits<TypeParam>(1, 1ULL << 63U),
                                withBits<TypeParam>(1, 0)};
  for (int i = 0; i < 50; ++i) {
    const auto high = random();
    ids.push_back(withBits<TypeParam>(high, random()));
    ids.push_back(withBits<TypeParam>(high, random()));
  }

  for (const auto& a : ids)
    for (const auto& b : ids) {
      const auto texts = a.toString() + " and " + b.toString();
      EXPECT_EQ(a < b, a.toString() < b.toString()) << texts;
      EXPECT_EQ(a <= b, a.toString() <= b.toString()) << texts;
      EXPECT_EQ(a > b, a.toString() > b.toString()) << texts;
      EXPECT_EQ(a >= b, a.toString() >= b.toString()) << texts;
      EXPECT_EQ(a == b, a.toString() == b.toString()) << texts;
    }
}

TYPED_TEST(Ids, WorkInSetsOfBothKinds)
{
  std::vector<TypeParam> ids(1000);
  std::set<TypeParam> ordered(ids.begin(), ids.end());
  std::unordered_set<TypeParam> hashed(ids.begin(), ids.end());

  for (const auto& id : ids) {
    ordered.insert(id);
    hashed.insert(id);
  }

  EXPECT_EQ(ordered.size(), ids.size());
  EXPECT_EQ(hashed.size(), ids.size());
  EXPECT_FALSE(hashed.contains(TypeParam()));
  EXPECT_FALSE(ordered.contains(TypeParam()));
}

TYPED_TEST(Ids, HaveTheHashOfTheirBits)
{
  const std::hash<TypeParam> hash{};

  EXPECT_EQ(hash(TypeParam(knownBits)), hash(TypeParam(knownBits)));
  EXPECT_EQ(hash(TypeParam(knownBits)), knownBits.hash());
  static_assert(std::is_nothrow_invocable_v<std::hash<TypeParam>, const TypeParam&>);
}

// Text

TYPED_TEST(Ids, AreWrittenInLowerCaseDigits)
{
  EXPECT_EQ(TypeParam(knownBits).toString(), textOf<TypeParam>("0123456789abcdef"
                                                               "fedcba9876543210"));
  EXPECT_EQ(TypeParam::getInvalidId().toString(), textOf<TypeParam>(std::string(32, '0')));
  EXPECT_EQ(withBits<TypeParam>(~0ULL, ~0ULL).toString(), textOf<TypeParam>(std::string(32, 'f')));
  EXPECT_EQ(withBits<TypeParam>(0, 1).toString(), textOf<TypeParam>(std::string(31, '0') + '1'));
}

TYPED_TEST(Ids, AreReadFromWhatTheyWrite)
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

TYPED_TEST(Ids, AreReadInUpperCaseToo)
{
  for (const auto* const digits :
       {"0123456789ABCDEFFEDCBA9876543210", "0123456789AbCdEffEdCbA9876543210",
        "0123456789abcdefFEDCBA9876543210"}) {
    const auto read = TypeParam::fromString(textOf<TypeParam>(digits));
    ASSERT_TRUE(read.has_value()) << digits;
    EXPECT_TRUE(read->bits() == knownBits) << digits;
  }
}

TYPED_TEST(Ids, AreReadFromAPartOfAText)
{
  const auto text = textOf<TypeParam>("0123456789abcdeffedcba9876543210");
  const auto longer = "id " + text + "0";

  const auto read = TypeParam::fromString(std::string_view(longer).substr(3, text.size()));

  ASSERT_TRUE(read.has_value());
  EXPECT_TRUE(read->bits() == knownBits);
}

TYPED_TEST(Ids, AreNotReadFromATextOfAnotherLength)
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

TYPED_TEST(Ids, AreNotReadFromATextWithAWrongCharacterAnywhere)
{
  const auto text = textOf<TypeParam>("0123456789abcdeffedcba9876543210");

  for (std::size_t place = 0; place < text.size(); ++place)
    for (const char wrong : std::string("gG/:@`xX+ {}().,_\t\n\x7f\x80\xc3\xb2\xff") + '\0') {
      auto damaged = text;
      damaged[place] = wrong;
      EXPECT_FALSE(TypeParam::fromString(damaged).has_value()) << damaged << ", place " << place;
    }
}

TYPED_TEST(Ids, AreNotReadFromATextWithSignOrPrefix)
{
  for (const std::string start : {"+", "-", " ", "0x", "0X", "\t", "\n"})
    for (const std::size_t word : {0U, 16U}) {
      std::string digits(32, '1');
      digits.replace(word, start.size(), start);
      EXPECT_FALSE(TypeParam::fromString(textOf<TypeParam>(digits)).has_value()) << digits;
    }
}

TYPED_TEST(Ids, AreNotReadFromDigitsInOtherScripts)
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

// Saving and loading

template <class T>
BaseClassRegister recordOf(T* object = nullptr)
{
  BaseClassRegister record;
  T::serialization_register(&record);
  record.object = object;
  return record;
}

constexpr std::string_view knownBytes = "ef cd ab 89 67 45 23 01 " // high word, lowest byte first
                                        "10 32 54 76 98 ba dc fe"; // low word

TYPED_TEST(Ids, HaveAClassRecordThatIsTheSameEveryTime)
{
  BaseClassRegister first;
  first.classHash = 1;
  first.object = &first;
  first.word = 7;
  TypeParam::serialization_register(&first);
  const auto second = recordOf<TypeParam>();

  EXPECT_EQ(first.classHash, PersistenceArchiver::getHashForName(KindName::GetName<TypeParam>(0)));
  EXPECT_EQ(first.writeVersion, 1U);
  EXPECT_EQ(first.readVersion, 1U);
  EXPECT_EQ(first.word, 16U);
  EXPECT_EQ(first.object, nullptr);
  EXPECT_NE(first.load, nullptr);
  EXPECT_NE(first.save, nullptr);
  EXPECT_NE(first.create, nullptr);
  EXPECT_EQ(second.load, first.load);
  EXPECT_EQ(second.save, first.save);
  EXPECT_EQ(second.create, first.create);
  EXPECT_EQ(second.runtimeClass, first.runtimeClass);
  EXPECT_EQ(second.createContainer, first.createContainer);
  EXPECT_EQ(second.classHash, first.classHash);
  EXPECT_EQ(second.writeVersion, first.writeVersion);
  EXPECT_EQ(second.readVersion, first.readVersion);
  EXPECT_EQ(second.word, first.word);
  EXPECT_EQ(second.reserved, first.reserved);
}

TYPED_TEST(Ids, AreCreatedByTheirRecord)
{
  const auto record = recordOf<TypeParam>();

  const std::unique_ptr<TypeParam> one(static_cast<TypeParam*>(record.create()));
  const std::unique_ptr<TypeParam> other(static_cast<TypeParam*>(record.create()));

  ASSERT_TRUE(one && other);
  EXPECT_TRUE(one->isValid());
  EXPECT_FALSE(*one == *other);
}

TYPED_TEST(Ids, AreSavedAsTwoWords)
{
  TypeParam known(knownBits);
  auto record = recordOf(&known);
  PersistenceArchiver archive;

  record.save(archive, record);

  EXPECT_EQ(bodyOf(archive), knownBytes);
  EXPECT_TRUE(known.bits() == knownBits);
}

TYPED_TEST(Ids, AreLoadedFromTwoWords)
{
  TypeParam loaded;
  auto record = recordOf(&loaded);
  const auto bytes = archiveAround(knownBytes);
  PersistenceArchiver archive(bytes);

  record.load(archive, record);

  EXPECT_EQ(loaded.toString(), TypeParam(knownBits).toString());
}

TYPED_TEST(Ids, StayTheSameWhenSavedAndLoaded)
{
  for (const TypeParam& id : {TypeParam(), TypeParam::getInvalidId(), TypeParam(knownBits)}) {
    TypeParam saved(id);
    auto record = recordOf(&saved);
    PersistenceArchiver archive;
    record.save(archive, record);

    TypeParam loaded;
    auto loadingRecord = recordOf(&loaded);
    PersistenceArchiver source(archive.finish());
    loadingRecord.load(source, loadingRecord);

    EXPECT_EQ(loaded.toString(), id.toString());
  }
}

TYPED_TEST(Ids, StayAsTheyAreWhenTheirArchiveIsCutOff)
{
  const auto complete = fromHex(knownBytes);
  for (std::ptrdiff_t length = 0; length < std::ssize(complete); ++length) {
    const TypeParam before;
    TypeParam id(before);
    auto record = recordOf(&id);
    const auto bytes = archiveAround(Bytes(complete.begin(), complete.begin() + length));
    PersistenceArchiver archive(bytes);

    EXPECT_THROW(record.load(archive, record), ArchiveError) << length << " bytes";
    EXPECT_TRUE(id == before) << length << " bytes";
  }
}

TEST(IdentifierStream, WritesTwoWordsForEachIdentifier)
{
  PersistenceArchiver archive;

  auto& result = archive << Identifier(knownBits) << Identifier::getInvalidId();

  EXPECT_EQ(&result, &archive);
  EXPECT_EQ(bodyOf(archive),
            std::string(knownBytes) + " 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(IdentifierStream, ReadsWhatItWrites)
{
  const Identifier first;
  const Identifier second(knownBits);
  PersistenceArchiver archive;
  archive << first << second;

  Identifier readFirst;
  Identifier readSecond;
  PersistenceArchiver source(archive.finish());
  auto& result = source >> readFirst >> readSecond;

  EXPECT_EQ(&result, &source);
  EXPECT_TRUE(readFirst == first);
  EXPECT_TRUE(readSecond == second);
}

TEST(IdentifierStream, LeavesTheIdentifierAsItIsWhenTheArchiveIsCutOff)
{
  const auto complete = fromHex(knownBytes);
  for (std::ptrdiff_t length = 0; length < std::ssize(complete); ++length) {
    const Identifier before;
    Identifier id(before);
    const auto bytes = archiveAround(Bytes(complete.begin(), complete.begin() + length));
    PersistenceArchiver archive(bytes);

    EXPECT_THROW(archive >> id, ArchiveError) << length << " bytes";
    EXPECT_TRUE(id == before) << length << " bytes";
  }
}

}
}
