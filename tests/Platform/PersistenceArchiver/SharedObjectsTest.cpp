// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ClassRegistration.h"
#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class C>
using Shared = std::shared_ptr<C>;

/// Begins with a point.
struct Route {
  Point start;
  Point end;

  static void load(PersistenceArchiver& archive, Route& route, unsigned int)
  {
    archive >> route.start >> route.end;
  }

  static void save(PersistenceArchiver& archive, const Route& route, unsigned int)
  {
    archive << route.start << route.end;
  }

  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) = *registerClass<Route, load, save>("Test.Route", 1);
  }
};

void loadNothing(PersistenceArchiver&, BaseClassRegister&) {}

/// Registers a class by hand, with what the test leaves of its record.
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

/// A figure that may be saved but not made.
struct Sketch : Circle {
  static void serialization_register(void* out)
  {
    registerByHand<Sketch>("Test.Sketch", {.save = loadNothing, .writeVersion = 1}, out);
  }
};

/// A figure whose class nobody connected with its base.
struct LonelyCircle : Circle {
  static void load(PersistenceArchiver&, LonelyCircle&, unsigned int) {}
  static void save(PersistenceArchiver&, const LonelyCircle&, unsigned int) {}

  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<LonelyCircle, load, save>("Test.LonelyCircle", 1);
  }
};

/// Two classes without virtual operations, connected all the same.
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

/// Nodes in a circle keep one another.
class NodeCircle {
public:
  explicit NodeCircle(Shared<Node> member) : m_member(std::move(member)) {}
  NodeCircle(const NodeCircle&) = delete;
  NodeCircle& operator=(const NodeCircle&) = delete;
  ~NodeCircle() { m_member->next.reset(); }

private:
  Shared<Node> m_member;
};

Shared<Node> chainOf(unsigned int length)
{
  Shared<Node> first;
  for (unsigned int i = 0; i < length; ++i) {
    auto node = std::make_shared<Node>();
    node->value = length - i;
    node->next = first;
    first = node;
  }
  return first;
}

const std::string pointFrame = "0c 00 00 00 " + hashText("Test.Point") + " 01 00 00 00 02 00 00 00";

TEST(SharedObjects, AreNumberedAsTheyCome)
{
  const auto one = std::make_shared<Point>(Point{1, 2});
  const auto other = std::make_shared<Point>(Point{1, 2});

  EXPECT_EQ(written(one), "01 00 00 00 " + pointFrame);
  EXPECT_EQ(written(one, other, Shared<Point>(), one, other), "01 00 00 00 " + pointFrame +
                                                                  " 02 00 00 00 " + pointFrame +
                                                                  " 00 00 00 00 "
                                                                  "01 00 00 00 "
                                                                  "02 00 00 00");
}

TEST(SharedObjects, MayBeNone)
{
  const auto archive = archived(Shared<Point>(), Shared<Figure>());
  PersistenceArchiver source(archive);
  auto point = std::make_shared<Point>();
  Shared<Figure> figure = std::make_shared<Circle>();

  source >> point >> figure;

  EXPECT_EQ(point, nullptr);
  EXPECT_EQ(figure, nullptr);
  EXPECT_TRUE(source.isAtEnd());
}

TEST(SharedObjects, AreSharedAgainWhenLoaded)
{
  const auto one = std::make_shared<Point>(Point{1, 2});
  const auto other = std::make_shared<Point>(Point{1, 2});
  const auto archive = archived(one, other, one);
  PersistenceArchiver source(archive);
  Shared<Point> first;
  Shared<Point> second;
  Shared<Point> third;

  auto& result = source >> first >> second >> third;

  EXPECT_EQ(&result, &source);
  ASSERT_TRUE(first && second);
  EXPECT_EQ(*first, *one);
  EXPECT_EQ(*second, *other);
  EXPECT_NE(first, second);
  EXPECT_EQ(third, first);
}

TEST(SharedObjects, MayLeadToThemselves)
{
  const auto node = std::make_shared<Node>();
  const NodeCircle circle(node);
  node->value = 5;
  node->next = node;
  const auto archive = archived(node);
  EXPECT_EQ(hex(archive).substr(3 * bodyStart, 3 * 20 - 1),
            "01 00 00 00 0c 00 00 00 " + hashText("Test.Node") + " 05 00 00 00 01 00 00 00");

  const auto loaded = loadedFrom<Shared<Node>>(archive);

  ASSERT_NE(loaded, nullptr);
  const NodeCircle loadedCircle(loaded);
  EXPECT_EQ(loaded->value, 5U);
  EXPECT_EQ(loaded->next, loaded);
}

