// SPDX-License-Identifier: MIT
#include "Translator/PluralRule.h"

#include "Translator/CatalogueError.h"

#include <algorithm>
#include <array>
#include <string>

namespace Tarvik {

/// Reads a rule by recursive descent.
class PluralRuleParser {
public:
  PluralRuleParser(std::string_view text, PluralRule& rule) : m_text(text), m_rule(rule) {}

  void parse()
  {
    expect("nplurals");
    expect("=");
    m_rule.m_forms = static_cast<std::size_t>(number());
    if (m_rule.m_forms == 0 || m_rule.m_forms > mostForms)
      fail("expected 1 to 100 forms");
    expect(";");
    expect("plural");
    expect("=");
    choice();
    skip(";");
    skipBlanks();
    if (m_at < m_text.size())
      fail("expected the end");
  }

private:
  using Operation = PluralRule::Operation;

  struct Operator {
    std::string_view text;
    Operation operation;
    int rank; ///< the greater, the closer it binds
  };

  static constexpr std::uint64_t mostForms = 100;
  static constexpr std::size_t mostSteps = 1000;
  static constexpr int deepestNesting = 50;
  static constexpr int lowestRank = 1;

  /// One that starts with another one comes first.
  static constexpr std::array operators = {
      Operator{"||", Operation::Or, 1},      Operator{"&&", Operation::And, 2},
      Operator{"==", Operation::Equal, 3},   Operator{"!=", Operation::Unequal, 3},
      Operator{"<=", Operation::AtMost, 4},  Operator{">=", Operation::AtLeast, 4},
      Operator{"<", Operation::Less, 4},     Operator{">", Operation::Greater, 4},
      Operator{"+", Operation::Plus, 5},     Operator{"-", Operation::Minus, 5},
      Operator{"*", Operation::Times, 6},    Operator{"/", Operation::Divide, 6},
      Operator{"%", Operation::Remainder, 6}};

  [[noreturn]] void fail(const std::string& message) const
  {
    throw CatalogueError("plural rule, column " + std::to_string(m_at + 1) + ": " + message);
  }

  void skipBlanks() { m_at = std::min(m_text.find_first_not_of(" \t\r", m_at), m_text.size()); }

  bool skip(std::string_view token)
  {
    skipBlanks();
    const bool isNext = m_text.substr(m_at).starts_with(token);
    m_at += isNext ? token.size() : 0;
    return isNext;
  }

  void expect(std::string_view token)
  {
    if (!skip(token))
      fail("expected \"" + std::string(token) + '"');
  }

  std::uint64_t number()
  {
    constexpr std::size_t mostDigits = 9;
    skipBlanks();
    const auto end = std::min(m_text.find_first_not_of("0123456789", m_at), m_text.size());
    if (end == m_at || end - m_at > mostDigits)
      fail("expected a number of 1 to 9 digits");
    std::uint64_t result = 0;
    for (; m_at < end; ++m_at)
      result = 10 * result + static_cast<std::uint64_t>(m_text[m_at] - '0');
    return result;
  }

  /// Adds a step that takes that many values from the stack, and puts one there.
  void add(PluralRule::Step step, std::size_t taken)
  {
    if (m_rule.m_steps.size() == mostSteps)
      fail("the rule has more than 1000 steps");
    m_rule.m_steps.push_back(step);
    m_height = m_height - taken + 1;
    if (m_height > PluralRule::deepestStack)
      fail("the rule is nested too deeply");
  }

  void choice()
  {
    if (++m_nesting > deepestNesting)
      fail("the rule is nested too deeply");
    binary(lowestRank);
    if (skip("?")) {
      choice();
      expect(":");
      choice();
      add({Operation::Choose}, 3);
    }
    --m_nesting;
  }

  /// The next operator of that rank or a higher one; null if there is none.
  const Operator* nextOperator(int leastRank)
  {
    skipBlanks();
    const Operator* const end = operators.data() + operators.size();
    const Operator* const found = std::find_if(operators.data(), end, [this](auto& each) {
      return m_text.substr(m_at).starts_with(each.text);
    });
    if (found == end || found->rank < leastRank)
      return nullptr;
    m_at += found->text.size();
    return found;
  }

  void binary(int leastRank)
  {
    unary();
    while (const auto* const found = nextOperator(leastRank)) {
      binary(found->rank + 1);
      add({found->operation}, 2);
    }
  }

  void unary()
  {
    std::size_t negations = 0;
    while (skip("!"))
      ++negations;
    operand();
    for (; negations > 0; --negations)
      add({Operation::Not}, 1);
  }

  void operand()
  {
    if (skip("(")) {
      choice();
      expect(")");
    } else if (skip("n")) {
      add({Operation::N}, 0);
    } else {
      add({Operation::Number, number()}, 0);
    }
  }

  std::string_view m_text;
  PluralRule& m_rule;
  std::size_t m_at = 0;
  std::size_t m_height = 0; ///< of the stack after the steps so far
  int m_nesting = 0;
};

PluralRule::PluralRule() : PluralRule("nplurals=2; plural=n!=1;") {}

PluralRule::PluralRule(std::string_view text) : m_forms(0)
{
  PluralRuleParser(text, *this).parse();
  constexpr std::uint64_t checkedNumbers = 1000; // as msgfmt does
  for (std::uint64_t number = 0; number <= checkedNumbers; ++number) {
    if (value(number) >= m_forms)
      throw CatalogueError("plural rule: it gives form " + std::to_string(value(number)) +
                           " for the number " + std::to_string(number) + ", and there are " +
                           std::to_string(m_forms) + " forms, counted from 0");
  }
}

std::size_t PluralRule::formFor(std::uint64_t number) const noexcept
{
  const auto form = value(number);
  return form < m_forms ? static_cast<std::size_t>(form) : 0;
}

std::uint64_t PluralRule::calculated(Operation operation, std::uint64_t left, std::uint64_t right)
{
  switch (operation) {
  case Operation::Times:
    return left * right;
  case Operation::Divide:
    return right == 0 ? 0 : left / right;
  case Operation::Remainder:
    return right == 0 ? 0 : left % right;
  case Operation::Plus:
    return left + right;
  case Operation::Minus:
    return left - right;
  case Operation::Less:
    return left < right ? 1 : 0;
  case Operation::AtMost:
    return left <= right ? 1 : 0;
  case Operation::Greater:
    return left > right ? 1 : 0;
  case Operation::AtLeast:
    return left >= right ? 1 : 0;
  case Operation::Equal:
    return left == right ? 1 : 0;
  case Operation::Unequal:
    return left != right ? 1 : 0;
  case Operation::And:
    return left != 0 && right != 0 ? 1 : 0;
  default:
    return left != 0 || right != 0 ? 1 : 0;
  }
}

std::uint64_t PluralRule::value(std::uint64_t number) const noexcept
{
  std::array<std::uint64_t, deepestStack + 1> stack{}; // one more than is ever filled
  std::size_t height = 0;
  for (const auto& step : m_steps) {
    switch (step.operation) {
    case Operation::Number:
      stack[height++] = step.operand;
      break;
    case Operation::N:
      stack[height++] = number;
      break;
    case Operation::Not:
      stack[height - 1] = stack[height - 1] == 0 ? 1 : 0;
      break;
    case Operation::Choose:
      height -= 2;
      stack[height - 1] = stack[height - 1] != 0 ? stack[height] : stack[height + 1];
      break;
    default:
      --height;
      stack[height - 1] = calculated(step.operation, stack[height - 1], stack[height]);
    }
  }
  return stack[0];
}

}
