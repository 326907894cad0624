// SPDX-License-Identifier: MIT
// The private fields of the classes are part of their binary interface: a debugger view or a tool
// that knows the layout finds them by name and place.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"

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

std::vector<std::ptrdiff_t> offsetsOfFields(TKGroup<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(TKGroup<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(AddToTKGroupCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(AddToTKGroupCmd<GUIdentifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(CreateTKGroupCmd<Identifier>*);
std::vector<std::ptrdiff_t> offsetsOfFields(CreateTKGroupCmd<GUIdentifier>*);

template <class T>
using Add = AddToTKGroupCmd<T>;
template <class T>
using Create = CreateTKGroupCmd<T>;

template struct FieldOffsets<TKGroup<Identifier>,
                             &TKGroup<Identifier>::m_members,
                             &TKGroup<Identifier>::m_id>;
template struct FieldOffsets<TKGroup<GUIdentifier>,
                             &TKGroup<GUIdentifier>::m_members,
                             &TKGroup<GUIdentifier>::m_id>;
template struct FieldOffsets<Add<Identifier>,
                             &Add<Identifier>::m_provider,
                             &Add<Identifier>::m_targetGroupId,
                             &Add<Identifier>::m_elements,
                             &Add<Identifier>::m_groupsAfter,
                             &Add<Identifier>::m_groupsBefore,
                             &Add<Identifier>::m_changed,
                             &Add<Identifier>::m_insertIndex>;
template struct FieldOffsets<Add<GUIdentifier>,
                             &Add<GUIdentifier>::m_provider,
                             &Add<GUIdentifier>::m_targetGroupId,
                             &Add<GUIdentifier>::m_elements,
                             &Add<GUIdentifier>::m_groupsAfter,
                             &Add<GUIdentifier>::m_groupsBefore,
                             &Add<GUIdentifier>::m_changed,
                             &Add<GUIdentifier>::m_insertIndex>;
template struct FieldOffsets<Create<Identifier>,
                             &Create<Identifier>::m_provider,
                             &Create<Identifier>::m_name,
                             &Create<Identifier>::m_elements,
                             &Create<Identifier>::m_groupsAfter,
                             &Create<Identifier>::m_groupsBefore>;
template struct FieldOffsets<Create<GUIdentifier>,
                             &Create<GUIdentifier>::m_provider,
                             &Create<GUIdentifier>::m_name,
                             &Create<GUIdentifier>::m_elements,
                             &Create<GUIdentifier>::m_groupsAfter,
                             &Create<GUIdentifier>::m_groupsBefore>;

template <class Class>
class Fields : public ::testing::Test {};
using Classes = ::testing::Types<TKGroup<Identifier>,
                                 TKGroup<GUIdentifier>,
                                 AddToTKGroupCmd<Identifier>,
                                 AddToTKGroupCmd<GUIdentifier>,
                                 CreateTKGroupCmd<Identifier>,
                                 CreateTKGroupCmd<GUIdentifier>>;
TYPED_TEST_SUITE(Fields, Classes);

TYPED_TEST(Fields, StandBehindTheBaseInTheirOrder)
{
  const auto offsets = offsetsOfFields(static_cast<TypeParam*>(nullptr));

  EXPECT_GE(offsets.front(), static_cast<std::ptrdiff_t>(sizeof(void*)));
  EXPECT_TRUE(std::is_sorted(offsets.begin(), offsets.end())) << ::testing::PrintToString(offsets);
}

}
}