TEST(SharedObjects, MayLeadBackOverOthers)
{
  const auto first = chainOf(3);
  const NodeCircle circle(first);
  first->next->next->next = first;

  const auto loaded = loadedFrom<Shared<Node>>(archived(first));

  ASSERT_NE(loaded, nullptr);
  const NodeCircle loadedCircle(loaded);
  EXPECT_EQ(loaded->value, 1U);
  EXPECT_EQ(loaded->next->value, 2U);
  EXPECT_EQ(loaded->next->next->value, 3U);
  EXPECT_EQ(loaded->next->next->next, loaded);
}

TEST(SharedObjects, MayStandInOneAnotherAsDeepAsFramesMay)
{
  PersistenceArchiver archive;
  const auto longest = chainOf(250);
  archive << longest;
  const auto bytes = archive.finish();
  auto loaded = loadedFrom<Shared<Node>>(bytes);
  for (unsigned int value = 1; value <= 250; ++value) {
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->value, value);
    loaded = loaded->next;
  }
  EXPECT_EQ(loaded, nullptr);

  archive.clear();
  EXPECT_NE(refusalOf([&] {
              archive << chainOf(251);
            }).find("expected objects in objects at most 250 deep, found one more"),
            std::string::npos);
}

TEST(SharedObjects, MayFormLongerChainsWhenTheyAreListed)
{
  std::vector<Shared<Node>> nodes;
  for (auto node = chainOf(2'000); node != nullptr; node = node->next)
    nodes.push_back(node);
  std::ranges::reverse(nodes);

  const auto loaded = loadedFrom<std::vector<Shared<Node>>>(archived(nodes));

  ASSERT_EQ(loaded.size(), nodes.size());
  for (std::size_t i = 1; i < loaded.size(); ++i)
    EXPECT_EQ(loaded[i]->next, loaded[i - 1]);
}

TEST(SharedObjects, AreOneObjectWhoeverSharesThem)
{
  const auto owner = std::make_shared<Route>();
  const Shared<Point> one(owner, &owner->end);
  const auto end = std::make_shared<Shared<Point>>(one);
  const Shared<Point> other(end, end->get());

  EXPECT_EQ(written(one, other).substr(std::size_t{3} * 20), "01 00 00 00");
}

TEST(SharedObjects, AreToldFromTheirFirstMember)
{
  const auto route = std::make_shared<Route>();
  route->start = {1, 2};
  const Shared<Point> start(route, &route->start);
  const auto archive = archived(start, route, start);
  PersistenceArchiver source(archive);
  Shared<Point> loadedStart;
  Shared<Route> loadedRoute;
  Shared<Point> loadedAgain;

  source >> loadedStart >> loadedRoute >> loadedAgain;

  ASSERT_TRUE(loadedStart && loadedRoute);
  EXPECT_EQ(*loadedStart, (Point{1, 2}));
  EXPECT_EQ(loadedRoute->start, (Point{1, 2}));
  EXPECT_EQ(loadedAgain, loadedStart);
}

TEST(SharedObjects, AreKeptByTheArchiveUntilItIsCleared)
{
  auto point = std::make_shared<Point>();
  PersistenceArchiver archive;
  archive << point;
  EXPECT_EQ(point.use_count(), 2);
  archive.finish();
  EXPECT_EQ(point.use_count(), 2);

  archive.clear();
  EXPECT_EQ(point.use_count(), 1);
}

TEST(SharedObjects, AreReleasedWithTheArchive)
{
  const auto before = Figure::s_count;
  const auto archive = archived(Shared<Figure>(std::make_shared<Ring>()));
  EXPECT_EQ(Figure::s_count, before);
  Shared<Figure> figure;
  {
    PersistenceArchiver source(archive);
    source >> figure;
    EXPECT_GT(figure.use_count(), 1);
  }
  EXPECT_EQ(figure.use_count(), 1);
  EXPECT_EQ(Figure::s_count, before + 1);

  figure.reset();
  EXPECT_EQ(Figure::s_count, before);
}

// Bases and derived classes

TEST(SharedObjects, KeepTheirClassWhenSavedAsABase)
{
  const auto ring = std::make_shared<Ring>();
  ring->colour = 7;
  ring->radius = 3;
  ring->width = 0.25;
  const Shared<Figure> figure = ring;

  EXPECT_EQ(written(figure), written(ring));
  const auto loaded = loadedFrom<Shared<Figure>>(archived(figure));

  const auto* const loadedRing = dynamic_cast<const Ring*>(loaded.get());
  ASSERT_NE(loadedRing, nullptr);
  EXPECT_EQ(loadedRing->colour, 7U);
  EXPECT_EQ(loadedRing->radius, 3);
  EXPECT_EQ(loadedRing->width, 0.25);
  EXPECT_EQ(loaded->area(), ring->area());
}

/// Saves and loads one ring as two classes.
template <class First, class Second>
void expectOneRing()
{
  const auto ring = std::make_shared<Ring>();
  const auto archive = archived(Shared<First>(ring), Shared<Second>(ring), Shared<First>(ring));
  PersistenceArchiver source(archive);
  Shared<First> first;
  Shared<Second> second;
  Shared<First> third;

  source >> first >> second >> third;

  ASSERT_TRUE(first && second);
  EXPECT_EQ(typeid(*first), typeid(Ring));
  EXPECT_EQ(static_cast<const Figure*>(first.get()), static_cast<const Figure*>(second.get()));
  EXPECT_FALSE(first.owner_before(second) || second.owner_before(first)) << "share one object";
  EXPECT_EQ(third, first);
}

TEST(SharedObjects, AreOneWhetherLoadedAsBaseOrDerivedFirst)
{
  const auto before = Figure::s_count;

  expectOneRing<Figure, Ring>();
  expectOneRing<Ring, Figure>();
  expectOneRing<Figure, Circle>();
  expectOneRing<Circle, Figure>();
  expectOneRing<Ring, Circle>();
  expectOneRing<Circle, Ring>();

  EXPECT_EQ(Figure::s_count, before);
}

TEST(SharedObjects, MayBeginElsewhereThanTheirBase)
{
  const auto sign = std::make_shared<Sign>();
  sign->label = "A";
  sign->colour = 9;
  ASSERT_NE(static_cast<void*>(static_cast<Circle*>(sign.get())), sign.get());
  const auto archive = archived(Shared<Figure>(sign), Shared<Labelled>(sign), sign);
  PersistenceArchiver source(archive);
  Shared<Figure> figure;
  Shared<Labelled> labelled;
  Shared<Sign> loaded;

  source >> figure >> labelled >> loaded;

  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(loaded->label, "A");
  EXPECT_EQ(loaded->colour, 9U);
  EXPECT_EQ(figure.get(), static_cast<Figure*>(loaded.get()));
  EXPECT_EQ(labelled.get(), static_cast<Labelled*>(loaded.get()));
}

TEST(SharedObjects, AreNotLoadedAsAClassThatTheyAreNotOf)
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

TEST(SharedObjects, AreNotLoadedAgainAsAClassThatTheyAreNotOf)
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

TEST(SharedObjects, ComeWithTheNextNumber)
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

TEST(SharedObjects, AreNotMadeOfAClassThatMakesNone)
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

TEST(SharedObjects, AreNotMadeAsADerivedClassThatTheirBaseCouldNotDestroy)
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

TEST(SharedObjects, StayAsTheyAreWhenLoadingFails)
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

TEST(SharedObjects, AreNotOfADerivedClassThatIsNotRegistered)
{
  PersistenceArchiver archive;

  EXPECT_EQ(complaintOf([&] { archive << Shared<Ring>(std::make_shared<SecretRing>()); }),
            "a shared object saved as one of the class \"Test.Ring\" is of a derived class that "
            "is not registered, or has no caster");
}

TEST(SharedObjects, AreNotOfADerivedClassWithoutACaster)
{
  const auto lonely = std::make_shared<LonelyCircle>();
  PersistenceArchiver archive;
  archive << lonely;

  EXPECT_EQ(complaintOf([&] { archive << Shared<Circle>(lonely); }),
            "a shared object saved as one of the class \"Test.Circle\" is of a derived class that "
            "is not registered, or has no caster");
}

TEST(SharedObjects, NeedAContainerToBeLoaded)
{
  const auto archive = archived(std::make_shared<WithoutContainer>());
  PersistenceArchiver source(archive);
  Shared<WithoutContainer> object;

  EXPECT_EQ(complaintOf([&] { source >> object; }),
            "the class \"Test.WithoutContainer\" makes no containers for shared pointers");
}

}
}
