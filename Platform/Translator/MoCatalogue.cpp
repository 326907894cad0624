// SPDX-License-Identifier: MIT
#include "Translator/MoCatalogue.h"

#include "Translator/CatalogueError.h"
#include "Translator/MoFile.h"

#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace Tarvik {
namespace {

constexpr char endOfContext = '\4';
constexpr char beforeDisambiguation = '|';

std::string_view viewOf(const char* text)
{
  return text != nullptr ? text : "";
}

std::string keyOf(std::string_view context, std::string_view disambiguation, std::string_view text)
{
  std::string key(context);
  if (!disambiguation.empty())
    key.append(1, beforeDisambiguation).append(disambiguation);
  if (!key.empty())
    key += endOfContext;
  return key.append(text);
}

std::string_view formIn(std::string_view translation, std::size_t form)
{
  for (; form > 0; --form)
    translation.remove_prefix(translation.find('\0') + 1);
  return translation.substr(0, translation.find('\0'));
}

std::string nameOf(const std::filesystem::path& file)
{
  const auto name = file.u8string();
  return {name.begin(), name.end()};
}

/// The whole file; of a longer one, no more than is needed to see that.
std::string contentOf(const std::filesystem::path& file, std::size_t greatestSize)
{
  std::error_code ignored;
  std::ifstream stream(file, std::ios::binary);
  if (!stream || std::filesystem::is_directory(file, ignored))
    throw CatalogueError(nameOf(file) + ": the file cannot be opened");
  std::string bytes;
  constexpr std::size_t blockSize = 65536;
  while (stream && bytes.size() <= greatestSize) {
    const auto end = bytes.size();
    bytes.resize(end + blockSize);
    stream.read(bytes.data() + end, static_cast<std::streamsize>(blockSize));
    bytes.resize(end + static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad())
    throw CatalogueError(nameOf(file) + ": reading the file failed");
  return bytes;
}

}

class MoCatalogue::Content {
public:
  Content(std::string bytes, const std::string& name) : file(std::move(bytes), name) {}

  const MoFile file;
};

MoCatalogue::MoCatalogue(std::shared_ptr<const Content> content) noexcept
    : m_content(std::move(content))
{}

MoCatalogue::MoCatalogue(const MoCatalogue& other) noexcept = default;

MoCatalogue& MoCatalogue::operator=(const MoCatalogue& other) noexcept = default;

MoCatalogue::~MoCatalogue() = default;

MoCatalogue MoCatalogue::fromMemory(std::string bytes, const std::string& name)
{
  if (bytes.size() > greatestSize)
    throw CatalogueError(name + ": expected at most " + std::to_string(greatestSize) +
                         " bytes, found more");
  return MoCatalogue(std::make_shared<const Content>(std::move(bytes), name));
}

MoCatalogue MoCatalogue::fromFile(const std::filesystem::path& file)
{
  return fromMemory(contentOf(file, greatestSize), nameOf(file));
}

std::optional<std::string> MoCatalogue::operator()(const char* context,
                                                   const char* text,
                                                   const char* disambiguation,
                                                   int count) const
{
  if (viewOf(text).empty()) // the key of the header
    return std::nullopt;
  const auto& file = m_content->file;
  const auto formOf = [&](const std::string& key) {
    const auto forms = file.find(key).value_or("");
    const bool isSingle = count < 0 || forms.find('\0') == std::string_view::npos;
    return formIn(forms, isSingle ? 0 : file.rule().formFor(static_cast<std::uint64_t>(count)));
  };
  auto translation = formOf(keyOf(viewOf(context), viewOf(disambiguation), text));
  if (translation.empty())
    translation = formOf(keyOf(viewOf(context), {}, text));
  return translation.empty() ? std::nullopt : std::optional<std::string>(translation);
}

std::size_t MoCatalogue::size() const noexcept
{
  const auto& file = m_content->file;
  return file.size() - (file.size() > 0 && file.find("") ? 1 : 0);
}

std::string MoCatalogue::language() const
{
  return std::string(m_content->file.field("Language"));
}

}
