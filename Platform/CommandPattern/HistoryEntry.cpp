// SPDX-License-Identifier: MIT
#include "CommandPattern/HistoryEntry.h"

namespace Tarvik {

HistoryEntry::HistoryEntry() = default;
HistoryEntry::HistoryEntry(const HistoryEntry&) = default;
HistoryEntry& HistoryEntry::operator=(const HistoryEntry&) = default;
HistoryEntry::~HistoryEntry() = default;

std::size_t HistoryEntry::sizeInBytes() const
{
  return 0;
}

bool HistoryEntry::hasChangedNothing() const
{
  return false;
}

bool HistoryEntry::mergeWith(CommandBase&)
{
  return false;
}

}
