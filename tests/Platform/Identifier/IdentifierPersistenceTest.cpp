// SPDX-License-Identifier: MIT
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Platform/Identifier/KnownIdentifiers.h"
#include "Platform/Support/Archives.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace Tarvik {
namespace {

/// How both kinds of identifiers are saved to an archive, and loaded.
template <class T>
class SavedIds : public ::testing::Test {};
TYPED_TEST_SUITE(SavedIds, ElementIdentifiers, KindName);

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

TYPED_TEST(SavedIds, HaveAClassRecordThatIsTheSameEveryTime)
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

TYPED_TEST(SavedIds, AreCreatedByTheirRecord)
{
  const auto record = recordOf<TypeParam>();

  const std::unique_ptr<TypeParam> one(static_cast<TypeParam*>(record.create()));
  const std::unique_ptr<TypeParam> other(static_cast<TypeParam*>(record.create()));

  ASSERT_TRUE(one && other);
  EXPECT_TRUE(one->isValid());
  EXPECT_FALSE(*one == *other);
}

TYPED_TEST(SavedIds, AreSavedAsTwoWords)
{
  TypeParam known(knownBits);
  auto record = recordOf(&known);
  PersistenceArchiver archive;

  record.save(archive, record);

  EXPECT_EQ(bodyOf(archive), knownBytes);
  EXPECT_TRUE(known.bits() == knownBits);
}

TYPED_TEST(SavedIds, AreLoadedFromTwoWords)
{
  TypeParam loaded;
  auto record = recordOf(&loaded);
  const auto bytes = archiveAround(knownBytes);
  PersistenceArchiver archive(bytes);

  record.load(archive, record);

  EXPECT_EQ(loaded.toString(), TypeParam(knownBits).toString());
}

TYPED_TEST(SavedIds, StayTheSameWhenSavedAndLoaded)
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

TYPED_TEST(SavedIds, StayAsTheyAreWhenTheirArchiveIsCutOff)
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

TEST(IdentifierStream, HasOperatorsThatAreFunctionsOfTheNamespace)
{
  using Write = PersistenceArchiver& (*)(PersistenceArchiver&, const Identifier&);
  using Read = PersistenceArchiver& (*)(PersistenceArchiver&, Identifier&);
  PersistenceArchiver archive;

  static_cast<Write> (&Tarvik::operator<<)(archive, Identifier(knownBits));
  Identifier read;
  PersistenceArchiver source(archive.finish());
  static_cast<Read> (&Tarvik::operator>>)(source, read);

  EXPECT_TRUE(read.bits() == knownBits);
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
