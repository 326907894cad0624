// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ClassRegistration.h"
#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <typeinfo>
#include <vector>

namespace Tarvik {
namespace {

/// A point of a class that the archive does not know.
struct InheritingPoint : Point {};

/// Its record has no entries.
struct WithoutEntries {
  static void serialization_register(void* out)
  {
    auto& record = *static_cast<BaseClassRegister*>(out);
    record = *PersistenceArchiver::registerFactory("Test.WithoutEntries", {}, 1);
    PersistenceArchiver::registerHash(
        PersistenceArchiver::getHashForName(typeid(WithoutEntries).name()), record.classHash);
  }
};

/// The registry refused it.
struct Refused {
  static void serialization_register(void*) {}
};

/// Has no default constructor.
struct WithoutDefault {
  explicit WithoutDefault(std::uint32_t given) : value(given) {}
  std::uint32_t value;

  static void load(PersistenceArchiver& archive, WithoutDefault& object, unsigned int)
  {
    archive >> object.value;
  }

  static void save(PersistenceArchiver& archive, const WithoutDefault& object, unsigned int)
  {
    archive << object.value;
  }

  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<WithoutDefault, load, save>("Test.WithoutDefault", 1);
  }
};

/// Does not leave a frame that it has entered.
struct Careless {
  static void load(PersistenceArchiver& archive, Careless&, unsigned int)
  {
    unsigned int address = 0;
    unsigned int marker = 0;
    archive.read_to_address_header(address, marker);
  }

  static void save(PersistenceArchiver& archive, const Careless&, unsigned int)
  {
    archive << Point();
  }

  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<Careless, load, save>("Test.Careless", 1);
  }
};

const std::string pointHash = hashText("Test.Point");

TEST(ArchivedObjects, AreInAFrameOfTheirClass)
{
  EXPECT_EQ(written(Point{1, -1}), "0c 00 00 00 " + pointHash + " 01 00 00 00 ff ff ff ff");
}

TEST(ArchivedObjects, AreReadBack)
{
  const auto archive = archived(Point{1, 2}, 7U, Point{-3, 4});
  PersistenceArchiver source(archive);
  Point first;
  unsigned int number = 0;
  Point second;

  auto& result = source >> first >> number >> second;

  EXPECT_EQ(&result, &source);
  EXPECT_EQ(first, (Point{1, 2}));
  EXPECT_EQ(number, 7U);
  EXPECT_EQ(second, (Point{-3, 4}));
  EXPECT_TRUE(source.isAtEnd());
}

TEST(ArchivedObjects, AreReadBackThroughTheirOwnClassWhateverTheyAreSavedAs)
{
  Ring ring;
  ring.colour = 5;
  ring.radius = 2;
  Circle circle;
  const auto archive = archived(static_cast<const Circle&>(ring));
  PersistenceArchiver source(archive);

  source >> circle;

  EXPECT_EQ(circle.colour, 5U);
  EXPECT_EQ(circle.radius, 2);
  EXPECT_EQ(written(static_cast<const Circle&>(ring)).substr(12, 11), hashText("Test.Circle"));
}

TEST(ArchivedObjects, NeedNoDefaultToBeLoadedInPlace)
{
  const auto archive = archived(WithoutDefault(7));
  PersistenceArchiver source(archive);
  WithoutDefault object(0);

  source >> object;

  EXPECT_EQ(object.value, 7U);
}

TEST(ArchivedObjects, MayHaveMoreThanTheirLoadEntryReads)
{
  const auto archive = archiveAround("10 00 00 00 " + pointHash +
                                         " 01 00 00 00 02 00 00 00 a1 a2 a3 a4 "
                                         "07 00 00 00",
                                     {{"Test.Point"}});
  PersistenceArchiver source(archive);
  Point point;
  unsigned int number = 0;

  source >> point >> number;

  EXPECT_EQ(point, (Point{1, 2}));
  EXPECT_EQ(number, 7U);
}

