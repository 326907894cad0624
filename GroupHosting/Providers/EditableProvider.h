// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/GroupListEdit.h"
#include "GroupHosting/GroupHostingExport.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

namespace Tarvik::GroupLists {

/// A provider that can change its list of groups in place, without a copy of the whole list. It
/// gets the undo() and redo() of compact commands as edits; other providers get them as whole
/// lists. Not for hosts.
template <class T>
class EditableProvider : public TKGroupProviderInterface<T> {
public:
  EditableProvider();
  EditableProvider(const EditableProvider&) = delete;
  EditableProvider& operator=(const EditableProvider&) = delete;
  ~EditableProvider() override;

  /// Does the edit to the list. When it throws, nothing has changed.
  /// @return false when the list is not the one before (or after, when going backward), as far as
  ///         the edit can tell; nothing has changed then
  virtual bool edit(const GroupListEdit<T>& edit, Direction direction) = 0;
};

template <class T>
EditableProvider<T>::EditableProvider() = default;

template <class T>
EditableProvider<T>::~EditableProvider() = default;

extern template class TKM_GROUPHOSTING_DECLARE EditableProvider<Identifier>;
extern template class TKM_GROUPHOSTING_DECLARE EditableProvider<GUIdentifier>;

}
