// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "Support/Groups.h"
#include "Support/WatchedIdentifier.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Both kinds of element identifiers, and one of a host's own without a hash.
using ProvidedIdentifiers = ::testing::Types<Identifier, GUIdentifier, WatchedIdentifier>;

struct ProvidedName {
  template <class T>
  static std::string GetName(int i)
  {
    return std::is_same_v<T, WatchedIdentifier> ? "WithoutHash" : KindName::GetName<T>(i);
  }
};

/// The least that a host adds to a provider: names.
template <class T>
class TestProvider : public TKGroupProvider<T> {
public:
  explicit TestProvider(const std::vector<T>& elements = {}) { this->setElements(elements); }

  /// Elements that are given no name are called "".
  void nameElements(std::vector<std::pair<T, std::string>> names) { m_names = std::move(names); }

  std::string getElementName(const T& element) override
  {
    const auto found = std::find_if(m_names.begin(), m_names.end(),
                                    [&](const auto& named) { return named.first == element; });
    return found != m_names.end() ? found->second : std::string();
  }

  /// A copy of the groups, with the ids that they have.
  std::vector<TKGroup<T>> copyOfGroups() { return this->getGroups(); }

  std::vector<GroupView<T>> groups() { return view(this->getGroups()); }

private:
  std::vector<std::pair<T, std::string>> m_names;
};

/// Gives a group other members; the same one may be given twice.
template <class T>
void setMembers(TKGroup<T>& group, const std::vector<T>& members)
{
  group.clear();
  group.addGroupMembersAtIndex(members, -1);
}

}
