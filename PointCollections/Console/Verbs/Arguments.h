// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Words.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

struct Verb;

/// The words after a verb, sorted into arguments and options.
class Arguments {
public:
  /// A word that starts with -- and is not quoted is an option.
  /// @throws UserError if an option is unknown, given twice or without its value, or there are too
  ///         few or too many arguments
  Arguments(const Verb& verb, std::span<const Word> words);

  /// How many arguments there are, not counting options.
  std::size_t count() const { return m_words.size(); }

  /// The argument at an index, counted from 0.
  /// @throws std::out_of_range if there is none
  const Word& at(std::size_t index) const { return m_words.at(index); }

  /// The arguments from an index on; none if it is greater than the last. Valid as long as this.
  std::span<const Word> from(std::size_t index) const;

  bool has(const std::string& option) const { return m_options.contains(option); }

  /// The option's value.
  /// @throws std::out_of_range if the option is not given
  const Word& valueOf(const std::string& option) const { return m_options.at(option); }

private:
  void checkCount(const Verb& verb) const;

  std::vector<Word> m_words;
  std::map<std::string, Word> m_options;
};

}
