// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// Writes JSON (RFC 8259) on one line, for other programs.
///
/// Begin and end objects and arrays in pairs. In an object, call key() before each value. Bytes of
/// a text that are not UTF-8 become U+FFFD, so the result is always valid. Control characters,
/// which a terminal may obey, and all ends of lines and paragraphs are written by their numbers.
class JsonWriter {
public:
  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginArray();
  JsonWriter& endArray();
  JsonWriter& key(std::string_view name);

  JsonWriter& value(std::string_view text);
  JsonWriter& value(std::size_t number);
  JsonWriter& value(double number); ///< must be finite
  JsonWriter& value(std::same_as<bool> auto truth) { return literal(truth ? "true" : "false"); }
  JsonWriter& null() { return literal("null"); }

  /// What has been written so far.
  const std::string& text() const { return m_text; }

private:
  JsonWriter& literal(std::string_view text);
  void separate();
  void appendQuoted(std::string_view text);

  std::string m_text;
  bool m_isFirst = true; ///< of an object, an array or the whole, or after a key: no comma
};

}
