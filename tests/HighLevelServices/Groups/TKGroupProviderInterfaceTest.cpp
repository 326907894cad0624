// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"

#include "Support/RecordingHost.h"
#include "Support/VirtualSlots.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace Tarvik {
namespace {

template <class T>
class GroupProvider : public ::testing::Test {};
TYPED_TEST_SUITE(GroupProvider, ElementIdentifiers, KindName);

TYPED_TEST(GroupProvider, HandsOutItsListAndTakesAWholeNewOne)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const std::shared_ptr<TKGroupProviderInterface<TypeParam>> provider =
      hostWith(group("A", {a}), group("B", {b}));

  const auto earlier = provider->getGroups();
  provider->setGroups({group("C", {b, a})});
  EXPECT_EQ(view(provider->getGroups()), list(group("C", {b, a})));

  provider->setGroups(earlier);
  EXPECT_TRUE(identical(provider->getGroups(), earlier));
}

TYPED_TEST(GroupProvider, LetsTheCallerChangeAGroupInPlace)
{
  const auto [a] = distinct<TypeParam, 1>();
  const std::shared_ptr<TKGroupProviderInterface<TypeParam>> provider = hostWith(group("A", {a}));

  provider->getGroups().front().setName("B", true);

  EXPECT_EQ(view(provider->getGroups()), list(group("B", {a})));
}

TYPED_TEST(GroupProvider, HasNothingOfItsOwnToCopy)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto original = hostWith(group("A", {a}));
  RecordingHost<TypeParam> copy(*original);
  RecordingHost<TypeParam> assigned;
  assigned = *original;

  EXPECT_EQ(copy.groups(), original->groups());
  EXPECT_EQ(assigned.groups(), original->groups());
  EXPECT_EQ(sizeof(TKGroupProviderInterface<TypeParam>), sizeof(void*));
}

TYPED_TEST(GroupProvider, IsAnInterfaceThatIsDestroyedThroughItself)
{
  using Interface = TKGroupProviderInterface<TypeParam>;

  static_assert(std::is_abstract_v<Interface>);
  static_assert(std::has_virtual_destructor_v<Interface>);
  const std::unique_ptr<Interface> provider = std::make_unique<RecordingHost<TypeParam>>();
  EXPECT_TRUE(provider->getGroups().empty());
}

TYPED_TEST(GroupProvider, KeepsTheOrderOfItsVirtualOperations)
{
  using Interface = TKGroupProviderInterface<TypeParam>;

  EXPECT_EQ(virtualSlots(&Interface::getGroups, &Interface::getUngroupedElements,
                         &Interface::setGroups, &Interface::createMoveCommand,
                         &Interface::getGroupMemberNames, &Interface::renameGroup,
                         &Interface::getElementName),
            slotsAfterDestructor(7));
}

}
}
