// SPDX-License-Identifier: MIT
#include "Support/MoBytes.h"
#include "Translator/CatalogueError.h"
#include "Translator/MoCatalogue.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// What is said of these bytes; empty if they are a catalogue.
std::string complaintAbout(const std::string& bytes)
{
  try {
    MoCatalogue::fromMemory(bytes, "de.mo");
    return {};
  } catch (const CatalogueError& error) {
    return error.what();
  }
}

std::string complaintAbout(const std::vector<MoEntry>& entries)
{
  return complaintAbout(moBytes(entries));
}

/// The bytes of a small catalogue with one word changed.
std::string withWord(std::size_t position, std::uint32_t value)
{
  auto bytes = moBytes({{"", "Language: de\n"}, {"Quit", "Beenden"}});
  setMoWord(bytes, position, value, ByteOrder::Little);
  return bytes;
}

constexpr std::size_t firstKey = 28;
constexpr std::size_t entrySize = 8;
constexpr std::size_t firstTranslation = firstKey + 2 * entrySize;

TEST(DamagedCatalogue, IsNoneAtAll)
{
  EXPECT_EQ(complaintAbout(""),
            "de.mo, byte 0: expected a .mo file, which has at least 28 bytes; found the end");
  EXPECT_EQ(complaintAbout(moBytes({}).substr(0, 27)),
            "de.mo, byte 27: expected a .mo file, which has at least 28 bytes; found the end");
  EXPECT_EQ(complaintAbout("msgid \"Quit\"\nmsgstr \"Beenden\"\n"),
            "de.mo, byte 0: expected a .mo file, which begins with de 12 04 95 or 95 04 12 de");
}

TEST(DamagedCatalogue, IsOfAnUnknownRevision)
{
  EXPECT_EQ(complaintAbout(withWord(4, 0x00010001)), "");
  EXPECT_EQ(complaintAbout(withWord(4, 0x00020000)),
            "de.mo, byte 4: expected revision 0 or 1 of the format, found 2");
}

TEST(DamagedCatalogue, HasATableBeyondItsEnd)
{
  EXPECT_EQ(complaintAbout(withWord(8, 0xFFFFFFFF)),
            "de.mo, byte 28: expected a table of 4294967295 strings, found the end; the file is "
            "damaged");
  EXPECT_EQ(complaintAbout(withWord(12, 0xFFFFFFF0)),
            "de.mo, byte 88: expected a table of 2 strings, found the end; the file is damaged");
  EXPECT_EQ(complaintAbout(withWord(16, 88)),
            "de.mo, byte 88: expected a table of 2 strings, found the end; the file is damaged");
}

TEST(DamagedCatalogue, HasAStringBeyondItsEnd)
{
  EXPECT_EQ(complaintAbout(withWord(firstKey + 8, 0xFFFFFFFF)),
            "de.mo, byte 36: expected a string within the file, found one that ends at byte "
            "4294967356; the file is damaged");
  EXPECT_EQ(complaintAbout(withWord(firstTranslation + 4, 0xFFFFFFFF)),
            "de.mo, byte 44: expected a string within the file, found one that ends at byte "
            "4294967308; the file is damaged");
}

TEST(DamagedCatalogue, HasAStringWithoutAnEnd)
{
  EXPECT_EQ(complaintAbout(withWord(firstKey + 8, 3)),
            "de.mo, byte 64: expected a NUL after the string; the file is damaged");
}

TEST(DamagedCatalogue, HasStringsThatOverlap)
{
  const std::string text(100, 'a');
  auto bytes = moBytes({{"1", text}, {"2", text}});
  bytes.resize(bytes.size() - text.size() - 1);
  const auto first = static_cast<std::uint32_t>(bytes.size() - text.size() - 1);
  setMoWord(bytes, firstTranslation + 8 + 4, first, ByteOrder::Little);

  EXPECT_EQ(complaintAbout(bytes),
            "de.mo, byte 52: expected strings that do not overlap; the file is damaged");
}

