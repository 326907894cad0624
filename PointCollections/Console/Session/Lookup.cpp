// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/Lookup.h"

#include "PointCollections/Console/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <system_error>
#include <unordered_set>

namespace Tarvik::PointCollections {
namespace {

bool isPlace(const Word& word)
{
  return !word.isQuoted && word.text.starts_with('@');
}

std::size_t givenPlace(const Word& word, std::size_t groups)
{
  const Word number = {word.text.substr(1), false};
  const std::size_t place = positiveNumber(number, "the place of a group after @");
  if (place > groups)
    throw UserError(fmt::format("there is no group at place {}; there {} {}", number.text,
                                groups == 1 ? "is" : "are", pluralize(groups, "group")));
  return place - 1;
}

[[noreturn]] void refuseAmbiguous(const std::string& name, const std::vector<std::string>& names)
{
  std::string places;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] == name)
      places += fmt::format("{}@{}", places.empty() ? "" : " or ", i + 1);
  }
  throw UserError(fmt::format(
      "{} is the name of {}; write {} to say which you mean", displayName(name),
      pluralize(static_cast<std::size_t>(std::count(names.begin(), names.end(), name)), "group"),
      places));
}

using WordIterator = std::vector<Word>::const_iterator;

/// Reports a name with blanks that was typed without quotes.
void checkForMissingQuotes(const PointDocument& document, WordIterator word, WordIterator end)
{
  constexpr std::ptrdiff_t mostParts = 8;
  std::string name = word->text;
  const auto last = word + std::min(mostParts, end - word);
  for (++word; word != last; ++word) {
    name += ' ' + word->text;
    if (document.findByName(name) != nullptr)
      throw UserError(fmt::format("a name with blanks needs quotes; write {}", asTyped(name)));
  }
}

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
  const auto names = groupNames(document);
  if (isPlace(word))
    return givenPlace(word, names.size());

  const auto found = std::find(names.begin(), names.end(), word.text);
  if (found == names.end())
    throw UserError(
        fmt::format("there is no group named {}{}", displayName(word.text),
                    suggestion(word.text, names,
                               names.empty() ? "create makes one" : "show lists the groups")));
  if (std::find(std::next(found), names.end(), word.text) != names.end())
    refuseAmbiguous(word.text, names);
  return static_cast<std::size_t>(found - names.begin());
}

const TKGroup<GUIdentifier>& groupNamed(PointDocument& document, const Word& word)
{
  return document.getGroups()[groupIndex(document, word)];
}

std::vector<Identifier> groupsNamed(PointDocument& document, const std::vector<Word>& words)
{
  std::vector<Identifier> ids;
  for (const Word& word : words) {
    const auto& group = groupNamed(document, word);
    if (std::find(ids.begin(), ids.end(), group.getId()) != ids.end())
      throw UserError(
          fmt::format("{} is given twice; name each group once", displayName(group.getName())));
    ids.push_back(group.getId());
  }
  return ids;
}

GUIdentifier elementNamed(const PointDocument& document, const Word& word)
{
  const PointCollection* found = document.findByName(word.text);
  if (found == nullptr)
    throw UserError(
        fmt::format("there is no element named {}{}", displayName(word.text),
                    suggestion(word.text, elementNames(document), "show --all lists them")));
  return found->id;
}

std::vector<GUIdentifier> elementsNamed(const PointDocument& document,
                                        const std::vector<Word>& words)
{
  std::vector<GUIdentifier> elements;
  std::unordered_set<GUIdentifier> seen;
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (document.findByName(word->text) == nullptr)
      checkForMissingQuotes(document, word, words.end());
    elements.push_back(elementNamed(document, *word));
    if (!seen.insert(elements.back()).second)
      throw UserError(
          fmt::format("{} is given twice; name each element once", displayName(word->text)));
  }
  return elements;
}

std::size_t positiveNumber(const Word& word, const std::string& what)
{
  std::size_t value = 0;
  const char* end = word.text.data() + word.text.size();
  const auto [stop, error] = std::from_chars(word.text.data(), end, value);
  if (error == std::errc::result_out_of_range && stop == end)
    return std::numeric_limits<std::size_t>::max();
  if (error != std::errc() || stop != end || value == 0)
    throw UserError(
        fmt::format("{} is {}; expected a whole number from 1 up", what, displayName(word.text)));
  return value;
}

}
