// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Arguments.h"

#include "PointCollections/Console/Verbs/Verb.h"
#include "PointCollections/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

bool isOption(const Word& word)
{
  return !word.isQuoted && word.text.starts_with("--");
}

const Option& optionFor(const Verb& verb, const Word& word)
{
  const auto found = std::find_if(verb.options.begin(), verb.options.end(),
                                  [&](const Option& option) { return option.name == word.text; });
  if (found != verb.options.end())
    return *found;

  std::vector<std::string> names;
  for (const Option& option : verb.options)
    names.push_back(option.name);
  const auto nearest = nearestName(word.text, names);
  const auto option = printable(abbreviated(word.text, 60));
  if (nearest) {
    throw UserError(
        // For translators: {0} is a command; {1} and {2} are options, such as --end.
        translated("{} has no option {}; did you mean {}?", verb.name, option, *nearest));
  }
  // For translators: {0} is a command, {1} an option.
  throw UserError(translated("{} has no option {}; usage: {}", verb.name, option, verb.usage));
}

/// A word with quotes in it is for selections of elements only.
void checkQuotes(const Word& word, ArgumentKind kind)
{
  if (word.isMixed() && kind != ArgumentKind::Element && kind != ArgumentKind::Member &&
      kind != ArgumentKind::MemberOfGroup && kind != ArgumentKind::Any)
    throw UserError(translated("{} has a quote inside; put the whole word in quotes, and a \\ "
                               "before a quote that belongs to it",
                               printable(abbreviated(asTyped(word), 60))));
}

}

Arguments::Arguments(const Verb& verb, std::span<const Word> words)
{
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (!isOption(*word)) {
      m_words.push_back(*word);
      continue;
    }
    const Option& option = optionFor(verb, *word);
    if (has(option.name)) {
      // For translators: {} is an option, such as --end.
      throw UserError(translated("{} is given twice; give it once", option.name));
    }
    Word value;
    if (option.value) {
      if (std::next(word) == words.end()) {
        // For translators: --at needs a value; expected --at N.
        throw UserError(
            translated("{} needs a value; expected {} {}", option.name, option.name, option.label));
      }
      value = *++word;
      checkQuotes(value, *option.value);
    }
    m_options.emplace(option.name, value);
  }
  checkCount(verb);
  for (std::size_t i = 0; i < count(); ++i)
    checkQuotes(at(i), verb.parameters[std::min(i, verb.parameters.size() - 1)].kind);
}

std::span<const Word> Arguments::from(std::size_t index) const
{
  return std::span(m_words).subspan(std::min(index, m_words.size()));
}

void Arguments::checkCount(const Verb& verb) const
{
  const auto missing =
      std::find_if(verb.parameters.begin() +
                       static_cast<std::ptrdiff_t>(std::min(count(), verb.parameters.size())),
                   verb.parameters.end(), [](const Parameter& parameter) {
                     return parameter.occurrence == Occurrence::Once ||
                            parameter.occurrence == Occurrence::OnceOrMore;
                   });
  if (missing != verb.parameters.end()) {
    // For translators: ELEMENT is missing; usage: move ELEMENT… --before TARGET.
    throw UserError(translated("{} is missing; usage: {}", missing->label, verb.usage));
  }

  const bool isEndless = !verb.parameters.empty() && isOpen(verb.parameters.back().occurrence);
  if (count() > verb.parameters.size() && !isEndless)
    throw UserError(translated("{} is one argument too many; usage: {}",
                               displayName(at(verb.parameters.size()).text), verb.usage));
}

}
