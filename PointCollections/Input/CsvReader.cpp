// SPDX-License-Identifier: MIT
#include "PointCollections/Input/CsvReader.h"

#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik::PointCollections {

namespace {

std::string textAfterQuote(char separator)
{
  switch (separator) {
  case ';':
    return translated("text after a closing quote; expected a semicolon or the end of the line, "
                      "and quotes inside the field doubled");
  case '\t':
    return translated("text after a closing quote; expected a tab or the end of the line, and "
                      "quotes inside the field doubled");
  default:
    return translated("text after a closing quote; expected a comma or the end of the line, and "
                      "quotes inside the field doubled");
  }
}

}

CsvReader::CsvReader(std::string_view text, std::string name, char separator)
    : m_text(text), m_name(std::move(name)), m_separator(separator)
{}

bool CsvReader::readRow(std::vector<std::string>& fields)
{
  while (skipLineEnd()) {
  }
  if (isAtEnd())
    return false;

  m_rowLine = m_line;
  std::size_t count = 0;
  for (bool isRowOver = false; !isRowOver;) {
    if (count == fields.size())
      fields.emplace_back();
    readField(fields[count++]);
    if (!isAtEnd() && m_text[m_at] == m_separator)
      ++m_at;
    else
      isRowOver = isAtEnd() || skipLineEnd();
  }
  fields.resize(count);
  return true;
}

std::string CsvReader::inRow(const std::string& message) const
{
  return fmt::format("{}:{}: {}", m_name, m_rowLine, message);
}

void CsvReader::fail(const std::string& message) const
{
  throw UserError(inRow(message));
}

void CsvReader::failAt(std::size_t line, const std::string& message) const
{
  throw UserError(fmt::format("{}:{}: {}", m_name, line, message));
}

bool CsvReader::skipLineEnd()
{
  if (isAtEnd() || (m_text[m_at] != '\n' && m_text[m_at] != '\r'))
    return false;
  if (m_text[m_at] == '\r' && m_text.substr(m_at, 2) != "\r\n")
    failAt(m_line, translated("a carriage return without a line feed; expected lines that end in "
                              "LF or CRLF"));
  m_at += m_text[m_at] == '\r' ? 2U : 1U;
  ++m_line;
  return true;
}

void CsvReader::readField(std::string& field)
{
  if (!isAtEnd() && m_text[m_at] == '"') {
    readQuotedField(field);
    return;
  }
  const std::array<char, 4> ends = {m_separator, '\r', '\n', '"'};
  const std::size_t end = std::min(
      m_text.find_first_of(std::string_view(ends.data(), ends.size()), m_at), m_text.size());
  if (end < m_text.size() && m_text[end] == '"')
    failAt(m_line, translated("a quote inside a field without quotes; expected the whole field in "
                              "quotes, and quotes in it doubled"));
  field.assign(m_text, m_at, end - m_at);
  m_at = end;
}

void CsvReader::readQuotedField(std::string& field)
{
  const std::size_t openingLine = m_line;
  field.clear();
  for (;;) {
    const std::size_t start = ++m_at; // after the opening quote, or after the first of two
    const std::size_t end = m_text.find('"', start);
    if (end == std::string_view::npos)
      failAt(openingLine, translated("a quoted field that never ends; expected a closing quote"));
    const auto part = m_text.substr(start, end - start);
    m_line += static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n'));
    field += part;
    m_at = end + 1;
    if (isAtEnd() || m_text[m_at] != '"')
      break;
    field += '"';
  }
  const bool isFieldOver =
      isAtEnd() || m_text[m_at] == m_separator || m_text[m_at] == '\r' || m_text[m_at] == '\n';
  if (!isFieldOver)
    failAt(m_line, textAfterQuote(m_separator));
}

}
