// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/Lookup.h"

#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>
#include <unordered_map>

namespace Tarvik::PointCollections {
namespace {

bool isPlace(const Word& word)
{
  return !word.isQuoted && word.text.starts_with('@');
}

std::size_t givenPlace(const Word& word, std::size_t groups)
{
  const Word number = {word.text.substr(1), false};
  const std::size_t place = positiveNumber(
      number,
      translatable("the place of a group after @ is {}; expected a whole number from 1 up"));
  if (place > groups)
    // For translators: {1} is the place, {0} the number of groups
    throw UserError(translatedCount(groups, "there is no group at place {1}; there is {0} group",
                                    "there is no group at place {1}; there are {0} groups",
                                    number.text));
  return place - 1;
}

/// The groups that some words name, found in one pass over the list of groups.
class NamedGroups {
public:
  /// The words must outlive this. Valid until the list of groups changes.
  NamedGroups(PointDocument& document, std::span<const Word> words) : m_document(document)
  {
    for (const Word& word : words) {
      if (!isPlace(word))
        m_indices.try_emplace(word.text);
    }
    const auto& groups = document.getGroups();
    for (std::size_t i = 0; i < groups.size() && !m_indices.empty(); ++i) {
      const auto found = m_indices.find(groups[i].getName());
      if (found != m_indices.end())
        found->second.push_back(i);
    }
  }

  /// @param word  one of those words
  /// @throws UserError as groupIndex()
  std::size_t indexOf(const Word& word) const
  {
    if (isPlace(word))
      return givenPlace(word, m_document.getGroups().size());
    const auto& indices = m_indices.at(word.text);
    if (indices.empty())
      refuseUnknown(word.text);
    if (indices.size() > 1)
      refuseAmbiguous(word.text, indices);
    return indices.front();
  }

private:
  [[noreturn]] void refuseUnknown(const std::string& name) const
  {
    const auto names = groupNames(m_document);
    // For translators: "create" is a command that the user types
    const auto otherwise = names.empty() ? translated("create makes one")
                                         // For translators: "show" is what the user types
                                         : translated("show lists the groups");
    throw UserError(translated("there is no group named {}", displayName(name)) +
                    suggestion(name, names, otherwise));
  }

  [[noreturn]] static void refuseAmbiguous(const std::string& name,
                                           const std::vector<std::size_t>& indices)
  {
    constexpr std::size_t mostPlaces = 10;
    std::vector<std::string> places;
    for (std::size_t i = 0; i < std::min(indices.size(), mostPlaces); ++i)
      places.push_back(fmt::format("@{}", indices[i] + 1));
    if (indices.size() > mostPlaces)
      // For translators: the last of several things to choose from: "@1 or @2 or another place"
      places.push_back(translated("another place"));
    throw UserError(translatedCount(
        indices.size(),
        // For translators: {1} is a name, {0} a number, {2} what to choose from: "@1 or @2"
        "{1} is the name of {0} group; write {2} to say which you mean",
        "{1} is the name of {0} groups; write {2} to say which you mean", displayName(name),
        listedWithOr(places)));
  }

  PointDocument& m_document;
  std::unordered_map<std::string_view, std::vector<std::size_t>> m_indices; ///< by name
};

}

std::vector<std::string> groupNames(PointDocument& document)
{
  std::vector<std::string> names;
  for (const auto& group : document.getGroups())
    names.push_back(group.getName());
  return names;
}

std::vector<std::string> elementNames(const PointDocument& document)
{
  std::vector<std::string> names;
  names.reserve(document.order().size());
  for (const GUIdentifier& id : document.order())
    names.push_back(document.find(id)->name);
  return names;
}

std::vector<std::string> memberNames(PointDocument& document)
{
  std::vector<std::string> names;
  for (const auto& group : document.getGroups()) {
    for (const GUIdentifier& id : group.getGroupMembers()) {
      if (const PointCollection* collection = document.find(id))
        names.push_back(collection->name);
    }
  }
  return names;
}

std::size_t groupIndex(PointDocument& document, const Word& word)
{
  return NamedGroups(document, {&word, 1}).indexOf(word);
}

const TKGroup<GUIdentifier>& groupNamed(PointDocument& document, const Word& word)
{
  return document.getGroups()[groupIndex(document, word)];
}

std::vector<const TKGroup<GUIdentifier>*> groupsNamed(PointDocument& document,
                                                      std::span<const Word> words)
{
  const NamedGroups named(document, words);
  std::vector<bool> isGiven(document.getGroups().size());
  std::vector<const TKGroup<GUIdentifier>*> groups;
  for (const Word& word : words) {
    const std::size_t index = named.indexOf(word);
    groups.push_back(&document.getGroups()[index]);
    if (isGiven[index])
      throw UserError(translated("{} is given twice; name each group once",
                                 displayName(groups.back()->getName())));
    isGiven[index] = true;
  }
  return groups;
}

std::vector<Identifier> idsOf(const std::vector<const TKGroup<GUIdentifier>*>& groups)
{
  std::vector<Identifier> ids;
  ids.reserve(groups.size());
  for (const auto* group : groups)
    ids.push_back(group->getId());
  return ids;
}

GUIdentifier elementNamed(const PointDocument& document, const Word& word)
{
  const PointCollection* found = document.findByName(word.text);
  if (found == nullptr)
    throw UserError(
        translated("there is no element named {}", displayName(word.text)) +
        // For translators: "show --all" is what the user types
        suggestion(word.text, elementNames(document), translated("show --all lists them")));
  return found->id;
}

std::size_t positiveNumber(const Word& word, fmt::format_string<const std::string&> mistake)
{
  std::size_t value = 0;
  const char* end = word.text.data() + word.text.size();
  const auto [stop, error] = std::from_chars(word.text.data(), end, value);
  if (error == std::errc::result_out_of_range && stop == end)
    return std::numeric_limits<std::size_t>::max();
  if (error != std::errc() || stop != end || value == 0)
    throw UserError(translated(mistake, displayName(word.text)));
  return value;
}

}