TEST(ArchivedObjects, DoNotHaveLessThanTheirLoadEntryReads)
{
  const auto archive =
      archiveAround("0b 00 00 00 " + pointHash + " 01 00 00 00 02 00 00 00", {{"Test.Point"}});
  PersistenceArchiver source(archive);
  Point point;

  EXPECT_EQ(refusalOf([&] { source >> point; }),
            "archive, byte 32: expected 4 bytes more, found 3 bytes before the end of the object; "
            "the archive is damaged");
}

TEST(ArchivedObjects, AreOfTheClassThatIsAskedFor)
{
  const auto archive = archived(Ring());
  PersistenceArchiver source(archive);
  Circle circle;

  EXPECT_EQ(refusalOf([&] { source >> circle; }),
            "archive, byte 24: expected an object of the class \"Test.Circle\", found one of the "
            "class \"Test.Ring\"");
}

TEST(ArchivedObjects, AreOfAClassThatIsKnown)
{
  const auto archive = archiveAround("0c 00 00 00 78 56 34 12 01 00 00 00 02 00 00 00");
  PersistenceArchiver source(archive);
  Point point{3, 4};

  EXPECT_EQ(refusalOf([&] { source >> point; }),
            "archive, byte 24: expected an object of the class \"Test.Point\", found one of the "
            "class with the unknown hash 305419896");
  EXPECT_EQ(point, (Point{3, 4}));
}

TEST(ArchivedObjects, AreOfAClassInTheTable)
{
  const auto archive =
      archiveAround("0c 00 00 00 " + pointHash + " 01 00 00 00 02 00 00 00", {{"Test.Node"}});
  for (const bool hasEmptyEntry : {false, true}) {
    PersistenceArchiver source(archive);
    Point point{3, 4};
    if (hasEmptyEntry) // as a look-up leaves one
      source.classTable()[PersistenceArchiver::getHashForName("Test.Point")];

    EXPECT_EQ(refusalOf([&] { source >> point; }),
              "archive, byte 24: expected a class of the class table, found the class "
              "\"Test.Point\"; the archive is damaged");
    EXPECT_EQ(point, (Point{3, 4}));
  }
}

// Mistakes of the program

TEST(ArchivedObjects, AreNotOfADerivedClassThatIsNotRegistered)
{
  const std::string complaint = std::string("the class ") + typeid(InheritingPoint).name() +
                                " is not registered; a derived class needs its own registration";
  const auto bytes = archived(Point());
  PersistenceArchiver archive;
  PersistenceArchiver source(bytes);
  InheritingPoint point;
  std::vector<InheritingPoint> points(1);

  EXPECT_EQ(complaintOf([&] { archive << point; }), complaint);
  archive.clear();
  EXPECT_EQ(complaintOf([&] { archive << points; }), complaint);
  EXPECT_EQ(complaintOf([&] { source >> point; }), complaint);
}

TEST(ArchivedObjects, AreNotOfAClassThatTheRegistryRefused)
{
  PersistenceArchiver archive;

  EXPECT_EQ(complaintOf([&] { archive << Refused(); }),
            std::string("the class ") + typeid(Refused).name() +
                " is not registered; a derived class needs its own registration");
}

TEST(ArchivedObjects, NeedTheEntriesOfTheirClass)
{
  const auto bytes = archiveAround("04 00 00 00 " + hashText("Test.WithoutEntries"),
                                   {{"Test.WithoutEntries", 0xffffffff}});
  WithoutEntries object;
  BaseClassRegister record;
  WithoutEntries::serialization_register(&record);
  PersistenceArchiver archive;
  PersistenceArchiver source(bytes);

  EXPECT_EQ(complaintOf([&] { archive << object; }),
            "the class \"Test.WithoutEntries\" has no save entry");
  EXPECT_EQ(complaintOf([&] { source >> object; }),
            "the class \"Test.WithoutEntries\" has no load entry");
}

TEST(ArchivedObjects, LeaveTheFramesThatTheyEnter)
{
  const auto bytes = archived(Careless());
  PersistenceArchiver source(bytes);
  Careless object;

  EXPECT_EQ(complaintOf([&] { source >> object; }),
            "the load entry of the class \"Test.Careless\" leaves other frames than it enters");
}

}
}
