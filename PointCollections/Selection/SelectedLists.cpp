// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/SelectedLists.h"

#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Selection/NearestPattern.h"
#include "PointCollections/Selection/Pattern.h"
#include "PointCollections/Selection/SearchedPlace.h"
#include "PointCollections/Selection/ShownWord.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace Tarvik::PointCollections {
namespace {

using Elements = std::vector<GUIdentifier>;

ElementList listOf(const TKGroup<GUIdentifier>& group)
{
  return {&group.getGroupMembers(), ElementList::Kind::Group, displayName(group.getName())};
}

std::vector<ElementList> groupsMatching(PointDocument& document, const Word& word)
{
  const Pattern pattern(word);
  std::vector<ElementList> lists;
  for (const auto& group : document.getGroups()) {
    if (pattern.matches(group.getName()))
      lists.push_back(listOf(group));
  }
  if (lists.empty())
    throw UserError(
        translated("no group matches {}", shownWord(word)) +
        // For translators: "show --groups" is what the user types
        patternSuggestion(word, groupNames(document), translated("show --groups lists them")));
  return lists;
}

std::size_t countElements(const std::vector<ElementList>& lists)
{
  std::size_t count = 0;
  for (const auto& list : lists)
    count += list.elements->size();
  return count;
}

Elements atPlaces(const std::vector<ElementList>& lists, const SelectionTerm& term)
{
  const auto size = lists.front().elements->size();
  const auto [first, last] = typedPlaces(term.what);
  if (lists.size() == 1 && (term.first > size || (!last.text.empty() && term.last > size)))
    throw UserError(
        SearchedPlace(lists).endsBefore(shownWord(last.text.empty() ? first : last), size));
  Elements result;
  for (const auto& list : lists) {
    const auto begin = std::min(term.first - 1, list.elements->size());
    const auto end = std::min(term.last, list.elements->size());
    result.insert(result.end(), list.elements->begin() + static_cast<std::ptrdiff_t>(begin),
                  list.elements->begin() + static_cast<std::ptrdiff_t>(end));
  }
  if (result.empty())
    throw UserError(SearchedPlace(lists).endsBefore(shownWord(first), size));
  return result;
}

std::vector<std::string> namesIn(const PointDocument& document,
                                 const std::vector<ElementList>& lists)
{
  std::vector<std::string> names;
  for (const auto& list : lists) {
    for (const auto& element : *list.elements) {
      if (const auto* collection = document.find(element))
        names.push_back(collection->name);
    }
  }
  return names;
}

Elements
matching(const PointDocument& document, const std::vector<ElementList>& lists, const Word& word)
{
  const Pattern pattern(word);
  Elements result;
  for (const auto& list : lists)
    std::copy_if(list.elements->begin(), list.elements->end(), std::back_inserter(result),
                 [&](const auto& element) {
                   const auto* collection = document.find(element);
                   return collection != nullptr && pattern.matches(collection->name);
                 });
  if (result.empty())
    throw UserError(SearchedPlace(lists).hasNoMatch(shownWord(word)) +
                    patternSuggestion(word, namesIn(document, lists),
                                      // For translators: "find" is a command that the user types
                                      translated("find looks for a part of a name")));
  return result;
}

Elements
named(const PointDocument& document, const std::vector<ElementList>& lists, const Word& word)
{
  const auto element = elementNamed(document, word);
  for (const auto& list : lists) {
    if (std::find(list.elements->begin(), list.elements->end(), element) != list.elements->end())
      return {element};
  }
  throw UserError(SearchedPlace(lists).lacks(displayName(word.text)));
}

}

std::vector<ElementList> listsOf(PointDocument& document, const SelectionTerm& term)
{
  if (!term.group)
    return {{&document.order(), ElementList::Kind::All}};
  if (term.group->text.empty() && !term.group->isQuoted)
    return {{&document.ungroupedElements(), ElementList::Kind::Ungrouped}};
  if (Pattern::isPattern(*term.group))
    return groupsMatching(document, *term.group);
  return {listOf(groupNamed(document, *term.group))};
}

std::vector<GUIdentifier> selectedIn(const PointDocument& document,
                                     const std::vector<ElementList>& lists,
                                     const SelectionTerm& term)
{
  if (countElements(lists) == 0)
    throw UserError(SearchedPlace(lists).isEmpty());
  switch (term.kind) {
  case SelectionTerm::Kind::Places:
    return atPlaces(lists, term);
  case SelectionTerm::Kind::Pattern:
    return matching(document, lists, term.what);
  default:
    return named(document, lists, term.what);
  }
}

}
