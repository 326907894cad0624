// SPDX-License-Identifier: MIT
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

std::string translated(const char* text)
{
  return Translator::translate("Context", text, nullptr, -1);
}

/// A catalogue with one translation for all texts.
Translator::Catalogue answering(const std::string& answer)
{
  return [answer](const char*, const char*, const char*, int) { return answer; };
}

class Translation : public ::testing::Test {
protected:
  ~Translation() override { Translator::installCatalogue({}); }
};

TEST_F(Translation, IsTheTextItselfWithoutACatalogue)
{
  EXPECT_EQ(Translator::translate("Context", "Remove pumps", "Comment", 3), "Remove pumps");
  EXPECT_EQ(Translator::translate(nullptr, "Gr\xc3\xbc\xc3\x9f", nullptr, -1),
            "Gr\xc3\xbc\xc3\x9f");
  EXPECT_EQ(translated(""), "");
}

TEST_F(Translation, OfANullTextIsEmpty)
{
  EXPECT_EQ(Translator::translate("Context", nullptr, "Comment", 1), "");

  Translator::installCatalogue(
      [](const char*, const char*, const char*, int) { return std::nullopt; });
  EXPECT_EQ(Translator::translate(nullptr, nullptr, nullptr, -1), "");
}

TEST_F(Translation, IsWhatTheCatalogueAnswers)
{
  Translator::installCatalogue(answering("Pumpen entfernen"));

  EXPECT_EQ(translated("Remove pumps"), "Pumpen entfernen");
}

TEST_F(Translation, MayBeEmpty)
{
  Translator::installCatalogue(answering(""));

  EXPECT_EQ(translated("Remove pumps"), "");
}

TEST_F(Translation, IsTheTextItselfWhereTheCatalogueHasNone)
{
  Translator::installCatalogue([](const char*, const std::string& text, const char*, int) {
    return text == "yes" ? std::optional<std::string>("ja") : std::nullopt;
  });

  EXPECT_EQ(translated("yes"), "ja");
  EXPECT_EQ(translated("no"), "no");
}

TEST_F(Translation, PassesAllArgumentsToTheCatalogue)
{
  struct Arguments {
    const char* context;
    const char* text;
    const char* disambiguation;
    int count;
    bool operator==(const Arguments&) const = default;
  };
  std::vector<Arguments> seen;
  Translator::installCatalogue(
      [&seen](const char* context, const char* text, const char* disambiguation, int count) {
        seen.push_back({context, text, disambiguation, count});
        return std::optional<std::string>();
      });
  const char* const context = "Context";
  const char* const text = "Text";
  const char* const disambiguation = "Disambiguation";
  const std::vector<Arguments> given = {{context, text, disambiguation, 7},
                                        {context, text, nullptr, -1},
                                        {nullptr, text, disambiguation, 0},
                                        {context, nullptr, disambiguation, 1},
                                        {nullptr, nullptr, nullptr, -2147483647 - 1}};

  for (const auto& each : given)
    Translator::translate(each.context, each.text, each.disambiguation, each.count);

  EXPECT_TRUE(seen == given) << "a catalogue got other arguments than translate()";
}

TEST_F(Translation, FollowsEverySwitchOfTheCatalogue)
{
  Translator::installCatalogue(answering("1"));
  EXPECT_EQ(translated("text"), "1");
  Translator::installCatalogue(answering("2"));
  EXPECT_EQ(translated("text"), "2");
  Translator::installCatalogue({});
  EXPECT_EQ(translated("text"), "text");
  Translator::installCatalogue({});
  EXPECT_EQ(translated("text"), "text");
  Translator::installCatalogue(answering("3"));
  EXPECT_EQ(translated("text"), "3");
  Translator::installCatalogue(nullptr);
  EXPECT_EQ(translated("text"), "text");
}

TEST_F(Translation, MadeBeforeASwitchStaysAsItIs)
{
  Translator::installCatalogue(answering("before, in a text that is not kept within the string"));
  const auto before = translated("text");

  Translator::installCatalogue(answering("after"));

  EXPECT_EQ(before, "before, in a text that is not kept within the string");
}

