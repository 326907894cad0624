// SPDX-License-Identifier: MIT
// The private fields of the classes are part of their binary interface: a debugger view or a tool
// that knows the layout finds them by name and place.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

namespace Tarvik {
namespace {

/// The distance of a field from the start of its object, as the Itanium C++ ABI writes it down.
template <class Field>
std::ptrdiff_t offsetOf(Field field)
{
  std::ptrdiff_t offset = 0;
  static_assert(sizeof field == sizeof offset);
  std::memcpy(&offset, &field, sizeof offset);
  return offset;
}

/// Instantiating this explicitly defines `offsetsOfFields(Class*)`. Access is not checked for the
/// arguments of an explicit instantiation, so they may be private fields.
template <class Class, auto... Fields>
struct FieldOffsets {
  friend std::vector<std::ptrdiff_t> offsetsOfFields(Class*) { return {offsetOf(Fields)...}; }
};

std::vector<std::ptrdiff_t> offsetsOfFields(AddToTKGroupCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(AddToTKGroupCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(CreateTKGroupCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(CreateTKGroupCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(MoveTKGroupElementsCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(MoveTKGroupElementsCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(RemoveFromTKGroupCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(RemoveFromTKGroupCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(RemoveTKGroupsCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(RemoveTKGroupsCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(RenameTKGroupCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(RenameTKGroupCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(SortTKGroupsAlphabeticallyCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(SortTKGroupsAlphabeticallyCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(TKGroup<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(TKGroup<GUIdentifier>*);

template struct FieldOffsets<AddToTKGroupCmd<Identifier>,
                             &AddToTKGroupCmd<Identifier>::m_provider,
                             &AddToTKGroupCmd<Identifier>::m_targetGroupId,
                             &AddToTKGroupCmd<Identifier>::m_elements,
                             &AddToTKGroupCmd<Identifier>::m_groupsAfter,
                             &AddToTKGroupCmd<Identifier>::m_groupsBefore,
                             &AddToTKGroupCmd<Identifier>::m_changed,
                             &AddToTKGroupCmd<Identifier>::m_insertIndex>;
template struct FieldOffsets<AddToTKGroupCmd<GUIdentifier>,
                             &AddToTKGroupCmd<GUIdentifier>::m_provider,
                             &AddToTKGroupCmd<GUIdentifier>::m_targetGroupId,
                             &AddToTKGroupCmd<GUIdentifier>::m_elements,
                             &AddToTKGroupCmd<GUIdentifier>::m_groupsAfter,
                             &AddToTKGroupCmd<GUIdentifier>::m_groupsBefore,
                             &AddToTKGroupCmd<GUIdentifier>::m_changed,
                             &AddToTKGroupCmd<GUIdentifier>::m_insertIndex>;
template struct FieldOffsets<CreateTKGroupCmd<Identifier>,
                             &CreateTKGroupCmd<Identifier>::m_provider,
                             &CreateTKGroupCmd<Identifier>::m_name,
                             &CreateTKGroupCmd<Identifier>::m_elements,
                             &CreateTKGroupCmd<Identifier>::m_groupsAfter,
                             &CreateTKGroupCmd<Identifier>::m_groupsBefore>;
template struct FieldOffsets<CreateTKGroupCmd<GUIdentifier>,
                             &CreateTKGroupCmd<GUIdentifier>::m_provider,
                             &CreateTKGroupCmd<GUIdentifier>::m_name,
                             &CreateTKGroupCmd<GUIdentifier>::m_elements,
                             &CreateTKGroupCmd<GUIdentifier>::m_groupsAfter,
                             &CreateTKGroupCmd<GUIdentifier>::m_groupsBefore>;
template struct FieldOffsets<MoveTKGroupElementsCmd<Identifier>,
                             &MoveTKGroupElementsCmd<Identifier>::m_provider,
                             &MoveTKGroupElementsCmd<Identifier>::m_target,
                             &MoveTKGroupElementsCmd<Identifier>::m_elements,
                             &MoveTKGroupElementsCmd<Identifier>::m_insertBefore,
                             &MoveTKGroupElementsCmd<Identifier>::m_macroCommand>;
template struct FieldOffsets<MoveTKGroupElementsCmd<GUIdentifier>,
                             &MoveTKGroupElementsCmd<GUIdentifier>::m_provider,
                             &MoveTKGroupElementsCmd<GUIdentifier>::m_target,
                             &MoveTKGroupElementsCmd<GUIdentifier>::m_elements,
                             &MoveTKGroupElementsCmd<GUIdentifier>::m_insertBefore,
                             &MoveTKGroupElementsCmd<GUIdentifier>::m_macroCommand>;
template struct FieldOffsets<RemoveFromTKGroupCmd<Identifier>,
                             &RemoveFromTKGroupCmd<Identifier>::m_provider,
                             &RemoveFromTKGroupCmd<Identifier>::m_elements,
                             &RemoveFromTKGroupCmd<Identifier>::m_groupsAfter,
                             &RemoveFromTKGroupCmd<Identifier>::m_groupsBefore>;
template struct FieldOffsets<RemoveFromTKGroupCmd<GUIdentifier>,
                             &RemoveFromTKGroupCmd<GUIdentifier>::m_provider,
                             &RemoveFromTKGroupCmd<GUIdentifier>::m_elements,
                             &RemoveFromTKGroupCmd<GUIdentifier>::m_groupsAfter,
                             &RemoveFromTKGroupCmd<GUIdentifier>::m_groupsBefore>;
template struct FieldOffsets<RemoveTKGroupsCmd<Identifier>,
                             &RemoveTKGroupsCmd<Identifier>::m_provider,
                             &RemoveTKGroupsCmd<Identifier>::m_groupIds,
                             &RemoveTKGroupsCmd<Identifier>::m_groupsAfter,
                             &RemoveTKGroupsCmd<Identifier>::m_groupsBefore>;
template struct FieldOffsets<RemoveTKGroupsCmd<GUIdentifier>,
                             &RemoveTKGroupsCmd<GUIdentifier>::m_provider,
                             &RemoveTKGroupsCmd<GUIdentifier>::m_groupIds,
                             &RemoveTKGroupsCmd<GUIdentifier>::m_groupsAfter,
                             &RemoveTKGroupsCmd<GUIdentifier>::m_groupsBefore>;
template struct FieldOffsets<RenameTKGroupCmd<Identifier>,
                             &RenameTKGroupCmd<Identifier>::m_provider,
                             &RenameTKGroupCmd<Identifier>::m_groupId,
                             &RenameTKGroupCmd<Identifier>::m_newName,
                             &RenameTKGroupCmd<Identifier>::m_oldName>;
template struct FieldOffsets<RenameTKGroupCmd<GUIdentifier>,
                             &RenameTKGroupCmd<GUIdentifier>::m_provider,
                             &RenameTKGroupCmd<GUIdentifier>::m_groupId,
                             &RenameTKGroupCmd<GUIdentifier>::m_newName,
                             &RenameTKGroupCmd<GUIdentifier>::m_oldName>;
template struct FieldOffsets<SortTKGroupsAlphabeticallyCmd<Identifier>,
                             &SortTKGroupsAlphabeticallyCmd<Identifier>::m_provider,
                             &SortTKGroupsAlphabeticallyCmd<Identifier>::m_groupsAfter,
                             &SortTKGroupsAlphabeticallyCmd<Identifier>::m_groupsBefore>;
template struct FieldOffsets<SortTKGroupsAlphabeticallyCmd<GUIdentifier>,
                             &SortTKGroupsAlphabeticallyCmd<GUIdentifier>::m_provider,
                             &SortTKGroupsAlphabeticallyCmd<GUIdentifier>::m_groupsAfter,
                             &SortTKGroupsAlphabeticallyCmd<GUIdentifier>::m_groupsBefore>;
template struct FieldOffsets<TKGroup<Identifier>,
                             &TKGroup<Identifier>::m_members,
                             &TKGroup<Identifier>::m_id>;
template struct FieldOffsets<TKGroup<GUIdentifier>,
                             &TKGroup<GUIdentifier>::m_members,
                             &TKGroup<GUIdentifier>::m_id>;

template <class Class>
class Fields : public ::testing::Test {};
using Classes = ::testing::Types<AddToTKGroupCmd<Identifier>,
                                 AddToTKGroupCmd<GUIdentifier>,
                                 CreateTKGroupCmd<Identifier>,
                                 CreateTKGroupCmd<GUIdentifier>,
                                 MoveTKGroupElementsCmd<Identifier>,
                                 MoveTKGroupElementsCmd<GUIdentifier>,
                                 RemoveFromTKGroupCmd<Identifier>,
                                 RemoveFromTKGroupCmd<GUIdentifier>,
                                 RemoveTKGroupsCmd<Identifier>,
                                 RemoveTKGroupsCmd<GUIdentifier>,
                                 RenameTKGroupCmd<Identifier>,
                                 RenameTKGroupCmd<GUIdentifier>,
                                 SortTKGroupsAlphabeticallyCmd<Identifier>,
                                 SortTKGroupsAlphabeticallyCmd<GUIdentifier>,
                                 TKGroup<Identifier>,
                                 TKGroup<GUIdentifier>>;
TYPED_TEST_SUITE(Fields, Classes);

TYPED_TEST(Fields, StandBehindTheBaseInTheirOrder)
{
  const auto offsets = offsetsOfFields(static_cast<TypeParam*>(nullptr));

  EXPECT_GE(offsets.front(), static_cast<std::ptrdiff_t>(sizeof(void*)));
  EXPECT_TRUE(std::is_sorted(offsets.begin(), offsets.end())) << ::testing::PrintToString(offsets);
}

}
}
