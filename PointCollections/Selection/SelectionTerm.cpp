// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/SelectionTerm.h"

#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Selection/Pattern.h"
#include "PointCollections/Selection/ShownWord.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

using TermKind = SelectionTerm::Kind;

constexpr auto npos = std::string_view::npos;

/// Limits the time that a comparison can take.
constexpr std::size_t longestPattern = 1000;

bool isNumber(std::string_view text)
{
  return !text.empty() && text.find_first_not_of("0123456789") == npos;
}

bool arePlaces(const Word& word)
{
  return !word.isQuoted && !word.isMixed() && readsAsPlaces(word.text);
}

/// Whether the word starts with a group that is given by its place: `@2:`.
bool startsWithPlace(const Word& word)
{
  const auto colon = word.findPlain(":");
  return colon != npos && isNumber(std::string_view(word.text).substr(1, colon - 1));
}

SelectionTerm placesIn(SelectionTerm term)
{
  const auto [first, last] = typedPlaces(term.what);
  term.kind = TermKind::Places;
  term.first = positiveNumber(
      first, translatable("the first place is {}; expected a whole number from 1 up"));
  if (!last.text.empty())
    term.last = positiveNumber(
        last, translatable("the last place is {}; expected a whole number from 1 up"));
  if (term.last < term.first)
    throw UserError(translated("the places {} are backwards; write {}-{}", shownWord(term.what),
                               shownWord(last), shownWord(first)));
  return term;
}

SelectionTerm fileTerm(const Word& word)
{
  auto file = word.part(1, word.text.size());
  if (file.text.empty())
    throw UserError(translated("the name of a file is missing after @; write @names.txt"));
  if (isNumber(file.text) && !file.isQuoted)
    throw UserError(translated("{0} is the place of a group; write {0}:* for its members, or "
                               "@./{1} for a file",
                               shownWord(word), file.text));
  return {.kind = TermKind::File, .group = {}, .what = std::move(file)};
}

TermKind kindOfName(const Word& word)
{
  if (!Pattern::isPattern(word))
    return TermKind::Name;
  if (word.text.size() > longestPattern)
    throw UserError(translatedCount(longestPattern,
                                    "a pattern of more than {} byte; expected a shorter one, or "
                                    "@FILE for a file of names",
                                    "a pattern of more than {} bytes; expected a shorter one, or "
                                    "@FILE for a file of names"));
  return TermKind::Pattern;
}

}

TypedPlaces typedPlaces(const Word& range)
{
  const auto size = range.text.size();
  const auto dash = std::min(range.text.find('-'), size);
  const auto first = range.part(0, dash);
  return {first, dash == size ? first : range.part(dash + 1, size)};
}

bool readsAsPlaces(std::string_view text)
{
  const auto dash = std::min(text.find('-'), text.size());
  const auto last = text.substr(std::min(dash + 1, text.size()));
  return isNumber(text.substr(0, dash)) && (last.empty() || isNumber(last));
}

SelectionTerm termOf(const Word& word)
{
  if (word.findPlain("@") == 0 && !startsWithPlace(word))
    return fileTerm(word);
  const auto colon = word.findPlain(":");
  if (colon == npos)
    return {.kind = kindOfName(word), .group = {}, .what = word};

  SelectionTerm term;
  term.group = word.part(0, colon);
  term.what = word.part(colon + 1, word.text.size());
  if (term.what.text.empty())
    throw UserError(translated("{0} lacks what is after the colon; write {0}* for all members, "
                               "or {0}1-3 for the first three",
                               shownWord(word)));
  if (arePlaces(term.what))
    return placesIn(std::move(term));
  term.kind = kindOfName(term.what);
  return term;
}

}
