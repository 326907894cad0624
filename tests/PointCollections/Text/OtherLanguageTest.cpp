// SPDX-License-Identifier: MIT
// Texts in the user's language, in an order that differs from English.

#include "PointCollections/Console/Shell/Transcript.h"
#include "PointCollections/Files/LockHolder.h"
#include "PointCollections/Support/Language.h"
#include "PointCollections/Text/NearestName.h"
#include "PointCollections/Text/SystemReason.h"
#include "PointCollections/Text/TextInNeed.h"
#include "PointCollections/Text/Translated.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

const std::string& longTranslation()
{
  static const std::string text(100, 'x');
  return text;
}

TEST(TranslatedCount, IsInTheFormOfTheLanguageEvenIfThatLooksEnglish)
{
  Translator::installCatalogue( // French, in which 0 is singular
      [](const char*, std::string_view text, const char*, int count) {
        return text == "{} point" ? std::optional<std::string>(count < 2 ? "{} point" : "{} points")
                                  : std::nullopt;
      });

  EXPECT_EQ(translatedCount(0, "{} point", "{} dots"), "0 point");
  EXPECT_EQ(translatedCount(5, "{} point", "{} dots"), "5 points");
  Translator::installCatalogue({});
  EXPECT_EQ(translatedCount(0, "{} point", "{} dots"), "0 dots");
}

TEST(Translated, IsEnglishIfTheTranslationDoesNotFit)
{
  for (const char* const wrong : {"{} {}", "{1}", "{", "{0:>2000000000}", "{:d}", "{0} {}"}) {
    const Language language({{"Opened {}.", wrong}});

    EXPECT_EQ(translated("Opened {}.", "a"), "Opened a.") << wrong;
  }
}

TEST(TextInNeed, IsTranslatedBeforeMemoryRunsOut)
{
  const Language language({{"out of memory", longTranslation()}});
  const TextInNeed text(translatable("out of memory"));

  const AllocationWatch watch(0, AllocationWatch::none);
  EXPECT_EQ(text.text(), longTranslation());
}

TEST(TextInNeed, IsEnglishIfThereWasNoMemoryBefore)
{
  const Language language({{"out of memory", longTranslation()}});
  const auto inNeed = [] {
    const AllocationWatch watch(0, AllocationWatch::none);
    return TextInNeed(translatable("out of memory"));
  };

  EXPECT_EQ(inNeed().text(), "out of memory");
}

TEST(SystemReason, IsThatOfTheCLibraryInEnglish)
{
  for (const int code : {ENOENT, EACCES, EISDIR, ENOSPC, EROFS, ENAMETOOLONG, EBUSY, EDOM}) {
    EXPECT_EQ(systemReason({code, std::generic_category()}), std::generic_category().message(code));
  }
}

TEST(SystemReason, IsTranslatedWhereUsersMeetIt)
{
  const Language language({{"Permission denied", "Zugriff verweigert"}});

  EXPECT_EQ(systemReason(std::make_error_code(std::errc::permission_denied)), "Zugriff verweigert");
  EXPECT_EQ(systemReason({EDOM, std::generic_category()}), std::generic_category().message(EDOM));
}

#if defined(__GLIBC__) // whose words are those of the translations
TEST(SystemReason, IsAskedForInTheWordsOfTheSystem)
{
  for (const int code : {ENOENT, EACCES, EPERM,  ENOTSUP, EISDIR, ENOTDIR, EEXIST, ENAMETOOLONG,
                         EFBIG,  ENOSPC, EROFS,  EIO,     EBUSY,  ETXTBSY, ENODEV, ENXIO,
                         EINVAL, EMFILE, ENFILE, ELOOP,   ENOLCK, ENOMEM,  EDQUOT}) {
    const Language language({{std::generic_category().message(code), "translated"}});

    EXPECT_EQ(systemReason({code, std::generic_category()}), "translated") << code;
  }
}
#endif

TEST(LockHolder, IsShownInTheLanguageOfTheReader)
{
  const auto text = textOfHolder(123, "point-collections");
  EXPECT_EQ(text, "process 123 (point-collections)");
  EXPECT_EQ(shownHolder(text), text);

  const Language language({{"process {} ({})", "{1}, Prozess {0},"}});
  EXPECT_EQ(shownHolder(text), "point-collections, Prozess 123,");
}

TEST(LockHolder, IsShownAsItIsIfAnotherProgramHasWrittenIt)
{
  const Language language({{"process {} ({})", "{1}, Prozess {0},"}});

  for (const auto* text : {"process", "process ", "process x (y)", "process 1", "process 1 (", "me",
                           "process 1 (init), and some more"})
    EXPECT_EQ(shownHolder(text), text);
  EXPECT_EQ(shownHolder(std::string(300, 'x')), std::string(200, 'x') + "…");
}

TEST(Suggestion, IsJoinedAsInTheLanguage)
{
  const Language language({{"; did you mean {}?", "；{}ですか？"}, {"; {}", "；{}"}});

  EXPECT_EQ(suggestion("Rom", {"Rome"}, "…"), "；Romeですか？");
  EXPECT_EQ(suggestion("Rom", {}, "…"), "；…");
}

TEST(Transcript, TellsAMistakeInTheLanguageThatItWasMadeIn)
{
  const Language language({{"error", "Fehler, an den niemand gedacht hat"}});
  std::ostringstream output;
  std::ostringstream errors;
  errors.str(std::string(1000, ' ')); // room for what is printed
  errors.seekp(0);
  Transcript transcript(output, errors, Transcript::Detail::Full);
  {
    const AllocationWatch watch(0, AllocationWatch::none);
    transcript.error("a script with a long name.pcs:12", "x");
  }

  EXPECT_TRUE(errors.str().starts_with("Fehler, an den niemand gedacht hat: x\n")) << errors.str();
}

}
}