TEST(DamagedCatalogue, HasTextsInDisorder)
{
  EXPECT_EQ(complaintAbout({{"Quit", "Beenden"}, {"Add", "Hinzu"}}),
            "de.mo, byte 36: expected texts in ascending order, each once");
  EXPECT_EQ(complaintAbout({{"Quit", "Beenden"}, {"Quit", "Ende"}}),
            "de.mo, byte 36: expected texts in ascending order, each once");
  EXPECT_EQ(complaintAbout({{"Quit", "Beenden"}, {"Quit" + nul + "Quits", "Ende" + nul + "Enden"}}),
            "de.mo, byte 36: expected texts in ascending order, each once");
}

TEST(DamagedCatalogue, IsInAnotherCharset)
{
  EXPECT_EQ(complaintAbout({{"", "Content-Type: text/plain; charset=ISO-8859-1\n"}}),
            "de.mo, byte 36: expected texts in UTF-8, found another charset; convert the .po "
            "file with msgconv --to-code=UTF-8");
  EXPECT_EQ(complaintAbout({{"", "Content-Type: text/plain; charset=utf-8\n"}}), "");
  EXPECT_EQ(complaintAbout({{"", "Content-Type: text/plain; charset=ASCII\n"}}), "");
}

TEST(DamagedCatalogue, HasATranslationThatIsNotUtf8)
{
  for (const std::string wrong : {"\xFC", "\xC3", "\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80",
                                  "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\x80", "\xE2\x82"})
    EXPECT_EQ(complaintAbout({{"Quit", "Ende" + wrong}}),
              "de.mo, byte 53: expected a translation in UTF-8, found other bytes");
  for (const std::string right : {"ü", "€", "𝄞", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF"})
    EXPECT_EQ(complaintAbout({{"Quit", "Ende" + right}}), "");
}

TEST(DamagedCatalogue, HasTooManyOrTooFewForms)
{
  EXPECT_EQ(complaintAbout({{"Valve" + nul + "Valves", "Ventil"}}),
            "de.mo, byte 57: expected 2 forms of the translation, found 1");
  EXPECT_EQ(complaintAbout({{"Valve", "Ventil" + nul + "Ventile"}}),
            "de.mo, byte 50: expected 1 forms of the translation, found 2");
}

TEST(DamagedCatalogue, IsAFileThatCannotBeRead)
{
  EXPECT_THROW(MoCatalogue::fromFile("there is no such file.mo"), CatalogueError);
  EXPECT_THROW(MoCatalogue::fromFile(std::filesystem::temp_directory_path()), CatalogueError);
  EXPECT_THROW(MoCatalogue::fromMemory(std::string(MoCatalogue::greatestSize + 1, 'a')),
               CatalogueError);
}

TEST(DamagedCatalogue, ChangesNothing)
{
  Translator::installCatalogue(MoCatalogue::fromMemory(moBytes({{"Quit", "Beenden"}})));

  EXPECT_THROW(Translator::installCatalogue(MoCatalogue::fromMemory("damaged")), CatalogueError);

  EXPECT_EQ(Translator::translate(nullptr, "Quit", nullptr, -1), "Beenden");
  Translator::installCatalogue({});
}

TEST(DamagedCatalogue, IsAlwaysNoticedOrHarmless)
{
  const auto whole = moBytes({{"", "Plural-Forms: nplurals=2; plural=n!=1;\n"},
                              {"Valve" + nul + "Valves", "Ventil" + nul + "Ventile"}});
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_NE(complaintAbout(whole.substr(0, size)), "") << "cut after " << size << " bytes";

  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const char value : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
      auto damaged = whole;
      damaged[place] = value;
      try {
        const auto catalogue = MoCatalogue::fromMemory(damaged);
        catalogue(nullptr, "Valve", nullptr, 3);
      } catch (const CatalogueError&) {
        continue;
      }
    }
  }
}

}
}
