// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Text/Words.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

struct Verb;

/// What stands behind a verb, sorted into arguments and options.
class Arguments {
public:
  /// Sorts the words behind the verb. A word that starts with -- and is not quoted is an option.
  /// @throws UserError when an option is unknown, given twice or without its value, or there are
  ///         too few or too many arguments
  Arguments(const Verb& verb, const std::vector<Word>& words);

  /// How many arguments there are, options not counted.
  std::size_t count() const { return m_words.size(); }

  /// The argument at a place counted from 0.
  /// @throws std::out_of_range when there is none
  const Word& at(std::size_t place) const { return m_words.at(place); }

  /// The arguments from a place on, which may be behind the last.
  std::vector<Word> from(std::size_t place) const;

  bool has(const std::string& option) const { return m_options.contains(option); }

  /// The option's value.
  /// @throws std::out_of_range when the option is not given
  const Word& valueOf(const std::string& option) const { return m_options.at(option); }

private:
  void checkCount(const Verb& verb) const;

  std::vector<Word> m_words;
  std::map<std::string, Word> m_options;
};

}
