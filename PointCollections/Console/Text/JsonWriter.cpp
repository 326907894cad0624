// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/JsonWriter.h"

#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace Tarvik::PointCollections {

namespace {

/// Whether it stands for itself. Most characters of most names do.
bool isPlain(char c)
{
  return c >= ' ' && c < '\x7F' && c != '"' && c != '\\';
}

/// Whether it is written by its number: a control, which a terminal may obey, or the end of a line
/// or a paragraph. JSON itself asks for those below U+0020 only.
bool isEscaped(char32_t character)
{
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
         character == 0x2029;
}

}

JsonWriter& JsonWriter::beginObject()
{
  literal("{");
  m_isFirst = true;
  return *this;
}

JsonWriter& JsonWriter::endObject()
{
  m_text += '}';
  m_isFirst = false;
  return *this;
}

JsonWriter& JsonWriter::beginArray()
{
  literal("[");
  m_isFirst = true;
  return *this;
}

JsonWriter& JsonWriter::endArray()
{
  m_text += ']';
  m_isFirst = false;
  return *this;
}

JsonWriter& JsonWriter::key(std::string_view name)
{
  value(name);
  m_text += ':';
  m_isFirst = true;
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text)
{
  separate();
  appendQuoted(text);
  return *this;
}

JsonWriter& JsonWriter::value(std::size_t number)
{
  return literal(fmt::format_int(number).c_str());
}

JsonWriter& JsonWriter::value(double number)
{
  separate();
  fmt::format_to(std::back_inserter(m_text), "{}", number); // the shortest that is read back as it
  return *this;
}

JsonWriter& JsonWriter::literal(std::string_view text)
{
  separate();
  m_text += text;
  return *this;
}

void JsonWriter::separate()
{
  if (!m_isFirst)
    m_text += ',';
  m_isFirst = false;
}

void JsonWriter::appendQuoted(std::string_view text)
{
  m_text += '"';
  while (!text.empty()) {
    const auto plain = static_cast<std::size_t>(
        std::find_if_not(text.begin(), text.end(), isPlain) - text.begin());
    m_text += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty())
      break;
    const std::size_t length = Utf8::characterLength(text);
    const auto character = text.substr(0, std::max<std::size_t>(1, length));
    const auto code = Utf8::decode(character).front();
    if (length == 0)
      m_text += "\xEF\xBF\xBD";
    else if (code == '"' || code == '\\')
      (m_text += '\\') += character;
    else if (isEscaped(code))
      fmt::format_to(std::back_inserter(m_text), "\\u{:04x}", static_cast<unsigned>(code));
    else
      m_text += character;
    text.remove_prefix(character.size());
  }
  m_text += '"';
}

}
