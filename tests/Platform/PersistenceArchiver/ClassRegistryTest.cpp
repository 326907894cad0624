// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

// Classes stay registered until the program ends: every test has its own names, and passes again
// when it is repeated.

void loadOne(PersistenceArchiver&, BaseClassRegister&) {}
void loadOther(PersistenceArchiver&, BaseClassRegister&) {}
void saveNothing(PersistenceArchiver&, BaseClassRegister&) {}
void* createNothing()
{
  return nullptr;
}
unsigned int noClass(const BaseClassRegister&)
{
  return BaseClassRegister::unknownClassHash;
}
MapContainer* createNoContainer()
{
  return nullptr;
}

TEST(NameHash, IsTheSameEverywhere)
{
  const std::vector<std::pair<std::string, unsigned int>> known = {{"", 0x811c9dc5},
                                                                   {"a", 0xe40c292c},
                                                                   {"b", 0xe70c2de5},
                                                                   {"hello", 0x4f9f2cab},
                                                                   {"foobar", 0xbf9cf968}};

  for (const auto& [name, hash] : known)
    EXPECT_EQ(PersistenceArchiver::getHashForName(name), hash) << name;
}

TEST(NameHash, TakesEveryByteAsANumberFrom0To255)
{
  EXPECT_EQ(PersistenceArchiver::getHashForName("\xff"), (0x811c9dc5U ^ 0xffU) * 16777619U);
  EXPECT_EQ(PersistenceArchiver::getHashForName("\x80"), (0x811c9dc5U ^ 0x80U) * 16777619U);
  EXPECT_EQ(PersistenceArchiver::getHashForName(std::string(1, '\0')), 0x811c9dc5U * 16777619U);
  EXPECT_NE(PersistenceArchiver::getHashForName(std::string("a\0b", 3)),
            PersistenceArchiver::getHashForName("a"));
}

TEST(ClassRegistry, KeepsTheRecordUnderTheHashOfTheName)
{
  const BaseClassRegister given{.load = &loadOne,
                                .save = &saveNothing,
                                .create = &createNothing,
                                .word = 3,
                                .classHash = 4, // ignored
                                .writeVersion = 5,
                                .readVersion = 6};

  const auto* const kept = PersistenceArchiver::registerFactory("Kept", given, 1);

  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(kept->classHash, PersistenceArchiver::getHashForName("Kept"));
  EXPECT_EQ(kept->load, &loadOne);
  EXPECT_EQ(kept->save, &saveNothing);
  EXPECT_EQ(kept->create, &createNothing);
  EXPECT_EQ(kept->runtimeClass, nullptr);
  EXPECT_EQ(kept->createContainer, nullptr);
  EXPECT_EQ(kept->word, 3U);
  EXPECT_EQ(kept->writeVersion, 5U);
  EXPECT_EQ(kept->readVersion, 6U);
}

TEST(ClassRegistry, KeepsTheRecordOfAClassThatIsRegisteredAgain)
{
  auto* const first = PersistenceArchiver::registerFactory("First", {.load = &loadOne}, 1);

  auto* const again = PersistenceArchiver::registerFactory("First", {.load = &loadOne}, 1);

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(again, first);
  EXPECT_EQ(first->load, &loadOne);
  EXPECT_EQ(first->classHash, PersistenceArchiver::getHashForName("First"));
}

TEST(ClassRegistry, TakesTheNewEntriesOfAClassWhoseLibraryIsLoadedAgain)
{
  const BaseClassRegister before{.load = &loadOne};
  const std::vector<BaseClassRegister> others = {
      {.load = &loadOther},
      {.load = &loadOne, .save = &saveNothing},
      {.load = &loadOne, .create = &createNothing},
      {.load = &loadOne, .runtimeClass = &noClass},
      {.load = &loadOne, .createContainer = &createNoContainer}};

  for (const auto& other : others) {
    auto* const first = PersistenceArchiver::registerFactory("Reloaded", before, 1);
    auto* const again = PersistenceArchiver::registerFactory("Reloaded", other, 1);

    ASSERT_TRUE(first != nullptr && again == first);
    EXPECT_EQ(first->load, other.load);
    EXPECT_EQ(first->save, other.save);
    EXPECT_EQ(first->create, other.create);
    EXPECT_EQ(first->runtimeClass, other.runtimeClass);
    EXPECT_EQ(first->createContainer, other.createContainer);
    EXPECT_EQ(first->classHash, PersistenceArchiver::getHashForName("Reloaded"));
  }
}

TEST(ClassRegistry, RefusesAnotherVersionOfAClass)
{
  auto* const first = PersistenceArchiver::registerFactory("Versioned", {.load = &loadOne}, 2);

  EXPECT_EQ(PersistenceArchiver::registerFactory("Versioned", {.load = &loadOther}, 3), nullptr);
  EXPECT_EQ(PersistenceArchiver::registerFactory("Versioned", {.load = &loadOther}, 1), nullptr);

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->load, &loadOne);
  EXPECT_EQ(PersistenceArchiver::registerFactory("Versioned", {}, 2), first);
}

