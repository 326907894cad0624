// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/MapContainer.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <type_traits>
#include <utility>

namespace Tarvik {
namespace {

/// Keeps its pointers in a map, as a host would.
class Numbers : public PointerMapContainerBase<int> {
public:
  void addPointer(unsigned int key, std::shared_ptr<int> pointer) override
  {
    m_pointers.try_emplace(key, std::move(pointer));
  }

  std::shared_ptr<int> getPointer(unsigned int key) override
  {
    const auto found = m_pointers.find(key);
    return found != m_pointers.end() ? found->second : nullptr;
  }

  std::size_t removePointer(unsigned int key) override { return m_pointers.erase(key); }

private:
  std::map<unsigned int, std::shared_ptr<int>> m_pointers;
};

TEST(Container, ReleasesWhatItKeepsWhenDestroyedByWhoKnowsNothingOfIt)
{
  const auto number = std::make_shared<int>(7);
  auto numbers = std::make_unique<Numbers>();
  numbers->addPointer(1, number);
  ASSERT_EQ(number.use_count(), 2);

  std::unique_ptr<MapContainer> container = std::move(numbers);
  container.reset();

  EXPECT_EQ(number.use_count(), 1);
  static_assert(std::has_virtual_destructor_v<MapContainer>);
}

TEST(Container, IsUsedThroughItsInterface)
{
  const auto first = std::make_shared<int>(1);
  const std::unique_ptr<PointerMapContainerBase<int>> container = std::make_unique<Numbers>();

  container->addPointer(5, first);
  container->addPointer(5, std::make_shared<int>(2));

  EXPECT_EQ(container->getPointer(5), first);
  EXPECT_EQ(container->getPointer(6), nullptr);
  EXPECT_EQ(container->removePointer(5), 1U);
  EXPECT_EQ(container->removePointer(5), 0U);
  EXPECT_EQ(container->getPointer(5), nullptr);
}

TEST(Container, CannotBeCopied)
{
  static_assert(!std::is_copy_constructible_v<MapContainer>);
  static_assert(!std::is_copy_assignable_v<MapContainer>);
  static_assert(std::is_abstract_v<PointerMapContainerBase<int>>);
}

}
}
