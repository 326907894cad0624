// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// Takes comma-separated text apart, row by row.
///
/// Fields are separated by commas, rows by LF or CRLF. A field in double quotes may hold commas,
/// line breaks and doubled quotes, which stand for one quote. Blanks belong to the field. Lines
/// without any character are skipped.
class CsvReader {
public:
  /// @param text  UTF-8, without byte order mark; must outlive the reader
  /// @param name  what error messages call the text, such as a file name
  CsvReader(std::string_view text, std::string name);

  /// Reads the next row.
  /// @param fields  gets the row's fields; its strings are reused
  /// @return false at the end of the text, with `fields` left as they were
  /// @throws UserError "name:line: ..." where quotes are used against the rules, or a carriage
  ///         return stands alone outside quotes
  bool readRow(std::vector<std::string>& fields);

  /// The line where the row read last begins, counted from 1.
  std::size_t rowLine() const { return m_rowLine; }

  /// Reports a mistake of the user in the row read last.
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
  std::size_t m_at = 0;
  std::size_t m_line = 1;
  std::size_t m_rowLine = 1;
};

}
