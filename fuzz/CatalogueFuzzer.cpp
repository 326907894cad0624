// SPDX-License-Identifier: MIT
// Reads any bytes as a catalogue of translations. If they are one, every question must be answered
// with UTF-8. The bytes are also taken for the texts of a catalogue, which is then built around
// them in both byte orders: so headers and plural rules are reached that no damaged file would get
// through to.

#include "Support/MoBytes.h"
#include "Support/Require.h"
#include "Translator/CatalogueError.h"
#include "Translator/MoCatalogue.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {
namespace {

constexpr char endOfEntry = '\x01';
constexpr char endOfKey = '\x02';

/// What is asked of every catalogue.
std::vector<std::optional<std::string>> answersOf(const MoCatalogue& catalogue,
                                                  const std::vector<MoEntry>& entries)
{
  std::vector<std::optional<std::string>> answers = {catalogue.language()};
  for (const auto& entry : entries) {
    const auto end = entry.first.find('\4');
    const std::string context = end == std::string::npos ? "" : entry.first.substr(0, end);
    const std::string text = end == std::string::npos ? entry.first : entry.first.substr(end + 1);
    for (const int count : {-1, 0, 1, 2, 3, 11, 1001, 2147483647})
      answers.push_back(catalogue(context.c_str(), text.c_str(), nullptr, count));
    answers.push_back(catalogue(context.c_str(), text.c_str(), "other", 1));
  }
  return answers;
}

/// The answers; nothing if the bytes are refused.
std::optional<std::vector<std::optional<std::string>>>
answersFrom(const std::string& bytes, const std::vector<MoEntry>& entries)
{
  try {
    return answersOf(MoCatalogue::fromMemory(bytes), entries);
  } catch (const CatalogueError& error) {
    require(std::string_view(error.what()).starts_with("catalogue, byte "),
            "an error without a place");
    return std::nullopt;
  }
}

std::string_view takeUpTo(char end, std::string_view& text)
{
  const auto part = text.substr(0, text.find(end));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

std::vector<MoEntry> entriesIn(std::string_view text)
{
  std::map<std::string, MoEntry, std::less<>> entries; // in the order of a file
  while (!text.empty()) {
    auto entry = takeUpTo(endOfEntry, text);
    const std::string key(takeUpTo(endOfKey, entry));
    entries.try_emplace(key.substr(0, key.find('\0')), key, std::string(entry));
  }
  std::vector<MoEntry> result;
  result.reserve(entries.size());
  for (const auto& each : entries)
    result.push_back(each.second);
  return result;
}

void checkAny(std::string_view bytes)
{
  const auto entries = entriesIn(bytes);
  answersFrom(std::string(bytes), entries);
  const auto answers = answersFrom(moBytes(entries, ByteOrder::Little), entries);
  require(answers == answersFrom(moBytes(entries, ByteOrder::Big), entries),
          "a catalogue that depends on the byte order");
}

}
}

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  const std::string text(data, data + size);
  Tarvik::checkAny(text);
  return 0;
}
