// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Words.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace Tarvik::PointCollections {
namespace {

constexpr auto blanks = " \t";
constexpr auto specialCharacters = "*?:@";
constexpr auto npos = std::string_view::npos;

bool isBlank(char c)
{
  return c == ' ' || c == '\t';
}

bool isForbiddenControl(char c)
{
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\t') || byte == 0x7F;
}

/// Reads the words of a line one after the other.
class Scanner {
public:
  explicit Scanner(std::string_view line) : m_line(line) { checkCharacters(); }

  /// Moves to the next word; false at the end of the line.
  bool findWord()
  {
    m_at = std::min(m_line.find_first_not_of(blanks, m_at), m_line.size());
    return m_at < m_line.size();
  }

  std::size_t position() const { return m_at; }

  bool isAtEnd() const { return m_at == m_line.size(); }

  /// The position of the quote that the last word left open.
  std::optional<std::size_t> openQuote() const { return m_openQuote; }

  /// The escape that the last word left unfinished; empty if it did not.
  std::string_view openEscape() const { return m_openEscape; }

  /// Reads a word: its plain and quoted parts, one after the other.
  Word readWord()
  {
    Word word;
    std::optional<std::size_t> misplacedQuote;
    std::optional<std::size_t> missingBlank;
    for (std::size_t parts = 0; !isAtEnd() && !isBlank(m_line[m_at]); ++parts) {
      const bool isQuoted = m_line[m_at] == '"';
      if (parts == 1)
        (word.isQuoted ? missingBlank : misplacedQuote) = m_at;
      const std::size_t start = word.text.size();
      word.text += isQuoted ? readQuotedPart() : readPlainPart();
      if (isQuoted)
        word.quotedParts.push_back({start, word.text.size()});
      word.isQuoted = isQuoted && parts == 0;
    }
    if (word.isQuoted)
      word.quotedParts.clear();
    else if (word.isMixed() && word.findPlain(specialCharacters) == npos)
      refuseMixture(misplacedQuote, missingBlank);
    return word;
  }

  [[noreturn]] void fail(std::size_t at, const std::string& message) const
  {
    const auto column = Utf8::countCharacters(m_line.substr(0, at)) + 1;
    // For translators: the number of a character in a line, and what is wrong there
    throw UserError(translated("column {}: {}", column, message));
  }

private:
  void checkCharacters() const
  {
    const std::size_t invalid = Utf8::findInvalid(m_line);
    if (invalid != npos)
      fail(invalid, translated("the byte {} is not UTF-8; save or type the line as UTF-8",
                               printable(m_line.substr(invalid, 1))));
    const auto at = static_cast<std::size_t>(
        std::find_if(m_line.begin(), m_line.end(), isForbiddenControl) - m_line.begin());
    if (at == m_line.size())
      return;
    const auto shown = printable(m_line.substr(at, 1));
    fail(at, m_line[at] == '\0'
                 ? translated("a NUL byte, which no name can hold; leave it out")
                 : translated("a control character; in a name, write {} in double quotes", shown));
  }

  [[noreturn]] void refuseMixture(std::optional<std::size_t> misplacedQuote,
                                  std::optional<std::size_t> missingBlank) const
  {
    if (misplacedQuote)
      fail(*misplacedQuote,
           translated("a quote inside a word; put the whole name in quotes, and a \\ before a "
                      "quote that belongs to it"));
    fail(missingBlank.value_or(m_at), translated("a blank is missing after the closing quote"));
  }

  std::string readPlainPart()
  {
    const std::size_t start = m_at;
    m_at = std::min(m_line.find_first_of(" \t\"", m_at), m_line.size());
    return std::string(m_line.substr(start, m_at - start));
  }

  std::string readQuotedPart()
  {
    const std::size_t opening = m_at++;
    std::string text;
    while (m_at < m_line.size() && m_line[m_at] != '"')
      text += m_line[m_at] == '\\' ? readEscape(opening) : std::string(1, m_line[m_at++]);
    if (m_openQuote || isAtEnd()) {
      m_openQuote = opening;
      return text;
    }
    ++m_at;
    if (Utf8::findInvalid(text) != npos || text.find('\0') != npos)
      fail(opening, translated("the escapes in this name do not make valid UTF-8 without NUL"));
    return text;
  }

