// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// Splits a table in text form into rows and fields.
///
/// Fields are separated by commas, or by another character, rows by LF or CRLF. A field in double
/// quotes may hold separators, line breaks and doubled quotes, which mean one quote. Blanks belong
/// to the field. Empty lines are skipped.
class CsvReader {
public:
  /// @param text       UTF-8, without byte order mark; must outlive the reader
  /// @param name       what error messages call the text, such as a file name
  /// @param separator  between fields: a comma, a semicolon or a tab
  CsvReader(std::string_view text, std::string name, char separator = ',');

  /// Reads the next row.
  /// @param fields  receives the row's fields; its strings are reused
  /// @return false at the end of the text; `fields` is unchanged then
  /// @throws UserError "name:line: ..." if quotes break the rules, or a carriage return outside
  ///         quotes has no line feed after it
  bool readRow(std::vector<std::string>& fields);

  /// The line on which the last row starts, counted from 1.
  std::size_t rowLine() const { return m_rowLine; }

  /// How many bytes have been read.
  std::size_t position() const { return m_at; }

  /// The message with the place of the last row before it: "name:line: message".
  std::string inRow(const std::string& message) const;

  /// Reports a mistake in the last row.
  /// @throws UserError "name:line: message", always
  [[noreturn]] void fail(const std::string& message) const;

private:
  [[noreturn]] void failAt(std::size_t line, const std::string& message) const;
  bool isAtEnd() const { return m_at == m_text.size(); }
  bool skipLineEnd();
  void readField(std::string& field);
  void readQuotedField(std::string& field);

  std::string_view m_text;
  std::string m_name;
  char m_separator;
  std::size_t m_at = 0;
  std::size_t m_line = 1;
  std::size_t m_rowLine = 1;
};

}
