// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/Selection.h"

#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Selection/SelectedLists.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections {

namespace {

using TermKind = SelectionTerm::Kind;
using Elements = std::vector<GUIdentifier>;

/// Elements in the order in which they came first.
class Union {
public:
  explicit Union(const PointDocument& document)
      : m_document(document), m_isSeen(document.collections().size())
  {}

  /// @return false if the element is there already
  bool add(const GUIdentifier& element)
  {
    const bool isNew = isSeenFirst(element);
    if (isNew)
      m_elements.push_back(element);
    return isNew;
  }

  Elements take() { return std::move(m_elements); }

private:
  bool isSeenFirst(const GUIdentifier& element)
  {
    const auto* collection = m_document.find(element);
    if (collection == nullptr)
      return m_strangers.insert(element).second;
    auto& isSeen = m_isSeen[static_cast<std::size_t>(collection - m_document.collections().data())];
    return std::exchange(isSeen, char(1)) == 0;
  }

  const PointDocument& m_document;
  Elements m_elements;
  std::vector<char> m_isSeen;                   ///< of each element of the document
  std::unordered_set<GUIdentifier> m_strangers; ///< members of groups that are not in the document
};

using WordIterator = std::span<const Word>::iterator;

/// Reports the name of a group where an element is expected.
void checkForGroup(PointDocument& document, const Word& word)
{
  const auto& groups = document.getGroups();
  if (document.findByName(word.text) == nullptr &&
      std::any_of(groups.begin(), groups.end(),
                  [&](const auto& group) { return group.getName() == word.text; }))
    throw UserError(translated("{0} is a group, not an element; write {0}:* for its members",
                               displayName(word.text)));
}

/// Reports a name with blanks that was typed without quotes.
void checkForMissingQuotes(const PointDocument& document, WordIterator word, WordIterator end)
{
  constexpr std::ptrdiff_t mostParts = 8;
  if (document.findByName(word->text) != nullptr)
    return;
  std::string name = word->text;
  const auto last = word + std::min(mostParts, end - word);
  for (++word; word != last; ++word) {
    name += ' ' + word->text;
    if (document.findByName(name) != nullptr)
      throw UserError(translated("a name with blanks needs quotes; write {}", asTyped(name)));
  }
}

/// Reports a name with special characters that was typed without quotes.
void checkForUnquotedName(const PointDocument& document, const Word& word)
{
  if (!word.isMixed() && document.findByName(word.text) != nullptr)
    throw UserError(translated("{0} is the name of an element, but has a meaning without quotes; "
                               "write {1} for the element",
                               displayName(word.text), inQuotes(word.text)));
}

/// Whether the word is a pattern for all elements, like New*.
bool isPatternOfAll(const Word& word)
{
  const auto term = termOf(word);
  return term.kind == TermKind::Pattern && !term.group;
}

/// The name on a line of a file.
std::string nameOnLine(std::string_view line)
{
  if (!line.starts_with('"'))
    return std::string(line);
  const auto words = splitWords(line);
  if (words.size() != 1)
    throw UserError(translated("text after the closing quote; expected one name on the line"));
  return words.front().text;
}

std::string_view takeLine(std::string_view& text)
{
  const auto end = std::min(text.find('\n'), text.size());
  auto line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

}

std::vector<GUIdentifier> Selection::elements(std::span<const Word> words) const
{
  if (words.size() == 1 && isPatternOfAll(words.front()))
    return selectedBy(words.front()); // finds each element once
  Union all(m_document);
  Union named(m_document);
  for (auto word = words.begin(); word != words.end(); ++word) {
    checkInterruption();
    const auto term = termOf(*word);
    const bool isName = term.kind == TermKind::Name && !term.group;
    if (isName) {
      checkForMissingQuotes(m_document, word, words.end());
      checkForGroup(m_document, *word);
    }
    for (const auto& element : selectedBy(*word)) {
      all.add(element);
      if (isName && !named.add(element))
        throw UserError(
            translated("{} is given twice; name each element once", displayName(word->text)));
    }
  }
  return all.take();
}

GUIdentifier Selection::element(const Word& word) const
{
  const auto selected = elements({&word, 1});
  if (selected.size() > 1)
    // For translators: {1} is what the user has typed, {0} the number of elements
    throw UserError(translatedCount(selected.size(), "{1} selects {0} element; name one",
                                    "{1} selects {0} elements; name one",
                                    printable(abbreviated(asTyped(word), 60))));
  return selected.front();
}

std::vector<GUIdentifier> Selection::selectedBy(const Word& word) const
{
  const auto term = termOf(word);
  if (term.kind == TermKind::File)
    return inFile(term.what);
  if (term.kind == TermKind::Name && !term.group)
    return {elementNamed(m_document, word)};

  try {
    return selectedIn(m_document, listsOf(m_document, term), term);
  } catch (const UserError&) {
    checkForUnquotedName(m_document, word);
    throw;
  }
}

std::vector<GUIdentifier> Selection::inFile(const Word& file) const
{
  const auto name = printable(file.text);
  const auto content = m_files.readText(Utf8::toPath(file.text));
  auto rest = checkedUtf8(content, name);
  Elements selected;
  for (std::size_t number = 1; !rest.empty(); ++number) {
    checkInterruption();
    const auto line = takeLine(rest);
    try {
      if (!line.empty())
        selected.push_back(elementNamed(m_document, {nameOnLine(line), true}));
    } catch (const UserError& error) {
      throw UserError(fmt::format("{}:{}: {}", name, number, error.what()));
    }
  }
  if (selected.empty())
    throw UserError(
        translated("{} has no names; expected one on each line", displayName(file.text)));
  return selected;
}

}
