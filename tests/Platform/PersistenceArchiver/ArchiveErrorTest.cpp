// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ArchiveError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

namespace Tarvik {
namespace {

TEST(ArchiveErrors, TellThePlaceAndWhatIsWrongThere)
{
  const ArchiveError error(17, "expected 4 more bytes, found 1");

  EXPECT_EQ(error.position(), 17U);
  EXPECT_STREQ(error.what(), "archive, byte 17: expected 4 more bytes, found 1");
}

TEST(ArchiveErrors, MayBeCopied)
{
  const ArchiveError source(3, "source");
  ArchiveError assigned(0, "old");

  const ArchiveError copy(source); // NOLINT(performance-unnecessary-copy-initialization)
  auto& result = (assigned = source);

  EXPECT_EQ(&result, &assigned);
  EXPECT_EQ(copy.position(), 3U);
  EXPECT_STREQ(copy.what(), source.what());
  EXPECT_EQ(assigned.position(), 3U);
  EXPECT_STREQ(assigned.what(), source.what());
  static_assert(std::is_nothrow_copy_constructible_v<ArchiveError>);
}

TEST(ArchiveErrors, AreRuntimeErrorsToThoseWhoDoNotCareForThePlace)
{
  EXPECT_THROW(throw ArchiveError(0, ""), std::runtime_error);
}

}
}
