// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"

#include <map>

namespace Tarvik {
class ArchiveReader;
class ArchiveWriter;
}

/// The classes met in one archive. Not for hosts.
namespace Tarvik::ClassTable {

/// By class hash.
using Records = std::map<unsigned int, BaseClassRegister>;

/// Adds a class, if it is registered.
void add(Records& classes, unsigned int classHash);

/// Appends the registered classes. The others have no name, and are erased.
void write(Records& classes, ArchiveWriter& writer);

/// Reads all that remains as a class table. The read version of each class is the one in the table.
/// @throws ArchiveError when the program does not know a class, or not in that version
Records read(ArchiveReader& reader);

}
