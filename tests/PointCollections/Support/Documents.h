// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Text/UserError.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

/// Documents for tests, looked at through names.
namespace Tarvik::PointCollections {

/// A document whose elements have these names and one point each.
inline std::shared_ptr<PointDocument> documentOf(std::initializer_list<const char*> names)
{
  std::vector<PointCollection> collections;
  for (const char* name : names)
    collections.push_back({.id = GUIdentifier(), .name = name, .points = {Point()}});
  return PointDocument::create(collections);
}

inline std::vector<std::string> namesOf(const PointDocument& document,
                                        const std::vector<GUIdentifier>& ids)
{
  std::vector<std::string> names;
  for (const auto& id : ids) {
    const auto* collection = document.find(id);
    names.push_back(collection != nullptr ? collection->name : "?");
  }
  return names;
}

/// The ungrouped elements, in the document's order: "a b".
inline std::string ungroupedOf(PointDocument& document)
{
  std::string result;
  for (const auto& name : namesOf(document, document.getUngroupedElements()))
    result += (result.empty() ? "" : " ") + name;
  return result;
}

/// The groups in short: "A(a b) B()".
inline std::string groupsOf(PointDocument& document)
{
  std::string result;
  for (const auto& group : document.getGroups()) {
    result += (result.empty() ? "" : " ") + group.getName() + '(';
    for (const auto& name : namesOf(document, group.getGroupMembers()))
      result += (result.ends_with('(') ? "" : " ") + name;
    result += ')';
  }
  return result;
}

/// The message of the UserError that the call throws; "no mistake" if it throws none.
template <class Call>
std::string mistakeIn(Call&& call)
{
  try {
    call();
  } catch (const UserError& error) {
    return error.what();
  }
  return "no mistake";
}

}
