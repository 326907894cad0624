// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Tarvik {

/// Which plural form of a text belongs to a number, as the line "Plural-Forms" of a catalogue says:
/// an expression of the language C in n, such as
///
///     nplurals=3; plural=n==1 ? 0 : n%10>=2 && n%10<=4 && (n%100<12 || n%100>14) ? 1 : 2;
///
/// It is kept as steps of a machine with a stack. No part of an expression has side effects, so all
/// of it is calculated, whatever a condition says; what is divided by 0 is 0.
class PluralRule {
public:
  /// The rule of English: the first form for 1, the second one for others.
  PluralRule();

  /// Reads a rule.
  /// @throws CatalogueError if it is not valid, is very long, or gives a small number a form that
  /// there is not
  explicit PluralRule(std::string_view text);

  /// How many forms there are; at least 1.
  std::size_t forms() const noexcept { return m_forms; }

  /// The form for a number, counted from 0; less than forms().
  std::size_t formFor(std::uint64_t number) const noexcept;

private:
  friend class PluralRuleParser;

  enum class Operation : unsigned char {
    Number, ///< puts `operand` on the stack
    N,      ///< puts the number on the stack that the form is for
    Not,
    Times,
    Divide,
    Remainder,
    Plus,
    Minus,
    Less,
    AtMost,
    Greater,
    AtLeast,
    Equal,
    Unequal,
    And,
    Or,
    Choose ///< takes condition, value if true, value if false
  };

  struct Step {
    Operation operation;
    std::uint64_t operand = 0;
  };

  static constexpr std::size_t deepestStack = 64;

  static std::uint64_t calculated(Operation operation, std::uint64_t left, std::uint64_t right);
  std::uint64_t value(std::uint64_t number) const noexcept;

  std::size_t m_forms;
  std::vector<Step> m_steps; ///< never need more of the stack than there is
};

}
