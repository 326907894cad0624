// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ClassRegistration.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <typeinfo>

namespace Tarvik {
namespace {

template <class C>
BaseClassRegister recordOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  return record;
}

struct Box {
  unsigned int versionOfLoad = 0;
  unsigned int versionOfSave = 0;

  static void load(PersistenceArchiver&, Box& box, unsigned int version)
  {
    box.versionOfLoad = version;
  }

  static void save(PersistenceArchiver& archive, const Box&, unsigned int version)
  {
    archive << version;
  }
};

void loadBoxInAnotherWay(PersistenceArchiver&, Box& box, unsigned int)
{
  box.versionOfLoad = 1000;
}

TEST(ClassRegistration, FillsARecord)
{
  const auto* const record = registerClass<Box, Box::load, Box::save>("Test.Box", 5, 4);

  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->classHash, PersistenceArchiver::getHashForName("Test.Box"));
  EXPECT_EQ(record->writeVersion, 5U);
  EXPECT_EQ(record->readVersion, 5U);
  EXPECT_EQ(record->word, 4U);
  EXPECT_EQ(record->object, nullptr);
  EXPECT_NE(record->load, nullptr);
  EXPECT_NE(record->save, nullptr);
  EXPECT_NE(record->create, nullptr);
  EXPECT_NE(record->createContainer, nullptr);
  EXPECT_EQ(
      PersistenceArchiver::getHashForType(PersistenceArchiver::getHashForName(typeid(Box).name())),
      record->classHash);
}

TEST(ClassRegistration, GivesTheSameRecordEveryTime)
{
  const auto* const first = registerClass<Box, Box::load, Box::save>("Test.Box", 5, 4);

  EXPECT_EQ((registerClass<Box, Box::load, Box::save>("Test.Box", 5, 4)), first);
}

TEST(ClassRegistration, IsRefusedForANameThatAnotherClassHas)
{
  ASSERT_EQ(PersistenceArchiver::getHashForName("declinate"),
            PersistenceArchiver::getHashForName("macallums"));
  ASSERT_NE(PersistenceArchiver::registerFactory("declinate", {}, 1), nullptr);

  EXPECT_EQ((registerClass<Box, Box::load, Box::save>("macallums", 1)), nullptr);
}

TEST(ClassRegistration, PassesTheVersionsToTheEntries)
{
  auto record = *registerClass<Box, Box::load, Box::save>("Test.Box", 5, 4);
  Box box;
  record.object = &box;
  PersistenceArchiver archive;

  record.save(archive, record);
  EXPECT_EQ(bodyOf(archive), "05 00 00 00");

  record.readVersion = 3;
  record.load(archive, record);
  EXPECT_EQ(box.versionOfLoad, 3U);
}

TEST(ClassRegistration, MayReplaceTheEntries)
{
  const auto* const record = registerClass<Box, Box::load, Box::save>("Test.Box", 5, 4);
  ASSERT_EQ((registerClass<Box, loadBoxInAnotherWay, Box::save>("Test.Box", 5, 4)), record);
  auto copy = *record;
  Box box;
  copy.object = &box;
  PersistenceArchiver archive;

  copy.load(archive, copy);
  EXPECT_EQ(box.versionOfLoad, 1000U);

  registerClass<Box, Box::load, Box::save>("Test.Box", 5, 4);
}

TEST(ClassRegistration, MakesObjectsOfClassesThatCanBeMade)
{
  const std::unique_ptr<Point> point(static_cast<Point*>(recordOf<Point>().create()));

  ASSERT_NE(point, nullptr);
  EXPECT_EQ(*point, Point());
  EXPECT_EQ(recordOf<Figure>().create, nullptr);
}

TEST(ClassRegistration, TellsTheClassThatAnObjectReallyHas)
{
  auto record = recordOf<Figure>();
  Circle circle;
  Ring ring;
  SecretRing secret;
  const auto classOf = [&](Figure& figure) {
    record.object = &figure;
    return record.runtimeClass(record);
  };

  EXPECT_EQ(classOf(circle), recordOf<Circle>().classHash);
  EXPECT_EQ(classOf(ring), recordOf<Ring>().classHash);
  EXPECT_EQ(classOf(secret), BaseClassRegister::unknownClassHash);
  EXPECT_EQ(recordOf<Point>().runtimeClass, nullptr) << "has no virtual operations";
}

TEST(ClassRegistration, MakesContainersForSharedObjects)
{
  const std::unique_ptr<MapContainer> made(recordOf<Point>().createContainer());
  auto* const container = dynamic_cast<PointerMapContainerBase<Point>*>(made.get());
  const auto first = std::make_shared<Point>();
  ASSERT_NE(container, nullptr);

  container->addPointer(5, first);
  container->addPointer(5, std::make_shared<Point>());

  EXPECT_EQ(container->getPointer(5), first) << "the first one stays";
  EXPECT_EQ(container->getPointer(6), nullptr);
  EXPECT_EQ(container->removePointer(5), 1U);
  EXPECT_EQ(container->removePointer(5), 0U);
  EXPECT_EQ(container->getPointer(5), nullptr);
  EXPECT_EQ(first.use_count(), 1);
}

}
}
