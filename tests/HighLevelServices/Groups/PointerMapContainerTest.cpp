// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/PointerMapContainer.h"

#include "Support/Groups.h"
#include "Support/VirtualSlots.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <type_traits>

namespace Tarvik {
namespace {

template <class T>
class PointerMap : public ::testing::Test {
protected:
  using Pointer = std::shared_ptr<TKGroup<T>>;

  static Pointer newGroup(const std::string& name) { return std::make_shared<TKGroup<T>>(name); }

  PointerMapContainer<TKGroup<T>> container;
};
TYPED_TEST_SUITE(PointerMap, ElementIdentifiers, KindName);

TYPED_TEST(PointerMap, KeepsAPointerUnderItsKey)
{
  const auto a = this->newGroup("A");
  const auto b = this->newGroup("B");

  this->container.addPointer(7, a);
  this->container.addPointer(0xFFFFFFFF, b);

  EXPECT_EQ(this->container.getPointer(7), a);
  EXPECT_EQ(this->container.getPointer(0xFFFFFFFF), b);
}

TYPED_TEST(PointerMap, KeepsTheFirstOfTwoPointersUnderOneKey)
{
  const auto first = this->newGroup("first");
  const auto second = this->newGroup("second");

  this->container.addPointer(1, first);
  this->container.addPointer(1, second);

  EXPECT_EQ(this->container.getPointer(1), first);
  EXPECT_EQ(second.use_count(), 1) << "the pointer that was not kept is released";
}

TYPED_TEST(PointerMap, AnswersNullForAnAbsentKeyAndAddsNothing)
{
  EXPECT_EQ(this->container.getPointer(3), nullptr);

  const auto late = this->newGroup("late");
  this->container.addPointer(3, late);
  EXPECT_EQ(this->container.getPointer(3), late);
}

TYPED_TEST(PointerMap, CountsWhatItRemoves)
{
  const auto a = this->newGroup("A");
  this->container.addPointer(5, a);

  EXPECT_EQ(this->container.removePointer(4), 0U);
  EXPECT_EQ(this->container.removePointer(5), 1U);
  EXPECT_EQ(this->container.removePointer(5), 0U);

  EXPECT_EQ(this->container.getPointer(5), nullptr);
  EXPECT_EQ(a.use_count(), 1);
}

TYPED_TEST(PointerMap, ReleasesEveryPointerWhenItIsDestroyed)
{
  const auto a = this->newGroup("A");
  const auto b = this->newGroup("B");
  std::unique_ptr<MapContainer> owned;
  {
    auto filled = std::make_unique<PointerMapContainer<TKGroup<TypeParam>>>();
    filled->addPointer(1, a);
    filled->addPointer(2, b);
    filled->addPointer(3, b);
    owned = std::move(filled);
  }

  owned.reset();

  EXPECT_EQ(a.use_count(), 1);
  EXPECT_EQ(b.use_count(), 1);
}

/// A container of a host's own.
template <class C>
class SinglePointer : public PointerMapContainerBase<C> {
public:
  void addPointer(unsigned int, std::shared_ptr<C> pointer) override { m_pointer = pointer; }
  std::shared_ptr<C> getPointer(unsigned int) override { return m_pointer; }
  std::size_t removePointer(unsigned int) override { return 0; }

private:
  std::shared_ptr<C> m_pointer;
};

TYPED_TEST(PointerMap, MayBeReplacedByAHostsOwn)
{
  using Group = TKGroup<TypeParam>;
  const auto group = this->newGroup("A");
  const std::unique_ptr<MapContainer> own = std::make_unique<SinglePointer<Group>>();

  auto* const pointers = dynamic_cast<PointerMapContainerBase<Group>*>(own.get());

  ASSERT_NE(pointers, nullptr);
  pointers->addPointer(1, group);
  EXPECT_EQ(pointers->getPointer(2), group);
  EXPECT_EQ(pointers->removePointer(2), 0U);
}

TYPED_TEST(PointerMap, HoldsNothingButItsMap)
{
  EXPECT_EQ(sizeof(this->container), 2 * sizeof(void*)) << "the virtual table and the map";
}

TYPED_TEST(PointerMap, KeepsTheOrderOfItsVirtualOperations)
{
  using Base = PointerMapContainerBase<TKGroup<TypeParam>>;

  EXPECT_EQ(virtualSlots(&Base::addPointer, &Base::getPointer, &Base::removePointer),
            slotsAfterDestructor(3));
  static_assert(std::is_base_of_v<MapContainer, Base>);
  static_assert(std::is_base_of_v<Base, PointerMapContainer<TKGroup<TypeParam>>>);
}

}
}