TEST_F(Translation, MayAskForAnotherTranslation)
{
  Translator::installCatalogue([](const char*, const char* text, const char*, int) {
    return text == std::string("outer") ? translated("inner") + '!' : std::string("found");
  });

  EXPECT_EQ(translated("outer"), "found!");
}

TEST_F(Translation, MayInstallAnotherCatalogueAndStillUsesItsOwn)
{
  const auto answer = std::make_shared<std::string>("of the old one");
  Translator::installCatalogue([answer](const char*, const char*, const char*, int) {
    Translator::installCatalogue(answering("of the new one"));
    return *answer;
  });

  EXPECT_EQ(translated("text"), "of the old one");
  EXPECT_EQ(translated("text"), "of the new one");
  EXPECT_EQ(answer.use_count(), 1) << "the old catalogue has not been released";
}

TEST_F(Translation, PassesOnTheExceptionOfACatalogueAndStillWorks)
{
  bool fails = true;
  Translator::installCatalogue([&fails](const char*, const char*, const char*, int) {
    if (fails)
      throw std::runtime_error("no file");
    return std::string("found");
  });

  EXPECT_THROW(translated("text"), std::runtime_error);
  fails = false;
  EXPECT_EQ(translated("text"), "found");

  Translator::installCatalogue({});
  EXPECT_EQ(translated("text"), "text");
}

TEST_F(Translation, ReleasesTheOldCatalogueWhenItSwitches)
{
  const auto state = std::make_shared<std::string>("state");
  const auto withState = [state](const char*, const char*, const char*, int) { return *state; };
  const auto idle = state.use_count();

  Translator::installCatalogue(withState);
  EXPECT_GT(state.use_count(), idle);
  Translator::installCatalogue(answering("other"));
  EXPECT_EQ(state.use_count(), idle);

  Translator::installCatalogue(withState);
  EXPECT_EQ(translated("text"), "state");
  Translator::installCatalogue({});
  EXPECT_EQ(state.use_count(), idle);
}

TEST_F(Translation, MayBeAskedForWhileTheOldCatalogueIsDestroyed)
{
  struct Farewell {
    explicit Farewell(std::string& target) : heard(target) {}
    Farewell(const Farewell&) = delete;
    Farewell& operator=(const Farewell&) = delete;
    ~Farewell() { heard = translated("farewell"); }
    std::string& heard;
  };
  std::string heard;
  Translator::installCatalogue(
      [farewell = std::make_shared<Farewell>(heard)](const char*, const char*, const char*, int) {
        return std::string("old");
      });

  Translator::installCatalogue(answering("new"));

  EXPECT_EQ(heard, "new");
}

TEST_F(Translation, MayBeAskedForByManyThreadsWhileAnotherSwitches)
{
  constexpr int askingThreads = 4;
  constexpr int switches = 500;
  std::atomic<bool> switching = true;
  std::atomic<int> wrong = 0;
  std::atomic<int> asked = 0;
  std::vector<std::thread> threads;
  threads.reserve(askingThreads);
  for (int i = 0; i < askingThreads; ++i)
    threads.emplace_back([&] {
      do {
        const auto answer = translated("text");
        if (answer != "text" && answer != "1" && answer != "2")
          ++wrong;
        ++asked;
      } while (switching);
    });

  for (int i = 0; i < switches; ++i) {
    Translator::installCatalogue(answering("1"));
    Translator::installCatalogue({});
    Translator::installCatalogue(answering("2"));
  }
  switching = false;
  for (auto& thread : threads)
    thread.join();

  EXPECT_EQ(wrong, 0) << "of " << asked << " translations";
  EXPECT_EQ(translated("text"), "2");
}

TEST_F(Translation, NeedsNoTranslatorObject)
{
  static_assert(!std::is_default_constructible_v<Translator>);
}

}
}
