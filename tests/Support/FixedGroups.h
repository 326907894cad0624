// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameInterface.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/IdentifierBits.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Support/GroupRecords.h"

#include <cstdint>
#include <string>
#include <vector>

/// Groups that are the same in every run, for tests that compare bytes. For the bundled platform.
namespace Tarvik {

/// An identifier that is easy to find in bytes: `fixed<T>(0x1a)` ends with "1a 00 00 00 00 00 00
/// 00".
template <class T>
T fixed(std::uint64_t low)
{
  return T(IdentifierBits{0x0807060504030201, low});
}

/// Writes a frame of the class around what the action writes.
template <class C, class Action>
void inFrameOf(PersistenceArchiver& archive, Action action)
{
  const auto start = static_cast<unsigned int>(archive.tellp() + 4);
  archive.mark_object_start(start, recordOf<C>().classHash);
  action();
  archive.mark_object_end(start, static_cast<unsigned int>(archive.tellp()));
}

/// A group with an id of the caller's choice, which only loading can give it.
template <class T>
TKGroup<T>
fixedGroup(const Identifier& id, const std::string& name, const std::vector<T>& members = {})
{
  PersistenceArchiver writer;
  inFrameOf<TKGroup<T>>(writer, [&] {
    inFrameOf<NameInterface>(writer, [&] { writer << name; });
    writer << id;
    inFrameOf<T>(writer, [&] {
      writer << static_cast<unsigned int>(members.size());
      for (const auto& member : members)
        writer << member.bits().high << member.bits().low;
    });
  });
  PersistenceArchiver reader(writer.finish());
  TKGroup<T> group;
  reader >> group;
  return group;
}

}
