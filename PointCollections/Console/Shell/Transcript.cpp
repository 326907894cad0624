// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Transcript.h"

#include "PointCollections/Text/Quoting.h"

#include <new>

namespace Tarvik::PointCollections {

Transcript::Transcript(std::ostream& output, std::ostream& errors, Detail detail, Style style)
    : m_output(output), m_errors(errors), m_dialogue(&output), m_detail(detail), m_style(style)
{}

void Transcript::comment(std::string_view text)
{
  if (m_detail != Detail::Full)
    return;
  if (!m_isInParagraph)
    startBlock();
  m_isInParagraph = true;
  m_output << printable(text) << '\n';
}

void Transcript::endParagraph()
{
  m_isInParagraph = false;
}

void Transcript::command(std::string_view line)
{
  constexpr std::size_t longestEcho = 1000;
  if (m_detail != Detail::Full)
    return;
  startBlock();
  endParagraph();
  m_output << m_style.strong("> " + printable(abbreviated(line, longestEcho))) << std::endl;
}

void Transcript::result(std::string_view text)
{
  endParagraph();
  if (!text.empty() && !(m_viewer && m_viewer(std::string(text))))
    m_output << text << '\n';
  m_isEmpty = m_isEmpty && text.empty();
  m_output.flush();
}

void Transcript::dialogue(std::string_view text)
{
  if (m_dialogue == &m_output)
    result(text);
  else
    *m_dialogue << text << std::endl;
}

void Transcript::error(const std::string& where, std::string_view message, std::string_view detail)
{
  m_output.flush();
  printPlace(where);
  m_errors << ' ' << message << detail << std::endl;
}

void Transcript::printPlace(const std::string& where)
{
  try {
    m_errors << m_style.alarming(printable(where) + ":");
  } catch (const std::bad_alloc&) {
    m_errors << "error:";
  }
}

bool Transcript::isComplete() const
{
  return m_output.good();
}

void Transcript::startBlock()
{
  if (!m_isEmpty)
    m_output << '\n';
  m_isEmpty = false;
}

}
