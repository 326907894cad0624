// SPDX-License-Identifier: MIT
#include "Support/MoBytes.h"
#include "Translator/CatalogueError.h"
#include "Translator/MoCatalogue.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace Tarvik {
namespace {

/// A catalogue with the forms "0", "1" … of one text.
MoCatalogue withRule(const std::string& rule, int forms)
{
  std::string translations = "0";
  for (int i = 1; i < forms; ++i)
    translations += nul + std::to_string(i);
  return MoCatalogue::fromMemory(
      moBytes({{"", "Plural-Forms: " + rule + "\n"}, {"text" + nul + "texts", translations}}),
      "any.mo");
}

/// The form that the expression gives the number; with 100 forms.
int formFor(const std::string& expression, int number)
{
  const auto catalogue = withRule("nplurals=100; plural=" + expression + ";", 100);
  return std::stoi(catalogue(nullptr, "text", nullptr, number).value());
}

std::string complaintAbout(const std::string& rule, int forms)
{
  try {
    withRule(rule, forms);
    return {};
  } catch (const CatalogueError& error) {
    return error.what();
  }
}

/// The rule of a language, and the same in C++.
struct Language {
  const char* name;
  int forms;
  const char* rule;
  int (*form)(int n);
};

// NOLINTBEGIN(readability-avoid-nested-conditional-operator): as the rules are
const Language languages[] = {
    {"Japanese", 1, "0", [](int) { return 0; }},
    {"German", 2, "(n != 1)", [](int n) { return n != 1 ? 1 : 0; }},
    {"French", 2, "n>1", [](int n) { return n > 1 ? 1 : 0; }},
    {"Polish", 3, "(n==1 ? 0 : n%10>=2 && n%10<=4 && (n%100<10 || n%100>=20) ? 1 : 2)",
     [](int n) {
       return n == 1 ? 0 : n % 10 >= 2 && n % 10 <= 4 && (n % 100 < 10 || n % 100 >= 20) ? 1 : 2;
     }},
    {"Slovenian", 4, "n%100==1 ? 0 : n%100==2 ? 1 : n%100==3 || n%100==4 ? 2 : 3",
     [](int n) {
       return n % 100 == 1 ? 0 : n % 100 == 2 ? 1 : n % 100 == 3 || n % 100 == 4 ? 2 : 3;
     }},
    {"Arabic", 6, "n==0 ? 0 : n==1 ? 1 : n==2 ? 2 : n%100>=3 && n%100<=10 ? 3 : n%100>=11 ? 4 : 5",
     [](int n) {
       return n == 0                          ? 0
              : n == 1                        ? 1
              : n == 2                        ? 2
              : n % 100 >= 3 && n % 100 <= 10 ? 3
              : n % 100 >= 11                 ? 4
                                              : 5;
     }}};
// NOLINTEND(readability-avoid-nested-conditional-operator)

class PluralFormsOf : public ::testing::TestWithParam<Language> {};

TEST_P(PluralFormsOf, AreChosenByTheRule)
{
  const auto& language = GetParam();
  const auto catalogue =
      withRule("nplurals=" + std::to_string(language.forms) + "; plural=" + language.rule + ";",
               language.forms);

  for (int n = 0; n < 2500; ++n)
    ASSERT_EQ(catalogue(nullptr, "text", nullptr, n), std::to_string(language.form(n))) << n;
  EXPECT_EQ(catalogue(nullptr, "text", nullptr, 2147483647),
            std::to_string(language.form(2147483647)));
}

INSTANTIATE_TEST_SUITE_P(EachLanguage,
                         PluralFormsOf,
                         ::testing::ValuesIn(languages),
                         [](const auto& each) { return each.param.name; });

TEST(PluralForms, FollowTheRulesOfCForOperators)
{
  EXPECT_EQ(formFor("2+3*4", 0), 14);
  EXPECT_EQ(formFor("(2+3)*4", 0), 20);
  EXPECT_EQ(formFor("20-8-4", 0), 8);
  EXPECT_EQ(formFor("40/4/2", 0), 5);
  EXPECT_EQ(formFor("17%10%4", 0), 3);
  EXPECT_EQ(formFor("1||0&&0", 0), 1);
  EXPECT_EQ(formFor("1<2==1", 0), 1);
  EXPECT_EQ(formFor("3>=3+1", 0), 0);
  EXPECT_EQ(formFor("!n+2", 0), 3);
  EXPECT_EQ(formFor("!!n", 7), 1);
  EXPECT_EQ(formFor("n?n==1?2:3:4", 0), 4);
  EXPECT_EQ(formFor("n?n==1?2:3:4", 1), 2);
  EXPECT_EQ(formFor("n?n==1?2:3:4", 2), 3);
  EXPECT_EQ(formFor(" ( n\t> 1 ) ", 2), 1);
  EXPECT_EQ(formFor("n!=1", 2), 1);
  EXPECT_EQ(formFor("n<=1", 2), 0);
}

TEST(PluralForms, AreTheFirstForANumberThatTheRuleHasNoFormFor)
{
  const auto catalogue = withRule("nplurals=2; plural=n/1001;", 2);

  EXPECT_EQ(catalogue(nullptr, "text", nullptr, 1001), "1");
  EXPECT_EQ(catalogue(nullptr, "text", nullptr, 5000), "0");
}

TEST(PluralForms, SurviveADivisionBy0)
{
  EXPECT_EQ(formFor("7/n", 0), 0);
  EXPECT_EQ(formFor("7%n", 0), 0);
  EXPECT_EQ(formFor("n==0?5:9/n%10", 0), 5);
}

TEST(PluralForms, AreRefusedIfTheRuleIsNotValid)
{
  const std::string start = "any.mo, byte 44: plural rule, column ";
  EXPECT_EQ(complaintAbout("EXPRESSION", 2), start + "1: expected \"nplurals\"");
  EXPECT_EQ(complaintAbout("nplurals=INTEGER; plural=EXPRESSION;", 2),
            start + "10: expected a number of 1 to 9 digits");
  EXPECT_EQ(complaintAbout("nplurals=0; plural=0;", 1), start + "11: expected 1 to 100 forms");
  EXPECT_EQ(complaintAbout("nplurals=101; plural=0;", 1), start + "13: expected 1 to 100 forms");
  EXPECT_EQ(complaintAbout("nplurals=2", 2), start + "11: expected \";\"");
  EXPECT_EQ(complaintAbout("nplurals=2;", 2), start + "12: expected \"plural\"");
  EXPECT_EQ(complaintAbout("nplurals=2; plural=n!=;", 2),
            start + "23: expected a number of 1 to 9 digits");
  EXPECT_EQ(complaintAbout("nplurals=2; plural=(n!=1;", 2), start + "25: expected \")\"");
  EXPECT_EQ(complaintAbout("nplurals=2; plural=n?1;", 2), start + "23: expected \":\"");
  EXPECT_EQ(complaintAbout("nplurals=2; plural=n!=1; more", 2), start + "26: expected the end");
  EXPECT_EQ(complaintAbout("nplurals=2; plural=n=1;", 2), start + "21: expected the end");
  EXPECT_EQ(complaintAbout("nplurals=2; plural=1234567890;", 2),
            start + "20: expected a number of 1 to 9 digits");
}

TEST(PluralForms, AreRefusedIfTheRuleGivesAFormThatThereIsNot)
{
  EXPECT_EQ(
      complaintAbout("nplurals=2; plural=n;", 2),
      "any.mo, byte 44: plural rule: it gives form 2 for the number 2, and there are 2 forms, "
      "counted from 0");
}

TEST(PluralForms, AreRefusedIfTheRuleWouldTakeMuchTimeOrMemory)
{
  const auto repeated = [](const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
      result += text;
    return result;
  };
  const auto ruleOf = [](const std::string& expression) {
    return "nplurals=2; plural=" + expression + ";";
  };
  EXPECT_NE(complaintAbout(ruleOf(repeated("(", 100'000)), 2).find("nested too deeply"),
            std::string::npos);
  EXPECT_NE(complaintAbout(ruleOf(repeated("n?0:", 100'000) + "0"), 2).find("nested too deeply"),
            std::string::npos);
  EXPECT_NE(complaintAbout(ruleOf(repeated("!", 100'000) + "n"), 2).find("1000 steps"),
            std::string::npos);
  EXPECT_NE(complaintAbout(ruleOf(repeated("0*", 100'000) + "0"), 2).find("1000 steps"),
            std::string::npos);
  EXPECT_EQ(complaintAbout(ruleOf(repeated("(", 40) + "n>1" + repeated(")", 40)), 2), "");
}

}
}
