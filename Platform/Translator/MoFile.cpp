// SPDX-License-Identifier: MIT
#include "Translator/MoFile.h"

#include "Translator/CatalogueError.h"
#include "Translator/Utf8Check.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Tarvik {
namespace {

constexpr std::uint32_t mark = 0x950412de;

std::uint32_t swapped(std::uint32_t word)
{
  return word << 24U | (word & 0xff00U) << 8U | (word >> 8U & 0xff00U) | word >> 24U;
}

std::string_view withoutPlural(std::string_view key)
{
  return key.substr(0, key.find('\0'));
}

std::size_t formsOf(std::string_view translation)
{
  return static_cast<std::size_t>(std::count(translation.begin(), translation.end(), '\0')) + 1;
}

bool isUtf8Name(std::string charset)
{
  std::transform(charset.begin(), charset.end(), charset.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return charset == "utf-8" || charset == "utf8" || charset == "us-ascii" || charset == "ascii";
}

}

MoFile::MoFile(std::string bytes, const std::string& name) : m_bytes(std::move(bytes)), m_name(name)
{
  checkStart();
  checkTable(m_keys);
  checkTable(m_translations);
  checkStrings();
  checkOrder();
  readHeader();
  checkTranslations();
}

void MoFile::fail(std::size_t position, const std::string& message) const
{
  throw CatalogueError(m_name + ", byte " + std::to_string(position) + ": " + message);
}

std::uint32_t MoFile::word(std::size_t position) const noexcept
{
  std::uint32_t result = 0;
  std::memcpy(&result, m_bytes.data() + position, sizeof result);
  return m_isSwapped ? swapped(result) : result;
}

std::string_view MoFile::string(std::size_t table, std::size_t index) const noexcept
{
  const auto entry = table + 2 * wordSize * index;
  return {m_bytes.data() + word(entry + wordSize), word(entry)};
}

std::string_view MoFile::key(std::size_t index) const noexcept
{
  return withoutPlural(string(m_keys, index));
}

std::string_view MoFile::translation(std::size_t index) const noexcept
{
  return string(m_translations, index);
}

void MoFile::checkStart()
{
  constexpr std::size_t startSize = 7 * wordSize;
  if (m_bytes.size() < startSize)
    fail(m_bytes.size(), "expected a .mo file, which has at least 28 bytes; found the end");
  m_isSwapped = word(0) == swapped(mark);
  if (word(0) != mark)
    fail(0, "expected a .mo file, which begins with de 12 04 95 or 95 04 12 de");
  if (const auto revision = word(wordSize) >> 16U; revision > 1)
    fail(wordSize, "expected revision 0 or 1 of the format, found " + std::to_string(revision));
  m_size = word(2 * wordSize);
  m_keys = word(3 * wordSize);
  m_translations = word(4 * wordSize);
}

void MoFile::checkTable(std::size_t table) const
{
  if (table > m_bytes.size() || m_size > (m_bytes.size() - table) / (2 * wordSize))
    fail(std::min(table, m_bytes.size()), "expected a table of " + std::to_string(m_size) +
                                              " strings, found the end; the file is damaged");
}

/// Together, the strings are not longer than the file, so that checking them takes time in
/// proportion.
void MoFile::checkStrings() const
{
  std::uint64_t total = 0;
  for (const auto table : {m_keys, m_translations}) {
    for (std::size_t i = 0; i < m_size; ++i) {
      const auto entry = table + 2 * wordSize * i;
      const std::uint64_t length = word(entry);
      const std::uint64_t position = word(entry + wordSize);
      if (position + length >= m_bytes.size())
        fail(entry, "expected a string within the file, found one that ends at byte " +
                        std::to_string(position + length) + "; the file is damaged");
      if (m_bytes[position + length] != '\0')
        fail(position + length, "expected a NUL after the string; the file is damaged");
      total += length + 1;
      if (total > m_bytes.size())
        fail(entry, "expected strings that do not overlap; the file is damaged");
    }
  }
}

void MoFile::checkOrder() const
{
  for (std::size_t i = 1; i < m_size; ++i) {
    if (key(i - 1) >= key(i))
      fail(m_keys + 2 * wordSize * i, "expected texts in ascending order, each once");
  }
}

void MoFile::readHeader()
{
  const auto start = m_translations;
  const auto type = field("Content-Type");
  constexpr std::string_view charset = "charset=";
  if (const auto at = type.find(charset); at != std::string_view::npos) {
    const std::string name(type.substr(at + charset.size()));
    if (!isUtf8Name(name))
      fail(start,
           "expected texts in UTF-8, found another charset; convert the .po file with msgconv "
           "--to-code=UTF-8");
  }
  if (const auto plurals = field("Plural-Forms"); !plurals.empty()) {
    try {
      m_rule = PluralRule(plurals);
    } catch (const CatalogueError& error) {
      fail(start, error.what());
    }
  }
}

void MoFile::checkTranslations() const
{
  for (std::size_t i = 0; i < m_size; ++i) {
    const auto text = translation(i);
    const auto position = static_cast<std::size_t>(text.data() - m_bytes.data());
    const bool hasPlural = key(i).size() < string(m_keys, i).size();
    const auto expected = hasPlural ? m_rule.forms() : 1;
    if (const auto found = formsOf(text); found != expected)
      fail(position, "expected " + std::to_string(expected) + " forms of the translation, found " +
                         std::to_string(found));
    if (const auto invalid = firstInvalidUtf8(text); invalid != std::string_view::npos)
      fail(position + invalid, "expected a translation in UTF-8, found other bytes");
  }
}

std::optional<std::string_view> MoFile::find(std::string_view key) const
{
  std::size_t first = 0;
  std::size_t count = m_size;
  while (count > 0) { // std::lower_bound() without an iterator for the table
    const auto half = count / 2;
    const bool isBefore = this->key(first + half) < key;
    first = isBefore ? first + half + 1 : first;
    count = isBefore ? count - half - 1 : half;
  }
  return first < m_size && this->key(first) == key ? std::optional(translation(first))
                                                   : std::nullopt;
}

std::string_view MoFile::field(std::string_view name) const
{
  auto header = find("").value_or("");
  while (!header.empty()) {
    const auto end = std::min(header.find('\n'), header.size());
    auto line = header.substr(0, end);
    header.remove_prefix(std::min(end + 1, header.size()));
    if (line.starts_with(name) && line.substr(name.size()).starts_with(':')) {
      line.remove_prefix(name.size() + 1);
      line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
      return line.substr(0, line.find_last_not_of(" \t\r") + 1);
    }
  }
  return {};
}

}
