// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Transcript.h"

#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <new>

namespace Tarvik::PointCollections {

namespace {

/// In pieces, so that the rest of a long text can be left out.
/// @param stopped  what is printed in place of the rest
void print(std::ostream& output, std::string_view text, std::string_view stopped)
{
  constexpr std::size_t mostAtOnce = 4096;
  do { // a short answer may tell of a change: it is printed in any case
    const auto piece = text.substr(0, mostAtOnce);
    output << piece << std::flush;
    text.remove_prefix(piece.size());
  } while (!text.empty() && !Interruptible::isRequested());
  output << (text.empty() ? "" : stopped) << '\n';
}

}

Transcript::Transcript(std::ostream& output, std::ostream& errors, Detail detail, Style style)
    : m_output(output),
      m_errors(errors),
      m_dialogue(&output),
      m_detail(detail),
      m_style(style),
      // For translators: stands before a mistake and a colon
      m_placeInNeed(translatable("error")),
      // For translators: stands in place of the rest of a long answer that the user has stopped
      m_stopped(style.faint('\n' + translated("… stopped")))
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
    print(m_output, text, m_stopped);
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

void Transcript::error(std::string_view where, std::string_view message, std::string_view detail)
{
  m_output.flush();
  if (m_columns && printWrapped(where, message, detail))
    return;
  printPlace(where);
  m_errors << ' ' << message << detail << std::endl;
}

/// @return false if there is not enough memory
bool Transcript::printWrapped(std::string_view where,
                              std::string_view message,
                              std::string_view detail)
{
  try {
    const auto text =
        m_style.alarming(printable(where) + ":").append(" ").append(message).append(detail);
    m_errors << wrapped(text, m_columns()) << std::endl;
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void Transcript::printPlace(std::string_view where)
{
  try {
    m_errors << m_style.alarming(printable(where) + ":");
  } catch (const std::bad_alloc&) {
    m_errors << m_placeInNeed.text() << ':';
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