  std::string readEscape(std::size_t opening)
  {
    const auto rest = m_line.substr(m_at);
    const auto isUnfinished = [&] {
      if (rest.size() < 2 || (rest[1] == 'x' && rest.size() < 4))
        return true;
      return rest[1] == 'u' && (rest.size() == 2 || rest[2] == '{') &&
             rest.find_first_not_of("0123456789abcdefABCDEF", 3) == npos;
    };
    if (isUnfinished()) {
      m_openQuote = opening;
      m_openEscape = rest;
      m_at = m_line.size();
      return "";
    }
    if (rest[1] == 'x')
      return {readByte(rest)};
    if (rest[1] == 'u')
      return readCharacter(rest);
    constexpr std::string_view codes = "\"\\nrt";
    const std::size_t code = codes.find(rest[1]);
    if (code == npos)
      fail(
          m_at,
          translated(
              R"(an unknown escape; there are \", \\, \n, \r, \t, \x with two digits and \u{...})"));
    m_at += 2;
    return {"\"\\\n\r\t"[code]};
  }

  char readByte(std::string_view rest)
  {
    unsigned value = 0;
    const char* end = rest.data() + 4;
    if (std::from_chars(rest.data() + 2, end, value, 16).ptr != end)
      fail(m_at, translated(R"(\x needs two hexadecimal digits, such as \x1B)"));
    m_at += 4;
    return static_cast<char>(value);
  }

  std::string readCharacter(std::string_view rest)
  {
    constexpr std::size_t mostDigits = 6;
    constexpr std::size_t start = 3;
    const auto digits = rest.substr(0, rest.find('}'));
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    const bool isNumber = digits.size() > start && digits.size() <= start + mostDigits &&
                          rest[2] == '{' && digits.size() < rest.size() &&
                          std::from_chars(digits.data() + start, end, value, 16).ptr == end;
    if (!isNumber || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
      fail(m_at, translated(R"(\u needs the number of a character in braces, such as \u{200B})"));
    m_at += digits.size() + 1;
    return Utf8::encode(value);
  }

  std::string_view m_line;
  std::size_t m_at = 0;
  std::optional<std::size_t> m_openQuote;
  std::string_view m_openEscape;
};

}

bool Word::isPlainAt(std::size_t index) const
{
  const auto next =
      std::upper_bound(quotedParts.begin(), quotedParts.end(), index,
                       [](std::size_t at, const TextRange& quoted) { return at < quoted.end; });
  return !isQuoted && (next == quotedParts.end() || index < next->begin);
}

std::size_t Word::findPlain(std::string_view characters, std::size_t from) const
{
  auto found = text.find_first_of(characters, from);
  while (found != npos && !isPlainAt(found))
    found = text.find_first_of(characters, found + 1);
  return found;
}

Word Word::part(std::size_t begin, std::size_t end) const
{
  Word result = {text.substr(begin, end - begin), isQuoted};
  for (const auto& quoted : quotedParts) {
    const auto first = std::max(quoted.begin, begin);
    const auto last = std::min(quoted.end, end);
    if (first < last)
      result.quotedParts.push_back({first - begin, last - begin});
  }
  if (begin == end) // an empty quoted part there is an empty quoted word
    result.isQuoted = isQuoted || std::find(quotedParts.begin(), quotedParts.end(),
                                            TextRange{begin, end}) != quotedParts.end();
  const bool isWhole = result.quotedParts == std::vector<TextRange>{{0, result.text.size()}};
  if (isWhole && !result.text.empty())
    result = {std::move(result.text), true};
  return result;
}

std::string asTyped(const Word& word)
{
  if (word.isQuoted)
    return inQuotes(word.text);
  const std::string_view text = word.text;
  std::string result;
  std::size_t at = 0;
  for (const auto& quoted : word.quotedParts) {
    result += text.substr(at, quoted.begin - at);
    result += inQuotes(text.substr(quoted.begin, quoted.end - quoted.begin));
    at = quoted.end;
  }
  return result.append(text.substr(at));
}

std::vector<Word> splitWords(std::string_view line)
{
  Scanner scanner(line);
  std::vector<Word> words;
  while (scanner.findWord())
    words.push_back(scanner.readWord());
  if (scanner.openQuote())
    scanner.fail(*scanner.openQuote(),
                 translated("this quote is never closed; add a \" after the name"));
  return words;
}

UnfinishedLine splitUnfinished(std::string_view line)
{
  Scanner scanner(line);
  UnfinishedLine result;
  result.lastAt = line.size();
  result.size = line.size();
  while (scanner.findWord()) {
    const std::size_t start = scanner.position();
    auto word = scanner.readWord();
    if (scanner.isAtEnd()) {
      result.last = std::move(word);
      result.lastAt = start;
    } else {
      result.words.push_back(std::move(word));
    }
  }
  result.openEscape = scanner.openEscape();
  return result;
}

}
