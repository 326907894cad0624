// SPDX-License-Identifier: MIT
#include "Translator/UserLanguages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;

void setEnvironment(const std::string& variable, const std::optional<std::string>& value)
{
#if defined(_WIN32)
  _putenv_s(variable.c_str(), value.value_or("").c_str()); // empty removes it
#else
  if (value)
    setenv(variable.c_str(), value->c_str(), 1);
  else
    unsetenv(variable.c_str());
#endif
}

/// Sets these variables of the environment and removes the others that choose a language; puts all
/// back at the end.
class Wanted : public ::testing::Test {
protected:
  Wanted()
  {
    for (const auto* const variable : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
      const char* const value = std::getenv(variable);
      m_before[variable] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
      setEnvironment(variable, std::nullopt);
    }
  }

  Wanted(const Wanted&) = delete;
  Wanted& operator=(const Wanted&) = delete;

  ~Wanted() override
  {
    for (const auto& [variable, value] : m_before)
      setEnvironment(variable, value);
  }

private:
  std::map<std::string, std::optional<std::string>> m_before;
};

TEST_F(Wanted, IsTheLocaleOfTheStrongestVariable)
{
  setEnvironment("LANG", "de_DE.UTF-8");
  EXPECT_THAT(UserLanguages::wanted(), ElementsAre("de_DE.UTF-8"));
  setEnvironment("LC_MESSAGES", "fr_FR.UTF-8");
  EXPECT_THAT(UserLanguages::wanted(), ElementsAre("fr_FR.UTF-8"));
  setEnvironment("LC_ALL", "pl_PL.UTF-8");
  EXPECT_THAT(UserLanguages::wanted(), ElementsAre("pl_PL.UTF-8"));
}

TEST_F(Wanted, IsWhatTheListSaysFirst)
{
  setEnvironment("LANG", "de_DE.UTF-8");
  setEnvironment("LANGUAGE", "ja::zh_CN:");

  EXPECT_THAT(UserLanguages::wanted(), ElementsAre("ja", "zh_CN", "de_DE.UTF-8"));
}

TEST_F(Wanted, IsNoListIfTheLocaleIsC)
{
  setEnvironment("LANGUAGE", "ja");
  for (const auto* const locale : {"C", "POSIX", "C.UTF-8"}) {
    setEnvironment("LC_ALL", locale);
    EXPECT_THAT(UserLanguages::wanted(), ElementsAre(locale));
  }
}

#if !defined(_WIN32)
TEST_F(Wanted, IsNothingWithoutAnyVariable)
{
  EXPECT_THAT(UserLanguages::wanted(), ElementsAre());
  setEnvironment("LANG", "");
  EXPECT_THAT(UserLanguages::wanted(), ElementsAre());
}
#else
TEST_F(Wanted, IsWhatTheSystemSaysWithoutAnyVariable)
{
  for (const auto& language : UserLanguages::wanted())
    EXPECT_TRUE(std::all_of(language.begin(), language.end(), [](char c) {
      return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    })) << language;
}
#endif

}
}
