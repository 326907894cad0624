// SPDX-License-Identifier: MIT
#pragma once

#include "Translator/PluralRule.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Tarvik {

/// The checked bytes of a .mo file. It begins with seven words of 32 bits: the mark, the revision,
/// the number of texts, the positions of the tables of keys and of translations, and those of a
/// table of hashes, which is not needed. The tables have the length and the position of each
/// string; behind a string is a NUL. The keys are in ascending order.
///
/// A key is "text" or "context\4text"; with plural forms, a NUL and the plural follow. Their forms
/// are separated by NULs. The translation of the empty key is the header, lines of "Field: value".
class MoFile {
public:
  /// @param name  what errors call it
  /// @throws CatalogueError
  MoFile(std::string bytes, const std::string& name);

  MoFile(const MoFile&) = delete;
  MoFile& operator=(const MoFile&) = delete;

  /// The number of keys, with that of the header.
  std::size_t size() const noexcept { return m_size; }

  /// The translation for a key without its plural, all forms of it; nothing if there is none.
  std::optional<std::string_view> find(std::string_view key) const;

  /// A field of the header; empty if there is none.
  std::string_view field(std::string_view name) const;

  const PluralRule& rule() const noexcept { return m_rule; }

private:
  static constexpr std::size_t wordSize = 4;

  [[noreturn]] void fail(std::size_t position, const std::string& message) const;
  std::uint32_t word(std::size_t position) const noexcept;
  std::string_view string(std::size_t table, std::size_t index) const noexcept;
  std::string_view key(std::size_t index) const noexcept;
  std::string_view translation(std::size_t index) const noexcept;
  void checkStart();
  void checkTable(std::size_t table) const;
  void checkStrings() const;
  void checkOrder() const;
  void readHeader();
  void checkTranslations() const;

  std::string m_bytes;
  std::string m_name;
  bool m_isSwapped = false; ///< the words are in the other byte order than this machine's
  std::size_t m_size = 0;
  std::size_t m_keys = 0;         ///< the position of their table
  std::size_t m_translations = 0; ///< the position of their table
  PluralRule m_rule;
};

}
