// SPDX-License-Identifier: MIT
// What the commands answer in other languages than English.
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"

#include "Translator/Translator.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <optional>

namespace Tarvik::PointCollections {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

bool isLetter(char c)
{
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The text with a mark in place of each letter, so that letters give away what is not translated.
std::string withoutLetters(std::string text)
{
  std::replace_if(text.begin(), text.end(), isLetter, '.');
  return text;
}

/// The text without the name of the document and the memory for the history.
std::string withoutNames(std::string text)
{
  for (const std::string name : {"test.csv", "256M"}) {
    if (const auto at = text.find(name); at != std::string::npos)
      text.erase(at, name.size());
  }
  return text;
}

/// Nothing else in it is named with letters of the Latin alphabet.
class AnotherLanguage : public ::testing::Test {
protected:
  AnotherLanguage() { run(m_session, {"create Γ α β", "create Δ γ"}); }

  ~AnotherLanguage() override { Translator::installCatalogue({}); }

  void marksAllTexts()
  {
    Translator::installCatalogue(
        [](const char*, const char* text, const char*, int) -> std::optional<std::string> {
          return withoutLetters(text);
        });
  }

  void translates(const std::map<std::string, std::string>& texts)
  {
    Translator::installCatalogue(
        [texts](const char*, const char* text, const char*, int) -> std::optional<std::string> {
          const auto found = texts.find(text);
          return found != texts.end() ? std::optional(found->second) : std::nullopt;
        });
  }

  Session m_session = sessionOf({"α", "β", "γ", "δ", "ε", "ζ", "η", "θ", "ι"});
};

TEST_F(AnotherLanguage, HasATranslationOfEveryAnswer)
{
  marksAllTexts();
  for (const auto* line : {"create Γ α",
                           "add Γ γ α --at 1",
                           "add Γ γ α --at 1",
                           "add Γ",
                           "move α --before β",
                           "move α --after β",
                           "move α --after β",
                           "move γ δ --before α",
                           "move β --after ε",
                           "move ζ --before β",
                           "move-group Γ --after Δ",
                           "move-group Γ --before Δ",
                           "move-group Γ --before Δ",
                           "rename Γ Λ",
                           "rename Λ Λ",
                           "add Δ :*",
                           "sort",
                           "sort",
                           "remove α",
                           "remove Δ:1 Λ:1",
                           "select *",
                           "show",
                           "show Δ --places",
                           "show --groups",
                           "show --ungrouped",
                           "where α",
                           "where α β",
                           "find α",
                           "find Λ",
                           "find Ω",
                           "undo",
                           "redo",
                           "history",
                           "undo 7",
                           "history 2",
                           "redo 7",
                           "delete Λ",
                           "delete Δ",
                           "undo"}) {
    SCOPED_TRACE(line);
    const auto answer = withoutNames(run(m_session, {line}));
    EXPECT_EQ(answer, withoutLetters(answer));
    EXPECT_NE(answer, "");
  }
}

TEST_F(AnotherLanguage, HasATranslationOfEveryMistake)
{
  marksAllTexts();
  for (const auto* line :
       {"add Γ δ --at 99", "add Γ δ --at 1 --end", "remove δ", "move α", "rename Γ Δ",
        "rename Γ \"\"", "undo 99", "redo", "find \"\"", "show --all --groups", "Ω", "show Ω"}) {
    SCOPED_TRACE(line);
    const auto message = mistake(m_session, line);
    EXPECT_EQ(message, withoutLetters(message));
  }
}

TEST_F(AnotherLanguage, HasATranslationOfTheHelp)
{
  marksAllTexts();

  const auto list = run(m_session, {"help"});
  for (const Verb& verb : allVerbs()) {
    SCOPED_TRACE(verb.name);
    EXPECT_THAT(list, HasSubstr("  " + verb.name + "  "));
    EXPECT_THAT(list, HasSubstr("  " + withoutLetters(verb.summary) + '\n'));
    if (verb.name != "select") {
      EXPECT_EQ(verb.details(), withoutLetters(verb.details()));
    }
  }
  EXPECT_THAT(run(m_session, {"help quit"}), EndsWith("\n.....:    quit\n.......:  quit"));
  EXPECT_THAT(run(m_session, {"help select"}), HasSubstr("\n  @names.txt             ... ....."));
}

TEST_F(AnotherLanguage, HasAlignedLabelsInTheHelp)
{
  translates({{"Usage:", "使い方:"}, {"Example:", "例:"}});

  EXPECT_THAT(run(m_session, {"help quit"}), EndsWith("\n使い方:  quit\n例:      quit"));
}

TEST_F(AnotherLanguage, HasItsOwnOrderOfWords)
{
  translates({{"Moved {} before {} in {}{}{}.", "{2}: {0} vor {1}{3}{4}."},
              {"{} element", "{} Element"},
              {"{} from {}", "aus {1}: {0}"},
              {" ({})", ", {}"}});

  EXPECT_EQ(run(m_session, {"move γ --before α"}), "Γ: 1 Element vor α, aus Δ: 1.");
}

}
}
