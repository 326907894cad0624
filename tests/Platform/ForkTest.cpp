// SPDX-License-Identifier: MIT
// A process that is forked while its threads use the platform: the child has only the thread that
// forked it, and nobody there would release what the others had locked.

#if defined(__has_feature)
#define TKM_HAS_FEATURE(feature) __has_feature(feature)
#else
#define TKM_HAS_FEATURE(feature) 0
#endif

// Windows cannot fork. ThreadSanitizer does not support threads in a process that forks.
#if defined(__unix__) && !defined(__SANITIZE_THREAD__) && !TKM_HAS_FEATURE(thread_sanitizer)

#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Translator/Translator.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace Tarvik {
namespace {

/// Threads that repeat an action for as long as they live.
class BusyThreads {
public:
  explicit BusyThreads(const std::function<void()>& action)
  {
    constexpr int count = 3;
    for (int i = 0; i < count; ++i)
      m_threads.emplace_back([this, action] {
        while (!m_stop)
          action();
      });
  }
  BusyThreads(const BusyThreads&) = delete;
  BusyThreads& operator=(const BusyThreads&) = delete;
  ~BusyThreads()
  {
    m_stop = true;
    for (auto& thread : m_threads)
      thread.join();
  }

private:
  std::atomic<bool> m_stop = false;
  std::vector<std::thread> m_threads;
};

/// @return whether the action came to its end in a forked child
bool endsInAChild(const std::function<void()>& action)
{
  constexpr unsigned int longestSeconds = 20;
  const auto child = ::fork();
  if (child == 0) {
    ::alarm(longestSeconds);
    action();
    ::_exit(0);
  }
  int status = -1;
  return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

/// Fewer with AddressSanitizer: it makes a fork slow, since its shadow memory is copied as well.
#if defined(__SANITIZE_ADDRESS__) || TKM_HAS_FEATURE(address_sanitizer)
constexpr int children = 30;
#else
constexpr int children = 300;
#endif

/// @return how many children came to their end; no more are forked after one that did not
int endedChildren(const std::function<void()>& action)
{
  const BusyThreads threads(action);
  int ended = 0;
  while (ended < children && endsInAChild(action))
    ++ended;
  return ended;
}

void useRegistry()
{
  const auto archive = archived(std::make_shared<Point>());
  PersistenceArchiver source(archive);
  std::shared_ptr<Point> loaded;
  source >> loaded;
}

void useTranslator()
{
  Translator::installCatalogue({});
  static_cast<void>(Translator::translate("Context", "Text", nullptr, -1));
}

// The iterators of these checks take locks of the C++ library, which a fork() leaves taken.
#if !defined(_GLIBCXX_DEBUG)
TEST(ForkedChild, CanUseArchivesWhateverItsParentsThreadsDid)
{
  EXPECT_EQ(endedChildren(useRegistry), children);
}
#endif

TEST(ForkedChild, CanTranslateWhateverItsParentsThreadsDid)
{
  EXPECT_EQ(endedChildren(useTranslator), children);
}

TEST(ForkedChild, LeavesItsParentAsItWas)
{
  ASSERT_TRUE(endsInAChild([] {}));

  useRegistry();
  useTranslator();
  std::thread([] {
    useRegistry();
    useTranslator();
  }).join();
}

}
}

#endif
