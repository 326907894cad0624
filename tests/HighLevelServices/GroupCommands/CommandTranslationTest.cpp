// SPDX-License-Identifier: MIT
// What the commands ask of the bundled translator.

#include "Support/CommandCases.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace Tarvik {
namespace {

/// Context, text, whether there is a disambiguation, count.
using Request = std::tuple<std::string, std::string, bool, int>;

/// Installs a catalogue that answers every text with "<text>" and writes down what it was asked.
template <class Case>
class TranslatedCommand : public ::testing::Test {
protected:
  TranslatedCommand()
  {
    Translator::installCatalogue(
        [this](const char* context, const char* text, const char* disambiguation, int count) {
          requests.emplace_back(context, text, disambiguation != nullptr, count);
          return std::optional<std::string>("<" + std::string(text) + ">");
        });
  }
  ~TranslatedCommand() override { Translator::installCatalogue({}); }

  std::vector<Request> requests;
};
TYPED_TEST_SUITE(TranslatedCommand, CommandCases, CaseName);

TYPED_TEST(TranslatedCommand, IsDescribedInTheUsersLanguage)
{
  const auto command = TypeParam::make(hostForCommands<typename TypeParam::Element>());

  EXPECT_EQ(command.getDescription(), "<" + std::string(TypeParam::description) + ">");
  EXPECT_EQ(this->requests,
            (std::vector<Request>{{TypeParam::context, TypeParam::description, false, -1}}));
}

TYPED_TEST(TranslatedCommand, KeepsItsDescriptionWhenTheLanguageChanges)
{
  const auto command = TypeParam::make(hostForCommands<typename TypeParam::Element>());

  Translator::installCatalogue({});

  EXPECT_EQ(command.getDescription(), "<" + std::string(TypeParam::description) + ">");
}

TYPED_TEST(TranslatedCommand, ReleasesTheHostWhenTheTranslationFails)
{
  const auto host = hostForCommands<typename TypeParam::Element>();
  Translator::installCatalogue(
      [](auto...) -> std::optional<std::string> { throw std::runtime_error("no catalogue"); });

  EXPECT_THROW(TypeParam::make(host), std::runtime_error);

  EXPECT_EQ(host.use_count(), 1);
}

template <class T>
class TranslatedDefaultName : public TranslatedCommand<CreateGroupCase<T>> {};
TYPED_TEST_SUITE(TranslatedDefaultName, ElementIdentifiers, KindName);

TYPED_TEST(TranslatedDefaultName, IsTakenInTheUsersLanguageWhenTheCommandIsExecuted)
{
  const auto host = emptyHost<TypeParam>();
  CreateTKGroupCmd<TypeParam> command(host, {}, "");
  this->requests.clear();

  command.execute();

  EXPECT_EQ(this->requests, (std::vector<Request>{{"CreateTKGroupCmd", "Group", false, -1}}));
  EXPECT_EQ(host->groups().front().name, "<Group>");
}

TYPED_TEST(TranslatedDefaultName, IsNotAskedForWhenThereIsAName)
{
  const auto host = emptyHost<TypeParam>();
  CreateTKGroupCmd<TypeParam> command(host, {}, " ");
  this->requests.clear();

  command.execute();

  EXPECT_EQ(this->requests, std::vector<Request>());
}

TYPED_TEST(TranslatedDefaultName, MayBeEmpty)
{
  const auto host = emptyHost<TypeParam>();
  CreateTKGroupCmd<TypeParam> command(host, {}, "");
  Translator::installCatalogue([](auto...) { return std::optional<std::string>(""); });

  command.execute();

  EXPECT_EQ(host->groups().front().name, "");
}

TYPED_TEST(TranslatedDefaultName, LeavesTheHostsGroupsAloneWhenTheTranslationFails)
{
  const auto host = hostForCommands<TypeParam>();
  const auto before = host->copyOfGroups();
  CreateTKGroupCmd<TypeParam> command(host, before.front().getGroupMembers(), "");
  Translator::installCatalogue(
      [](auto...) -> std::optional<std::string> { throw std::runtime_error("no catalogue"); });

  EXPECT_THROW(command.execute(), std::runtime_error);

  EXPECT_TRUE(identical(host->copyOfGroups(), before));
}

}
}
