// SPDX-License-Identifier: MIT
// Programs for Windows include our headers after windows.h, and may need its macros.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <functional>
#include <iterator>
#include <limits>
#include <list>
#include <locale>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

// The macros of windows.h that are spelled like names of C++. The standard library's headers come
// first: only those of Visual C++ compile with the macros.
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define near
#define far
#define small char
#define interface struct
#define ERROR 0
#define DELETE (0x00010000L)

#include "CommandPattern/ChangeListeners.h"
#include "CommandPattern/CommandBase.h"
#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/LegacyProgress.h"
#include "CommandPattern/MacroCommand.h"
#include "GeneralServices/NameInterface.h"
#include "GeneralServices/NameSetProvider.h"
#include "GeneralServices/SimpleNameSetProvider.h"
#include "GeneralServices/StringUtility.h"
#include "GeneralServices/UniqueNameProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "HighLevelServices/Groups/ElementIdentifier.h"
#include "HighLevelServices/Groups/PointerMapContainer.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Identifier/IdentifierBits.h"
#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/Caster.h"
#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/LittleEndian.h"
#include "PersistenceArchiver/MapContainer.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Translator/Translator.h"

namespace Tarvik {
namespace {

TEST(Headers, CompileWithTheMacrosOfWindows)
{
  PersistenceArchiver archive;
  archive << std::vector<Identifier>(2);
  const auto bytes = archive.finish();
  PersistenceArchiver source(bytes);
  std::vector<Identifier> loaded;

  source >> loaded; // compiled here, macros and all

  EXPECT_EQ(loaded.size(), 2U);
}

}
}
