// SPDX-License-Identifier: MIT
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <thread>
#include <vector>

#if defined(__unix__)
#include <array>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace Tarvik {
namespace {

constexpr std::size_t blockSize = 65'536;

template <class T>
class UniqueIds : public ::testing::Test {
protected:
  static std::vector<T> draw(std::size_t count) { return std::vector<T>(count); }

  /// How many of the identifiers are invalid or equal to another one.
  static std::size_t faults(std::vector<T> ids)
  {
    std::sort(ids.begin(), ids.end());
    std::size_t count = 0;
    for (std::size_t i = 0; i < ids.size(); ++i)
      if (!ids[i].isValid() || (i > 0 && ids[i] == ids[i - 1]))
        ++count;
    return count;
  }

  static void add(std::vector<T>& ids, const std::vector<T>& more)
  {
    ids.insert(ids.end(), more.begin(), more.end());
  }
};
TYPED_TEST_SUITE(UniqueIds, ElementIdentifiers, KindName);

TYPED_TEST(UniqueIds, AreUniqueOverAMillion)
{
  EXPECT_EQ(this->faults(this->draw(1'000'000)), 0U);
}

TYPED_TEST(UniqueIds, AreUniqueAcrossThreads)
{
  constexpr std::size_t threadCount = 8;
  std::vector<std::vector<TypeParam>> drawn(threadCount);
  std::vector<std::thread> threads;
  threads.reserve(threadCount);
  for (auto& ids : drawn)
    threads.emplace_back([&ids, this] { ids = this->draw(blockSize + 5'000); });
  for (auto& thread : threads)
    thread.join();

  std::vector<TypeParam> all;
  for (const auto& ids : drawn)
    this->add(all, ids);

  EXPECT_EQ(all.size(), threadCount * (blockSize + 5'000));
  EXPECT_EQ(this->faults(all), 0U);
}

TYPED_TEST(UniqueIds, AreUniqueAcrossThreadsThatFollowEachOther)
{
  std::vector<TypeParam> all;
  for (int i = 0; i < 50; ++i)
    std::thread([&all, this] { this->add(all, this->draw(10)); }).join();

  EXPECT_EQ(all.size(), 500U);
  EXPECT_EQ(this->faults(all), 0U);
}

TEST(UniqueIdsOfBothKinds, ShareNoBits)
{
  std::vector<Identifier> all;
  for (int i = 0; i < 1000; ++i) {
    all.emplace_back();
    all.emplace_back(GUIdentifier().bits());
  }
  std::sort(all.begin(), all.end());

  EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
}

#if defined(__unix__) // Windows cannot fork

/// A forked process that creates identifiers and sends them to its parent.
template <class T>
class Child {
public:
  explicit Child(std::size_t count, bool forksAgain = false)
  {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
      throw std::runtime_error("no pipe");
    m_source = ends[0];
    m_process = ::fork();
    if (m_process < 0)
      throw std::runtime_error("no fork");
    if (m_process == 0)
      ::_exit(drawInto(ends[1], count, forksAgain) ? 0 : 1);
    ::close(ends[1]);
  }

  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() { ::close(m_source); }

  /// Waits for the process to end.
  std::vector<T> ids()
  {
    std::vector<T> result;
    IdentifierBits bits;
    while (::read(m_source, &bits, sizeof bits) == static_cast<ssize_t>(sizeof bits))
      result.emplace_back(bits);
    int status = -1;
    ::waitpid(m_process, &status, 0);
    EXPECT_EQ(status, 0) << "the child failed";
    return result;
  }

private:
  /// Runs in the child. Must not use anything that another thread may have locked.
  static bool drawInto(int target, std::size_t count, bool forksAgain)
  {
    if (!send(target, count))
      return false;
    if (!forksAgain)
      return true;
    const auto grandchild = ::fork();
    if (grandchild == 0)
      ::_exit(send(target, count) ? 0 : 1);
    int status = -1;
    return ::waitpid(grandchild, &status, 0) == grandchild && status == 0 && send(target, count);
  }

  static bool send(int target, std::size_t count)
  {
    for (std::size_t i = 0; i < count; ++i) {
      const auto bits = T().bits();
      if (::write(target, &bits, sizeof bits) != static_cast<ssize_t>(sizeof bits))
        return false;
    }
    return true;
  }

  int m_source = -1;
  pid_t m_process = -1;
};

TYPED_TEST(UniqueIds, AreUniqueAfterAFork)
{
  auto all = this->draw(3); // leaves an open block to the child
  Child<TypeParam> child(100);
  this->add(all, this->draw(100));

  this->add(all, child.ids());

  EXPECT_EQ(all.size(), 203U);
  EXPECT_EQ(this->faults(all), 0U);
}

TYPED_TEST(UniqueIds, AreUniqueAcrossSeveralChildren)
{
  auto all = this->draw(1);
  Child<TypeParam> first(100);
  Child<TypeParam> second(100);
  this->add(all, this->draw(100));
  Child<TypeParam> third(100);

  this->add(all, first.ids());
  this->add(all, second.ids());
  this->add(all, third.ids());

  EXPECT_EQ(all.size(), 401U);
  EXPECT_EQ(this->faults(all), 0U);
}

TYPED_TEST(UniqueIds, AreUniqueAcrossGenerations)
{
  auto all = this->draw(1);
  Child<TypeParam> child(50, true);
  this->add(all, this->draw(200));

  this->add(all, child.ids());

  EXPECT_EQ(all.size(), 351U);
  EXPECT_EQ(this->faults(all), 0U);
}

TYPED_TEST(UniqueIds, AreUniqueAfterAForkAtAnyPlaceInABlock)
{
  for (const std::size_t drawnBefore : {blockSize - 2, std::size_t(1), std::size_t(1)}) {
    auto all = this->draw(drawnBefore);
    Child<TypeParam> child(10);
    this->add(all, this->draw(10));

    this->add(all, child.ids());

    EXPECT_EQ(all.size(), drawnBefore + 20);
    EXPECT_EQ(this->faults(all), 0U) << drawnBefore << " drawn before the fork";
  }
}

TYPED_TEST(UniqueIds, AreUniqueAfterAForkInAnotherThread)
{
  auto all = this->draw(1);
  std::thread([&all, this] {
    Child<TypeParam> early(100); // forked before this thread has a block
    this->add(all, this->draw(1));
    Child<TypeParam> late(100);
    this->add(all, this->draw(100));
    this->add(all, early.ids());
    this->add(all, late.ids());
  }).join();
  this->add(all, this->draw(100));

  EXPECT_EQ(all.size(), 402U);
  EXPECT_EQ(this->faults(all), 0U);
}

#endif

}
}