TEST(ClassRegistry, RefusesAnotherClassWithTheSameHash)
{
  ASSERT_EQ(PersistenceArchiver::getHashForName("costarring"),
            PersistenceArchiver::getHashForName("liquid"));
  auto* const first = PersistenceArchiver::registerFactory("liquid", {.load = &loadOne}, 1);

  EXPECT_EQ(PersistenceArchiver::registerFactory("costarring", {.load = &loadOther}, 1), nullptr);

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->load, &loadOne);
}

TEST(ClassRegistry, RefusesTheNameWhoseHashNoClassHas)
{
  ASSERT_EQ(PersistenceArchiver::getHashForName("bxmuheb"), BaseClassRegister::unknownClassHash);

  EXPECT_EQ(PersistenceArchiver::registerFactory("bxmuheb", {.load = &loadOne}, 1), nullptr);
}

TEST(ClassRegistry, TellsNamesApartByteForByte)
{
  auto* const upper = PersistenceArchiver::registerFactory("Letters", {}, 1);
  auto* const lower = PersistenceArchiver::registerFactory("letters", {}, 1);

  ASSERT_TRUE(upper != nullptr && lower != nullptr);
  EXPECT_NE(upper, lower);
}

TEST(ClassRegistry, KeepsItsRecordsInTheirPlaces)
{
  auto* const early = PersistenceArchiver::registerFactory("Early", {.load = &loadOne}, 1);

  for (int i = 0; i < 2000; ++i)
    EXPECT_NE(PersistenceArchiver::registerFactory("Later" + std::to_string(i), {}, 1), nullptr);

  ASSERT_NE(early, nullptr);
  EXPECT_EQ(PersistenceArchiver::registerFactory("Early", {.load = &loadOne}, 1), early);
  EXPECT_EQ(early->load, &loadOne);
  EXPECT_EQ(early->classHash, PersistenceArchiver::getHashForName("Early"));
}

TEST(ClassRegistry, MayBeUsedByManyThreadsThatCopyTheRecord)
{
  const auto hash = PersistenceArchiver::getHashForName("Shared");
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] {
      for (int round = 0; round < 500; ++round) {
        const auto* const kept =
            PersistenceArchiver::registerFactory("Shared", {.load = &loadOne}, 1);
        const BaseClassRegister copy = *kept;
        if (copy.classHash != hash || copy.load != &loadOne)
          ++wrong;
      }
    });
  for (auto& thread : threads)
    thread.join();

  EXPECT_EQ(wrong, 0);
}

TEST(TypeRegistry, RemembersTheClassOfAType)
{
  const auto type = PersistenceArchiver::getHashForName("a type");

  PersistenceArchiver::registerHash(type, 5);
  EXPECT_EQ(PersistenceArchiver::getHashForType(type), 5U);

  PersistenceArchiver::registerHash(type, 6);
  EXPECT_EQ(PersistenceArchiver::getHashForType(type), 6U);
}

TEST(TypeRegistry, SaysWhichTypesItDoesNotKnow)
{
  EXPECT_EQ(PersistenceArchiver::getHashForType(
                PersistenceArchiver::getHashForName("a type that nobody registers")),
            BaseClassRegister::unknownClassHash);
}

TEST(TypeRegistry, MayBeUsedByManyThreads)
{
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (unsigned int i = 0; i < 4; ++i)
    threads.emplace_back([&wrong, i] {
      for (unsigned int round = 0; round < 500; ++round) {
        PersistenceArchiver::registerHash(0x5eed0000U + i, round);
        if (PersistenceArchiver::getHashForType(0x5eed0000U + i) != round)
          ++wrong;
      }
    });
  for (auto& thread : threads)
    thread.join();

  EXPECT_EQ(wrong, 0);
}

TEST(ClassRegister, KnowsNothingAtFirst)
{
  const BaseClassRegister record;

  EXPECT_EQ(record.load, nullptr);
  EXPECT_EQ(record.save, nullptr);
  EXPECT_EQ(record.create, nullptr);
  EXPECT_EQ(record.runtimeClass, nullptr);
  EXPECT_EQ(record.createContainer, nullptr);
  EXPECT_EQ(record.word, 0U);
  EXPECT_EQ(record.classHash, 0xbbafa6c8U);
  EXPECT_EQ(record.writeVersion, 0xffffffffU);
  EXPECT_EQ(record.readVersion, 0xffffffffU);
  EXPECT_EQ(record.object, nullptr);
  EXPECT_EQ(record.reserved, nullptr);
}

}
}
