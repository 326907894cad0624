// SPDX-License-Identifier: MIT
// Shared objects that are refused, because of the bytes or because of the program.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ClassRegistration.h"
#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>

namespace Tarvik {
namespace {

template <class C>
using Shared = std::shared_ptr<C>;

void loadNothing(PersistenceArchiver&, BaseClassRegister&) {}

/// Registers a class with only these entries.
template <class C>
void registerByHand(const std::string& name, const BaseClassRegister& entries, void* out)
{
  auto& record = *static_cast<BaseClassRegister*>(out);
  record = *PersistenceArchiver::registerFactory(name, entries, 1);
  PersistenceArchiver::registerHash(PersistenceArchiver::getHashForName(typeid(C).name()),
                                    record.classHash);
}

struct WithoutContainer {
  static void serialization_register(void* out)
  {
    registerByHand<WithoutContainer>("Test.WithoutContainer",
                                     {.load = loadNothing,
                                      .save = loadNothing,
                                      .create = [] { return static_cast<void*>(nullptr); },
                                      .writeVersion = 1},
                                     out);
  }
};

/// A figure that can be saved but not created.
struct Sketch : Circle {
  static void serialization_register(void* out)
  {
    registerByHand<Sketch>("Test.Sketch", {.save = loadNothing, .writeVersion = 1}, out);
  }
};

/// A circle without a caster to its base.
struct LonelyCircle : Circle {
  static void load(PersistenceArchiver&, LonelyCircle&, unsigned int) {}
  static void save(PersistenceArchiver&, const LonelyCircle&, unsigned int) {}

  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<LonelyCircle, load, save>("Test.LonelyCircle", 1);
  }
};

/// Two classes without virtual operations, but with a caster.
struct PlainBase {
  std::uint8_t value = 0;
  static void load(PersistenceArchiver& archive, PlainBase& object, unsigned int)
  {
    archive >> object.value;
  }
  static void save(PersistenceArchiver& archive, const PlainBase& object, unsigned int)
  {
    archive << object.value;
  }
  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<PlainBase, load, save>("Test.PlainBase", 1);
  }
};

struct PlainDerived : PlainBase {
  static void load(PersistenceArchiver& archive, PlainDerived& object, unsigned int)
  {
    archive >> object.value;
  }
  static void save(PersistenceArchiver& archive, const PlainDerived& object, unsigned int)
  {
    archive << object.value;
  }
  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<PlainDerived, load, save>("Test.PlainDerived", 1);
  }
};

struct PlainCaster : Caster {
  void* toBase(void* derived) const override
  {
    return static_cast<PlainBase*>(static_cast<PlainDerived*>(derived));
  }
  void* toDerived(void* base) const override
  {
    return static_cast<PlainDerived*>(static_cast<PlainBase*>(base));
  }
};

const std::string pointFrame = "0c 00 00 00 " + hashText("Test.Point") + " 01 00 00 00 02 00 00 00";

TEST(RefusedSharedObjects, AreNotLoadedAsAClassThatTheyAreNotOf)
{
  const auto refusalToLoad = [](const Bytes& archive, auto asked) {
    PersistenceArchiver source(archive);
    auto text = refusalOf([&] { source >> asked; });
    EXPECT_EQ(asked, nullptr);
    return text;
  };

  EXPECT_EQ(refusalToLoad(archived(std::make_shared<Circle>()), Shared<Ring>()),
            "archive, byte 28: expected an object of the class \"Test.Ring\" or one derived from "
            "it, found one of the class \"Test.Circle\"");
  EXPECT_EQ(refusalToLoad(archived(std::make_shared<Point>()), Shared<Figure>()),
            "archive, byte 28: expected an object of the class \"Test.Figure\" or one derived from "
            "it, found one of the class \"Test.Point\"");
  EXPECT_EQ(refusalToLoad(archiveAround("01 00 00 00 04 00 00 00 78 56 34 12"), Shared<Point>()),
            "archive, byte 28: expected an object of the class \"Test.Point\" or one derived from "
            "it, found one of the class with the unknown hash 305419896");
}

