// SPDX-License-Identifier: MIT
// Forged groups take little more memory than their archive, whatever number of members they claim.

#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/Archives.h"
#include "Support/Allocations.h"
#include "Support/GroupRecords.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

namespace Tarvik {
namespace {

constexpr std::uint32_t memberBytes = 100'000;

/// A frame around the bytes.
Bytes frame(unsigned int classHash, const Bytes& content)
{
  Bytes bytes;
  appendWord(bytes, static_cast<std::uint32_t>(content.size() + 4));
  appendWord(bytes, classHash);
  bytes.insert(bytes.end(), content.begin(), content.end());
  return bytes;
}

/// An archive of one group with 100,000 bytes of members.
/// @param memberClass  the class hash of its member block
/// @param count        how many members it claims
template <class T>
Bytes archivedGroup(unsigned int memberClass, std::uint32_t count)
{
  Bytes name;
  appendText(name, "G");
  Bytes members;
  appendWord(members, count);
  members.resize(members.size() + memberBytes);

  auto group = frame(PersistenceArchiver::getHashForName("NameInterface"), name);
  group.resize(group.size() + 16); // the id
  const auto block = frame(memberClass, members);
  group.insert(group.end(), block.begin(), block.end());
  return archiveAround(
      frame(PersistenceArchiver::getHashForName(groupClassName<T>()), group),
      {{groupClassName<T>(), 500001}, {"NameInterface"}, {"Identifier"}, {"GUIdentifier"}});
}

/// The largest allocation while the group is loaded or refused.
template <class T>
std::size_t memoryFor(const Bytes& archive)
{
  TKGroup<T> group;
  const AllocationWatch watch;
  try {
    PersistenceArchiver source(archive);
    source >> group;
  } catch (const ArchiveError&) {
    EXPECT_GT(AllocationWatch::count(), 0U) << "the error's text";
  }
  return AllocationWatch::largest();
}

template <class T>
class HostileGroup : public ::testing::Test {};
TYPED_TEST_SUITE(HostileGroup, ElementIdentifiers, KindName);

TYPED_TEST(HostileGroup, TakesNoMemoryForMoreMembersThanItsBytesCanHold)
{
  const auto ownClass = recordOf<TypeParam>().classHash;

  for (const std::uint32_t count : {memberBytes / 16 + 1, memberBytes, 0x80000000U, 0xffffffffU})
    EXPECT_LT(memoryFor<TypeParam>(archivedGroup<TypeParam>(ownClass, count)), 1'024U) << count;
}

TYPED_TEST(HostileGroup, TakesAsMuchMemoryAsItsBytesForItsMembers)
{
  const auto archive = archivedGroup<TypeParam>(recordOf<TypeParam>().classHash, memberBytes / 16);

  EXPECT_LE(memoryFor<TypeParam>(archive), archive.size());
}

TYPED_TEST(HostileGroup, TakesAtMost16BytesForEachOfItsBytesWhateverItsMembersClaimToBe)
{
  constexpr unsigned int unknown = 0x12345678;
  const unsigned int classes[] = {
      unknown, BaseClassRegister::unknownClassHash, recordOf<TypeParam>().classHash,
      recordOf<NameInterface>().classHash, recordOf<TKGroup<TypeParam>>().classHash};
  for (const auto memberClass : classes)
    for (const std::uint32_t count : {memberBytes / 16, memberBytes / 4, memberBytes / 4 + 1,
                                      memberBytes, memberBytes + 1, 0xffffffffU}) {
      const auto archive = archivedGroup<TypeParam>(memberClass, count);

      EXPECT_LE(memoryFor<TypeParam>(archive), 16 * archive.size()) << memberClass << ": " << count;
    }
}

}
}

#endif
