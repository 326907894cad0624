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

/// Takes a circle of nodes apart, which would keep one another.
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

TEST(SharedObjects, MayPointToThemselves)
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

TEST(SharedObjects, MayPointBackOverOthers)
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

TEST(SharedObjects, MayBeWithinOneAnotherAsDeepAsFrames)
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

TEST(SharedObjects, AreDistinguishedFromTheirFirstMember)
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

}
}
