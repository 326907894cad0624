// SPDX-License-Identifier: MIT
// Shared objects that are saved or loaded as one of their base classes.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <typeinfo>

namespace Tarvik {
namespace {

template <class C>
using Shared = std::shared_ptr<C>;

TEST(SharedDerivedObjects, KeepTheirClassWhenSavedAsABase)
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

TEST(SharedDerivedObjects, AreOneWhetherLoadedAsBaseOrDerivedFirst)
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

TEST(SharedDerivedObjects, MayBeginElsewhereThanTheirBase)
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

#if !defined(_MSC_VER) // allocations in DLLs cannot be made to fail there

/// Loads a figure, and another pointer to it, while the given allocation fails.
/// @return whether there were so many allocations
bool failsToLoad(const Bytes& archive, std::size_t failing)
{
  const AllocationWatch watch(failing);
  try {
    PersistenceArchiver source(archive);
    Shared<Figure> figure;
    Shared<Circle> circle;
    source >> figure >> circle;
  } catch (const std::bad_alloc&) {
    EXPECT_TRUE(AllocationWatch::hasFailed());
  }
  return AllocationWatch::hasFailed();
}

TEST(SharedDerivedObjects, AreDestroyedWhicheverAllocationFails)
{
  const auto ring = std::make_shared<Ring>();
  const auto archive = archived(Shared<Figure>(ring), Shared<Circle>(ring));
  const auto before = Figure::s_count;

  std::size_t failing = 0;
  for (; failsToLoad(archive, failing); ++failing)
    ASSERT_EQ(Figure::s_count, before) << "allocation " << failing;

  EXPECT_EQ(Figure::s_count, before);
  EXPECT_GT(failing, 10U);
}

#endif

}
}
