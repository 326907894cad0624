// SPDX-License-Identifier: MIT
#include "PointCollections/Files/DiskLock.h"

#include "PointCollections/Support/Files.h"

#include <gmock/gmock.h>

#include <system_error>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;
using ::testing::NotNull;

class ALock : public ::testing::Test {
protected:
  TemporaryFolder m_folder;
  std::filesystem::path m_file = m_folder.path() / "lock";
};

TEST_F(ALock, IsHeldByOneOnly)
{
  const auto lock = DiskLock::tryTake(m_file);

  EXPECT_THAT(lock, NotNull());
  EXPECT_EQ(DiskLock::tryTake(m_file), nullptr);
  EXPECT_EQ(DiskLock::tryTake(m_file), nullptr) << "asking in vain does not release it";
}

TEST_F(ALock, CanBeTakenAgainAfterItsEnd)
{
  for (int i = 0; i < 3; ++i)
    EXPECT_THAT(DiskLock::tryTake(m_file), NotNull());
}

TEST_F(ALock, LeavesNothing)
{
  DiskLock::tryTake(m_file);

  EXPECT_TRUE(std::filesystem::is_empty(m_folder.path()));
}

TEST_F(ALock, TellsWhoHoldsIt)
{
  const auto lock = DiskLock::tryTake(m_file);

  EXPECT_THAT(holderOf(m_file), HasSubstr("process " + std::to_string(currentProcess())));
  EXPECT_THAT(holderOf(m_file), HasSubstr("PointCollectionsTests"));
}

TEST_F(ALock, IsHeldByAnotherProgramWhenItDoesNotTellByWhich)
{
  EXPECT_EQ(holderOf(m_file), "another program");
}

TEST_F(ALock, IsNotHeldByAFileThatSomebodyLeft)
{
  m_folder.write("lock", "process 1 (init), and some more");

  const auto lock = DiskLock::tryTake(m_file);

  ASSERT_THAT(lock, NotNull());
  EXPECT_THAT(holderOf(m_file), ::testing::EndsWith(")")) << "the old text is gone";
}

TEST_F(ALock, CannotBeWhereThereIsNoFolder)
{
  EXPECT_THROW(DiskLock::tryTake(m_folder.path() / "none" / "lock"), std::system_error);
}

}
}