TEST(RefusedSharedObjects, AreNotLoadedAgainAsAClassThatTheyAreNotOf)
{
  const auto circle = std::make_shared<Circle>();
  const auto archive = archived(circle, circle);
  PersistenceArchiver source(archive);
  Shared<Circle> first;
  Shared<Ring> second;
  source >> first;

  EXPECT_EQ(refusalOf([&] { source >> second; }),
            "archive, byte 44: expected a shared object of the class \"Test.Ring\", found one of "
            "the class \"Test.Circle\"");
}

TEST(RefusedSharedObjects, ComeWithTheNextNumber)
{
  for (const unsigned int number : {2U, 3U, 0x80000000U, 0xffffffffU}) {
    const auto archive = archiveAround(wordText(number) + " " + pointFrame, {{"Test.Point"}});
    PersistenceArchiver source(archive);
    Shared<Point> point;

    EXPECT_EQ(refusalOf([&] { source >> point; }),
              "archive, byte 20: expected the number of a shared object, at most 1, found " +
                  std::to_string(number) + "; the archive is damaged");
  }
}

TEST(RefusedSharedObjects, AreNotMadeOfAClassThatMakesNone)
{
  registerBase<Circle, Sketch>();
  const auto refusalToLoad = [](const std::string& name, unsigned int version) {
    const auto archive = archiveAround("01 00 00 00 08 00 00 00 " + hashText(name) + " 00 00 00 00",
                                       {{name, version}});
    PersistenceArchiver source(archive);
    Shared<Figure> figure;
    return refusalOf([&] { source >> figure; });
  };

  EXPECT_EQ(refusalToLoad("Test.Figure", 1),
            "archive, byte 28: expected an object of a class that makes and loads objects, found "
            "one of the class \"Test.Figure\"");
  EXPECT_EQ(refusalToLoad("Test.Sketch", 1),
            "archive, byte 28: expected an object of a class that makes and loads objects, found "
            "one of the class \"Test.Sketch\"");
}

TEST(RefusedSharedObjects, AreNotMadeAsADerivedClassThatTheirBaseCouldNotDestroy)
{
  BaseClassRegister base;
  BaseClassRegister derived;
  PlainBase::serialization_register(&base);
  PlainDerived::serialization_register(&derived);
  ASSERT_TRUE(
      PersistenceArchiver::registerCaster(base.classHash, derived.classHash, new PlainCaster));
  const auto archive = archived(std::make_shared<PlainDerived>());
  PersistenceArchiver source(archive);
  Shared<PlainBase> object;

  EXPECT_EQ(refusalOf([&] { source >> object; }),
            "archive, byte 28: expected an object of the class \"Test.PlainBase\" or one derived "
            "from it, found one of the class \"Test.PlainDerived\"");
}

TEST(RefusedSharedObjects, StayAsTheyAreWhenLoadingFails)
{
  const auto archive = archiveAround(
      "01 00 00 00 08 00 00 00 " + hashText("Test.Point") + " 01 00 00 00", {{"Test.Point"}});
  PersistenceArchiver source(archive);
  const auto before = std::make_shared<Point>();
  auto point = before;

  EXPECT_THROW(source >> point, ArchiveError);
  EXPECT_EQ(point, before);
}

// Mistakes of the program

TEST(RefusedSharedObjects, AreNotOfADerivedClassThatIsNotRegistered)
{
  PersistenceArchiver archive;

  EXPECT_EQ(complaintOf([&] { archive << Shared<Ring>(std::make_shared<SecretRing>()); }),
            "a shared object saved as one of the class \"Test.Ring\" is of a derived class that "
            "is not registered, or has no caster");
}

TEST(RefusedSharedObjects, AreNotOfADerivedClassWithoutACaster)
{
  const auto lonely = std::make_shared<LonelyCircle>();
  PersistenceArchiver archive;
  archive << lonely;

  EXPECT_EQ(complaintOf([&] { archive << Shared<Circle>(lonely); }),
            "a shared object saved as one of the class \"Test.Circle\" is of a derived class that "
            "is not registered, or has no caster");
}

TEST(RefusedSharedObjects, NeedAContainerToBeLoaded)
{
  const auto archive = archived(std::make_shared<WithoutContainer>());
  PersistenceArchiver source(archive);
  Shared<WithoutContainer> object;

  EXPECT_EQ(complaintOf([&] { source >> object; }),
            "the class \"Test.WithoutContainer\" makes no containers for shared pointers");
}

}
}
