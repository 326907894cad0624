// SPDX-License-Identifier: MIT
// Most of this is tested through the history's listeners. These tests are for the rest.
#include "CommandPattern/ChangeListeners.h"

#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace Tarvik {
namespace {

TEST(ChangeListeners, AreReleasedWhenTheyUnsubscribe)
{
  ChangeListeners listeners;
  const AllocationWatch watch;

  for (int i = 0; i < 1000; ++i)
    const auto subscription = listeners.subscribe([] {});

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there
  EXPECT_GE(watch.count(), 1000U);
  EXPECT_LE(watch.count() - watch.released(), 8U) << "the last one, and the list's own store";
#endif
}

TEST(ChangeListeners, AreToldInTheOrderInWhichTheySubscribed)
{
  ChangeListeners listeners;
  std::string told;
  const auto first = listeners.subscribe([&] { told += 'a'; });
  const auto second = listeners.subscribe([&] { told += 'b'; });

  listeners.tell();

  EXPECT_EQ(told, "ab");
}

TEST(ChangeListeners, AreToldQuietlyWhileAnotherExceptionIsHandled)
{
  ChangeListeners listeners;
  int told = 0;
  const auto failing = listeners.subscribe([] { throw std::runtime_error("no"); });
  const auto other = listeners.subscribe([&] { ++told; });

  EXPECT_NO_THROW(listeners.tellQuietly());
  EXPECT_EQ(told, 1);
}

}
}
