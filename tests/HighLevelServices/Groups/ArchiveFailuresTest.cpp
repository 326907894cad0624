// SPDX-License-Identifier: MIT
// What saving and loading groups leaves when an allocation fails.

#include "HighLevelServices/Groups/TKGroup.h"

#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Support/Allocations.h"
#include "Support/Groups.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class FailingArchive : public ::testing::Test {
protected:
  using Shared = std::vector<std::shared_ptr<TKGroup<T>>>;
  using Bytes = std::vector<std::byte>;

  FailingArchive()
  {
    const auto first = std::make_shared<TKGroup<T>>("a group with a long name");
    const auto second = std::make_shared<TKGroup<T>>("another");
    first->addGroupMembersAtIndex(std::vector<T>(20), 0);
    second->addGroupMembersAtIndex(std::vector<T>(3), 0);
    groups = {first, second, first};
  }

  static Bytes saved(const Shared& list)
  {
    PersistenceArchiver archive;
    archive << list;
    const auto bytes = archive.finish();
    return {bytes.begin(), bytes.end()};
  }

  static void load(const Bytes& bytes, Shared& list) { PersistenceArchiver(bytes) >> list; }

  Shared groups;
};
TYPED_TEST_SUITE(FailingArchive, ElementIdentifiers, KindName);

TYPED_TEST(FailingArchive, IsCompleteOrNotThereWhicheverAllocationFailsWhileSaving)
{
  const auto expected = this->saved(this->groups);
  bool hasFailed = true;
  for (std::size_t failing = 0; hasFailed; ++failing) {
    typename TestFixture::Bytes bytes;
    try {
      const AllocationWatch watch(failing);
      bytes = this->saved(this->groups);
    } catch (const std::bad_alloc&) {
    }
    hasFailed = AllocationWatch::hasFailed();
    EXPECT_EQ(bytes, hasFailed ? typename TestFixture::Bytes() : expected) << failing;
    EXPECT_EQ(this->groups.front().use_count(), 2) << failing;
    ASSERT_EQ(this->saved(this->groups), expected) << failing;
  }
}

TYPED_TEST(FailingArchive, CanBeLoadedAgainWhicheverAllocationFailsWhileLoading)
{
  const auto bytes = this->saved(this->groups);
  bool hasFailed = true;
  for (std::size_t failing = 0; hasFailed; ++failing) {
    auto loaded = this->groups;
    try {
      const AllocationWatch watch(failing);
      this->load(bytes, loaded);
    } catch (const std::bad_alloc&) {
    }
    hasFailed = AllocationWatch::hasFailed();

    this->load(bytes, loaded);

    ASSERT_EQ(loaded.size(), 3U) << failing;
    EXPECT_EQ(loaded[0], loaded[2]) << failing;
    EXPECT_EQ(this->saved(loaded), bytes) << failing;
  }
}

}
}
