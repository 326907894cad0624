// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace Tarvik {

/// The translations into one language that a GNU .mo file has, as msgfmt writes it. It is a
/// Translator::Catalogue:
///
///     Translator::installCatalogue(MoCatalogue::fromFile("share/locale/de/LC_MESSAGES/TKMService.mo"));
///
/// In the file, the context of a text is its msgctxt; a text with a disambiguation has the msgctxt
/// "context|disambiguation". A file is checked as a whole when it is read: afterwards, looking a
/// text up fails for want of memory only. A plural rule that is not valid is an error; without one,
/// that of English is used. Copies share what was read; all operations may be called from any
/// thread.
class TKM_TRANSLATOR_API MoCatalogue {
public:
  /// The most bytes that a file may have.
  static constexpr std::size_t greatestSize = std::size_t(64) << 20U;

  /// Reads a catalogue from the bytes of a file. Its words may be in either byte order, its texts
  /// are in UTF-8. Strings that depend on the system, which revision 1 of the format has, are left
  /// out.
  /// @param bytes  the whole file
  /// @param name   what errors call it
  /// @throws CatalogueError if anything in it is not as it has to be
  static MoCatalogue fromMemory(std::string bytes, const std::string& name = "catalogue");

  /// Reads a catalogue from a file.
  /// @throws CatalogueError if it cannot be read, or anything in it is not as it has to be
  static MoCatalogue fromFile(const std::filesystem::path& file);

  MoCatalogue(const MoCatalogue& other) noexcept;
  MoCatalogue& operator=(const MoCatalogue& other) noexcept;
  ~MoCatalogue();

  /// The translation of one text; nothing if there is none, or it is empty.
  /// @param context         null is the same as an empty one: a text without msgctxt
  /// @param text            in the program's own language; of a text with plural forms, the msgid.
  ///                        Null or empty has no translation
  /// @param disambiguation  null or empty if there is none. If it has no translation, that of the
  ///                        context alone is returned
  /// @param count           chooses the plural form by the rule of the file; negative for the first
  ///                        form
  std::optional<std::string>
  operator()(const char* context, const char* text, const char* disambiguation, int count) const;

  /// The number of translated texts.
  std::size_t size() const noexcept;

  /// The language by its own statement, such as "de" or "zh_CN"; empty if it makes none.
  std::string language() const;

private:
  class Content;

  explicit MoCatalogue(std::shared_ptr<const Content> content) noexcept;

  std::shared_ptr<const Content> m_content; ///< never null
};

}
