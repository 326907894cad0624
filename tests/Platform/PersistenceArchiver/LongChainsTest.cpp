// SPDX-License-Identifier: MIT
// Chains of shared objects that are longer than a stack is deep, saved as a list from their end.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Support/ThreadWithStack.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Tarvik {
namespace {

/// From the end of the chain to its beginning.
using Nodes = std::vector<std::shared_ptr<Node>>;

/// When each release of such a chain sets off the next one, they take many times this stack.
constexpr std::uint32_t length = 100'000;
constexpr std::size_t smallStack = std::size_t{256} * 1024;

Nodes chain()
{
  Nodes nodes;
  for (std::uint32_t value = 0; value < length; ++value) {
    auto node = std::make_shared<Node>();
    node->value = value;
    node->next = nodes.empty() ? nullptr : nodes.back();
    nodes.push_back(node);
  }
  return nodes;
}

/// Each node before those that follow it in the chain: no release sets off another one.
void release(Nodes& nodes)
{
  while (!nodes.empty())
    nodes.pop_back();
}

Bytes archivedChain()
{
  auto nodes = chain();
  auto archive = archived(nodes);
  release(nodes);
  return archive;
}

TEST(LongChains, AreReleasedByTheArchiveThatLoadedThem)
{
  const auto bytes = archivedChain();

  ThreadWithStack::run(smallStack, [&] {
    PersistenceArchiver source(bytes);
    Nodes nodes;
    source >> nodes;
    ASSERT_EQ(nodes.size(), length);
    nodes.clear(); // the archive has the last shares
  });
}

TEST(LongChains, AreReleasedByAnArchiveThatRefusesWhatFollowsThem)
{
  Bytes body;
  appendWord(body, length);
  for (std::uint32_t number = 1; number < length; ++number) {
    appendWord(body, number);
    appendWord(body, 12);
    appendWord(body, PersistenceArchiver::getHashForName("Test.Node"));
    appendWord(body, 7); // the value
    appendWord(body, number - 1);
  }
  appendWord(body, length + 1); // one more than the next number
  const auto bytes = archiveAround(body, {{"Test.Node"}});

  ThreadWithStack::run(smallStack, [&] { EXPECT_THROW(loadedFrom<Nodes>(bytes), ArchiveError); });
}

TEST(LongChains, AreReleasedByTheArchiveThatSavedThem)
{
  ThreadWithStack::run(smallStack, [] {
    PersistenceArchiver archive;
    auto nodes = chain();
    archive << nodes;
    nodes.clear();
  });
}

TEST(LongChains, AreReleasedByAnArchiveThatIsCleared)
{
  ThreadWithStack::run(smallStack, [] {
    PersistenceArchiver archive;
    auto nodes = chain();
    archive << nodes;
    nodes.clear();
    archive.clear();
  });
}

}
}
