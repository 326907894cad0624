// SPDX-License-Identifier: MIT
// The stack that archives take. docs/using.md asks for more, so that something is left for the load
// and save entries of programs.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Support/ThreadWithStack.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>

namespace Tarvik {
namespace {

constexpr std::size_t enoughStack = (hasSanitizer ? 2048 : 320) * std::size_t{1024};

constexpr unsigned int greatestDepth = 250;

std::shared_ptr<Node> chainOf(unsigned int length)
{
  std::shared_ptr<Node> first;
  for (unsigned int i = 0; i < length; ++i) {
    auto node = std::make_shared<Node>();
    node->next = first;
    first = node;
  }
  return first;
}

unsigned int lengthOf(const Node* node)
{
  unsigned int length = 0;
  for (; node != nullptr; node = node->next.get())
    ++length;
  return length;
}

TEST(ArchiveStack, IsEnoughToSaveObjectsAsDeepAsTheyMayBe)
{
  const auto chain = chainOf(greatestDepth);

  ThreadWithStack::run(enoughStack, [&] {
    PersistenceArchiver archive;
    EXPECT_NO_THROW(archive << chain);
  });
}

TEST(ArchiveStack, IsEnoughToRefuseToSaveDeeperOnes)
{
  const auto chain = chainOf(greatestDepth + 1);

  ThreadWithStack::run(enoughStack, [&] {
    PersistenceArchiver archive;
    EXPECT_THROW(archive << chain, ArchiveError);
  });
}

TEST(ArchiveStack, IsEnoughToLoadObjectsAsDeepAsTheyMayBe)
{
  const auto archive = archived(chainOf(greatestDepth));

  ThreadWithStack::run(enoughStack, [&] {
    const auto loaded = loadedFrom<std::shared_ptr<Node>>(archive);
    EXPECT_EQ(lengthOf(loaded.get()), greatestDepth);
  });
}

TEST(ArchiveStack, IsEnoughToRefuseWhatIsDeepInAnArchive)
{
  auto archive = archived(chainOf(greatestDepth));
  const auto endOfBody = wordAt(archive, 16);
  setWordAt(archive, endOfBody - 4, 0xffffffff); // the last node's next one
  setChecksum(archive);

  ThreadWithStack::run(
      enoughStack, [&] { EXPECT_THROW(loadedFrom<std::shared_ptr<Node>>(archive), ArchiveError); });
}

}
}
