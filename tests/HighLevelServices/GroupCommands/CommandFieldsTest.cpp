// SPDX-License-Identifier: MIT
// The private fields of the classes are part of their binary interface: a debugger view or a tool
// that knows the layout finds them by name and offset.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace Tarvik {
namespace {

/// The place of a field in its object.
struct Field {
  std::size_t offset;
  std::size_t size;
  std::size_t alignment;
};

/// Reads a pointer to a member, which is the offset in the Itanium C++ ABI and for Visual C++;
/// there it has 32 bits, of a machine that has the lowest ones first.
template <class Class, class Type>
Field fieldOf(Type Class::*member)
{
  std::size_t offset = 0;
  static_assert(sizeof member <= sizeof offset);
  std::memcpy(&offset, &member, sizeof member);
  return {offset, sizeof(Type), alignof(Type)};
}

/// Instantiating this explicitly defines `fieldsOf(Class*)`. Access is not checked for the
/// arguments of an explicit instantiation, so they may be private fields.
template <class Class, auto... Members>
struct Fields {
  friend std::vector<Field> fieldsOf(Class*) { return {fieldOf(Members)...}; }
};

std::vector<Field> fieldsOf(AddToTKGroupCmd<Identifier>*);
std::vector<Field> fieldsOf(AddToTKGroupCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(CreateTKGroupCmd<Identifier>*);
std::vector<Field> fieldsOf(CreateTKGroupCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(MoveTKGroupElementsCmd<Identifier>*);
std::vector<Field> fieldsOf(MoveTKGroupElementsCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(RemoveFromTKGroupCmd<Identifier>*);
std::vector<Field> fieldsOf(RemoveFromTKGroupCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(RemoveTKGroupsCmd<Identifier>*);
std::vector<Field> fieldsOf(RemoveTKGroupsCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(RenameTKGroupCmd<Identifier>*);
std::vector<Field> fieldsOf(RenameTKGroupCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(SortTKGroupsAlphabeticallyCmd<Identifier>*);
std::vector<Field> fieldsOf(SortTKGroupsAlphabeticallyCmd<GUIdentifier>*);
std::vector<Field> fieldsOf(TKGroup<Identifier>*);
std::vector<Field> fieldsOf(TKGroup<GUIdentifier>*);

template struct Fields<AddToTKGroupCmd<Identifier>,
                       &AddToTKGroupCmd<Identifier>::m_provider,
                       &AddToTKGroupCmd<Identifier>::m_targetGroupId,
                       &AddToTKGroupCmd<Identifier>::m_elements,
                       &AddToTKGroupCmd<Identifier>::m_groupsAfter,
                       &AddToTKGroupCmd<Identifier>::m_groupsBefore,
                       &AddToTKGroupCmd<Identifier>::m_changed,
                       &AddToTKGroupCmd<Identifier>::m_insertIndex>;
template struct Fields<AddToTKGroupCmd<GUIdentifier>,
                       &AddToTKGroupCmd<GUIdentifier>::m_provider,
                       &AddToTKGroupCmd<GUIdentifier>::m_targetGroupId,
                       &AddToTKGroupCmd<GUIdentifier>::m_elements,
                       &AddToTKGroupCmd<GUIdentifier>::m_groupsAfter,
                       &AddToTKGroupCmd<GUIdentifier>::m_groupsBefore,
                       &AddToTKGroupCmd<GUIdentifier>::m_changed,
                       &AddToTKGroupCmd<GUIdentifier>::m_insertIndex>;
template struct Fields<CreateTKGroupCmd<Identifier>,
                       &CreateTKGroupCmd<Identifier>::m_provider,
                       &CreateTKGroupCmd<Identifier>::m_name,
                       &CreateTKGroupCmd<Identifier>::m_elements,
                       &CreateTKGroupCmd<Identifier>::m_groupsAfter,
                       &CreateTKGroupCmd<Identifier>::m_groupsBefore>;
template struct Fields<CreateTKGroupCmd<GUIdentifier>,
                       &CreateTKGroupCmd<GUIdentifier>::m_provider,
                       &CreateTKGroupCmd<GUIdentifier>::m_name,
                       &CreateTKGroupCmd<GUIdentifier>::m_elements,
                       &CreateTKGroupCmd<GUIdentifier>::m_groupsAfter,
                       &CreateTKGroupCmd<GUIdentifier>::m_groupsBefore>;
template struct Fields<MoveTKGroupElementsCmd<Identifier>,
                       &MoveTKGroupElementsCmd<Identifier>::m_provider,
                       &MoveTKGroupElementsCmd<Identifier>::m_target,
                       &MoveTKGroupElementsCmd<Identifier>::m_elements,
                       &MoveTKGroupElementsCmd<Identifier>::m_insertBefore,
                       &MoveTKGroupElementsCmd<Identifier>::m_macroCommand>;
template struct Fields<MoveTKGroupElementsCmd<GUIdentifier>,
                       &MoveTKGroupElementsCmd<GUIdentifier>::m_provider,
                       &MoveTKGroupElementsCmd<GUIdentifier>::m_target,
                       &MoveTKGroupElementsCmd<GUIdentifier>::m_elements,
                       &MoveTKGroupElementsCmd<GUIdentifier>::m_insertBefore,
                       &MoveTKGroupElementsCmd<GUIdentifier>::m_macroCommand>;
template struct Fields<RemoveFromTKGroupCmd<Identifier>,
                       &RemoveFromTKGroupCmd<Identifier>::m_provider,
                       &RemoveFromTKGroupCmd<Identifier>::m_elements,
                       &RemoveFromTKGroupCmd<Identifier>::m_groupsAfter,
                       &RemoveFromTKGroupCmd<Identifier>::m_groupsBefore>;
template struct Fields<RemoveFromTKGroupCmd<GUIdentifier>,
                       &RemoveFromTKGroupCmd<GUIdentifier>::m_provider,
                       &RemoveFromTKGroupCmd<GUIdentifier>::m_elements,
                       &RemoveFromTKGroupCmd<GUIdentifier>::m_groupsAfter,
                       &RemoveFromTKGroupCmd<GUIdentifier>::m_groupsBefore>;
template struct Fields<RemoveTKGroupsCmd<Identifier>,
                       &RemoveTKGroupsCmd<Identifier>::m_provider,
                       &RemoveTKGroupsCmd<Identifier>::m_groupIds,
                       &RemoveTKGroupsCmd<Identifier>::m_groupsAfter,
                       &RemoveTKGroupsCmd<Identifier>::m_groupsBefore>;
template struct Fields<RemoveTKGroupsCmd<GUIdentifier>,
                       &RemoveTKGroupsCmd<GUIdentifier>::m_provider,
                       &RemoveTKGroupsCmd<GUIdentifier>::m_groupIds,
                       &RemoveTKGroupsCmd<GUIdentifier>::m_groupsAfter,
                       &RemoveTKGroupsCmd<GUIdentifier>::m_groupsBefore>;
template struct Fields<RenameTKGroupCmd<Identifier>,
                       &RenameTKGroupCmd<Identifier>::m_provider,
                       &RenameTKGroupCmd<Identifier>::m_groupId,
                       &RenameTKGroupCmd<Identifier>::m_newName,
                       &RenameTKGroupCmd<Identifier>::m_oldName>;
template struct Fields<RenameTKGroupCmd<GUIdentifier>,
                       &RenameTKGroupCmd<GUIdentifier>::m_provider,
                       &RenameTKGroupCmd<GUIdentifier>::m_groupId,
                       &RenameTKGroupCmd<GUIdentifier>::m_newName,
                       &RenameTKGroupCmd<GUIdentifier>::m_oldName>;
template struct Fields<SortTKGroupsAlphabeticallyCmd<Identifier>,
                       &SortTKGroupsAlphabeticallyCmd<Identifier>::m_provider,
                       &SortTKGroupsAlphabeticallyCmd<Identifier>::m_groupsAfter,
                       &SortTKGroupsAlphabeticallyCmd<Identifier>::m_groupsBefore>;
template struct Fields<SortTKGroupsAlphabeticallyCmd<GUIdentifier>,
                       &SortTKGroupsAlphabeticallyCmd<GUIdentifier>::m_provider,
                       &SortTKGroupsAlphabeticallyCmd<GUIdentifier>::m_groupsAfter,
                       &SortTKGroupsAlphabeticallyCmd<GUIdentifier>::m_groupsBefore>;
template struct Fields<TKGroup<Identifier>,
                       &TKGroup<Identifier>::m_members,
                       &TKGroup<Identifier>::m_id>;
template struct Fields<TKGroup<GUIdentifier>,
                       &TKGroup<GUIdentifier>::m_members,
                       &TKGroup<GUIdentifier>::m_id>;

template <class Class>
class ObjectLayout : public ::testing::Test {};
using Classes = ForBothKinds<AddToTKGroupCmd,
                             CreateTKGroupCmd,
                             MoveTKGroupElementsCmd,
                             RemoveFromTKGroupCmd,
                             RemoveTKGroupsCmd,
                             RenameTKGroupCmd,
                             SortTKGroupsAlphabeticallyCmd,
                             TKGroup>;
TYPED_TEST_SUITE(ObjectLayout, Classes);

template <class T>
std::size_t sizeOfBase(const TKGroup<T>*)
{
  return sizeof(NameInterface);
}

std::size_t sizeOfBase(const CommandBase*)
{
  return sizeof(CommandBase);
}

TYPED_TEST(ObjectLayout, IsTheBaseAndTheFieldsInTheirOrderAndNothingElse)
{
  const TypeParam* const none = nullptr;
  const auto aligned = [](std::size_t place, std::size_t alignment) {
    return (place + alignment - 1) / alignment * alignment;
  };

  std::size_t place = sizeOfBase(none);
  for (const Field& field : fieldsOf(static_cast<TypeParam*>(nullptr))) {
    EXPECT_EQ(field.offset, aligned(place, field.alignment));
    place = field.offset + field.size;
  }
  EXPECT_EQ(sizeof(TypeParam), aligned(place, alignof(TypeParam)));
}

}
}
