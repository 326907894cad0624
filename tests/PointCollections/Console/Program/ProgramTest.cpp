// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Programs.h"
#include "PointCollections/Recovery/Recovery.h"
#include "PointCollections/Support/Edits.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::string notSavedIn(const std::string& title)
{
  return title + ": the changes are not saved; save keeps them\n";
}

const std::string notSaved = notSavedIn("points.csv");

class Program : public ::testing::Test {
protected:
  Outcome run(const std::vector<std::string>& arguments, const std::string& input = {})
  {
    return runProgram(m_folder, arguments, input);
  }

  /// Writes a file and returns its path as text.
  std::string write(const std::string& name, std::string_view content) const
  {
    return Utf8::fromPath(m_folder.write(name, content));
  }

  /// The path of a file in the folder, as it is typed in quotes: there a backslash is an escape.
  std::string typed(const std::string& file) const
  {
    const auto text = (m_folder.path() / Utf8::toPath(file)).generic_u8string();
    return {text.begin(), text.end()};
  }

  TemporaryFolder m_folder;
  std::string m_points = write("points.csv", "collection,x,y,z\na,1,2,3\n\"b c\",4,5,6\n");
};

TEST_F(Program, RunsCommandsFromStandardInput)
{
  const auto outcome = run({m_points}, "create G a\nshow\n");

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, notSaved);
  EXPECT_EQ(outcome.output, "Opened points.csv: 2 elements with 2 points.\n"
                            "\n"
                            "> create G a\n"
                            "Created G with 1 element.\n"
                            "\n"
                            "> show\n"
                            "points.csv: 2 elements in 1 group\n"
                            "├─ G (1)\n"
                            "│  └─ a\n"
                            "└─ ungrouped (1)\n"
                            "   └─ b c\n");
}

TEST_F(Program, RunsCommandsFromArgumentsAndIgnoresStandardInput)
{
  const auto outcome = run({m_points, "--quiet", "--command", R"(create "G $HOME" "b c")",
                            "--command", R"(show "G $HOME")"},
                           "nonsense\n");

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "Created \"G $HOME\" with 1 element.\nG $HOME (1)\n└─ b c\n");
}

TEST_F(Program, ReadsPointsFromStandardInput)
{
  const auto outcome = run({"-", "--command", "show"}, "x;y;z;Collection\n1;2;3;Berlin\n");

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "Opened <stdin>: 1 element with 1 point.\n"
                            "\n"
                            "> show\n"
                            "<stdin>: 1 element in 0 groups\n"
                            "└─ ungrouped (1)\n"
                            "   └─ Berlin\n");
  EXPECT_EQ(
      run({"-", "--command", "show"}, "a,1,2,b\n").errors,
      "point-collections: <stdin>:1: the header is missing; found a, 1, 2 and b, separated by "
      "commas; expected the columns collection, x, y and z in any order, separated by commas, "
      "semicolons or tabs\n");
}

TEST_F(Program, ReadsTheScriptFromStandardInput)
{
  const auto outcome =
      run({m_points, "--quiet", "--command", "create G", "--script", "-"}, "add G a\nnonsense\n");

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "Created G with 0 elements.\nAdded 1 element to G.\n");
  EXPECT_THAT(outcome.errors, StartsWith("<stdin>:2: "));
}

TEST_F(Program, RefusesASizeThatIsNoWholeNumber)
{
  for (const std::string size : {"1.5M", "-1", "M", "3Q", "0x10", "5 bits"}) {
    EXPECT_THAT(run({m_points, "--history-budget=" + size}).errors,
                HasSubstr(size + " is not a size; expected a whole number such as 256M or 2G"));
  }
}

TEST_F(Program, RefusesASizeOfVeryManyDigits)
{
  const auto outcome = run({m_points, "--history-budget=" + std::string(100'000, '9')});

  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.errors, HasSubstr("9… is not a size"));
}

TEST_F(Program, TakesUnitsOfSizes)
{
  for (const std::string size : {"256M", "2g", "100 kb", "64KiB", "4096", "4096b"})
    EXPECT_EQ(run({m_points, "--history-budget=" + size, "--command", "help"}).errors, "") << size;
}

TEST_F(Program, EndsHelpWithOneLineEnd)
{
  EXPECT_THAT(run({"--help"}).output, EndsWith("status 1).\n"));
}

TEST_F(Program, TakesALanguageOnlyFromItsOption)
{
  EXPECT_THAT(run({m_points, "--language", "xx"}).errors, HasSubstr("there are no texts in xx"));
  EXPECT_THAT(run({m_points, "--language=xx"}).errors, HasSubstr("there are no texts in xx"));
  EXPECT_THAT(run({m_points, "--command", "--language=xx"}).errors,
              Not(HasSubstr("there are no texts")));
  EXPECT_THAT(run({"--", "--language=xx"}).errors, Not(HasSubstr("there are no texts")));
}

TEST_F(Program, RefusesToReadTwoThingsFromStandardInput)
{
  EXPECT_EQ(run({"-"}, "collection,x,y,z\n").errors,
            "point-collections: standard input has the points; give the commands by --command or "
            "--script\n");
  EXPECT_EQ(
      run({"-", "--script", "-"}, "collection,x,y,z\n").errors,
      "point-collections: standard input cannot have both the points and the script; give one "
      "of them as a file\n");
  EXPECT_EQ(run({"-", "--script", "-"}).status, 2);
}

TEST_F(Program, WarnsOfWhatItDoesNotRead)
{
  const std::string columns = ":1: the file has columns that are not read: land";
  const std::string tooSmall =
      ":2: y is \"1e-400\", which is too close to 0 for this program; it is read as 0";
  const auto table = write("table.csv", "collection\tx\ty\tz\tland\na\t1\t1e-400\t3\tD\n");
  const auto typedTable = typed("table.csv");

  EXPECT_EQ(run({table, "--command", "show"}).errors,
            "warning: " + table + columns + "\nwarning: " + table + tooSmall + '\n');
  EXPECT_EQ(run({m_points, "--quiet", "--command", "open \"" + typedTable + '"'}).output,
            "Opened table.csv: 1 element with 1 point.\nWarning: " + typedTable + columns +
                ".\nWarning: " + typedTable + tooSmall + ".\n");
}

TEST_F(Program, NamesUtf16)
{
  const std::string showInUtf16("\xFF\xFEs\0h\0o\0w\0\n\0", 12);

  EXPECT_EQ(run({write("points.csv", showInUtf16)}).status, 2);
  EXPECT_THAT(run({m_points}).errors,
              EndsWith("points.csv: this text is in UTF-16; save it as UTF-8\n"));
  EXPECT_EQ(
      run({write("other.csv", "collection,x,y,z\n"), "--script", write("utf16.pcs", showInUtf16)})
          .errors,
      Utf8::fromPath(m_folder.path() / "utf16.pcs") +
          ":1: this text is in UTF-16; save it as UTF-8\n");
}

TEST_F(Program, RunsTheScriptAfterTheCommands)
{
  const auto script = write("test.pcs", "add G a\n");
  const auto outcome = run({"--script", script, "--command", "create G", "--quiet", m_points});

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "Created G with 0 elements.\nAdded 1 element to G.\n");
}

TEST_F(Program, DoesNotRunTheScriptAfterAMistake)
{
  const auto script = write("test.pcs", "create G\n");
  const auto outcome = run({m_points, "--quiet", "--script", script, "--command", "crate"});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "--command:1: crate is not a command; did you mean create?\n");
}

TEST_F(Program, StopsAScriptAtAMistake)
{
  const auto script = write("test.pcs", "create G a\nadd G d\ncreate H\n");
  const auto outcome = run({m_points, "--quiet", "--script", script});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "Created G with 1 element.\n");
  EXPECT_EQ(outcome.errors,
            script + ":2: there is no element named d; show --all lists them\n" + notSaved);
}

TEST_F(Program, GivesTheLineOfAMistakeInStandardInput)
{
  const auto outcome = run({m_points, "--quiet"}, "\n# a comment\nadd \"G\n");

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors,
            "<stdin>:3: column 5: this quote is never closed; add a \" after the name\n");
}

TEST_F(Program, TakesFilesWithTheLineEndsOfWindows)
{
  const auto points = write("crlf.csv", "collection,x,y,z\r\na,1,2,3\r\nb,4,5,6\r\n");
  const auto script = write("crlf.pcs", "# a comment\r\n\r\ncreate G a\r\nadd G b\r\n");
  const auto outcome = run({points, "--quiet", "--script", script});

  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, notSavedIn("crlf.csv"));
  EXPECT_EQ(outcome.output, "Created G with 1 element.\nAdded 1 element to G.\n");
  EXPECT_EQ(run({points, "--quiet"}, "create G a\r\n").output, "Created G with 1 element.\n");
}

TEST_F(Program, TakesFileNamesAndCommandsOfAnyLanguage)
{
  const auto points = write("Städte 都市 🌍.csv", "collection,x,y,z\nЛондон,1,2,3\n東京,4,5,6\n");
  const auto script = write("Größe Δ.pcs", "add Städte 東京\nadd Städte 大阪\n");
  const auto outcome = run({points, "--command", "create Städte Лондон", "--script", script});

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "Opened \"Städte 都市 🌍.csv\": 2 elements with 2 points.\n"
                            "\n"
                            "> create Städte Лондон\n"
                            "Created Städte with 1 element.\n"
                            "\n"
                            "> add Städte 東京\n"
                            "Added 1 element to Städte.\n"
                            "\n"
                            "> add Städte 大阪\n");
  EXPECT_EQ(outcome.errors, script + ":2: there is no element named 大阪; show --all lists them\n" +
                                notSavedIn("\"Städte 都市 🌍.csv\""));
}

TEST_F(Program, TakesArgumentsAsTheyAre)
{
  const auto outcome = run({m_points, "--quiet", "--command", R"(create "a \"b\" \\\\c\\")",
                            "--command", "create *", "--command", "create %PATH%"});

  EXPECT_EQ(outcome.errors, notSaved);
  EXPECT_EQ(outcome.output, "Created \"a \\\"b\\\" \\\\\\\\c\\\\\" with 0 elements.\n"
                            "Created \"*\" with 0 elements.\n"
                            "Created %PATH% with 0 elements.\n");
}

TEST_F(Program, DoesNothingWithoutCommands)
{
  EXPECT_EQ(run({m_points, "--quiet"}).status, 0);
  EXPECT_EQ(run({m_points, "--quiet"}).output, "");
}

TEST_F(Program, SurvivesAnyBytes)
{
  EXPECT_EQ(run({m_points}, std::string("show\0\n", 6)).status, 1);
  EXPECT_EQ(run({m_points}, "\xFF\xFE\n").status, 1);
  EXPECT_EQ(run({m_points}, std::string(3000000, 'x')).status, 1);
  EXPECT_EQ(run({m_points}, std::string(500000, '"') + "\n").status, 1);
  EXPECT_EQ(run({m_points}, "undo 99999999999999999999\n").status, 1);
}

TEST_F(Program, TakesNamesFromAFileAndExportsTheGroups)
{
  const auto names = write("my names.txt", "b c\r\na\r\n");
  const auto outcome =
      run({m_points, "--quiet"},
          "create G @\"" + typed("my names.txt") + "\"\nselect G:*\nexport \"" + typed("out.csv") +
              "\"\nopen \"" + typed("out.csv") + "\" --discard\nshow --json\n");

  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.output,
              EndsWith("{\"title\":\"out.csv\",\"groups\":[{\"place\":1,\"name\":\"G\","
                       "\"count\":2,\"members\":[\"b c\",\"a\"]}],\"ungrouped\":[]}\n"));
  EXPECT_THAT(outcome.output, HasSubstr("2 elements (2 from G): \"b c\", a\n"));
}

TEST_F(Program, SavesAndOpensProjects)
{
  const auto project = typed("Größe 都市.tkpc");
  const auto saved = run({m_points}, "create G a\nsave \"" + project + "\"\n");
  EXPECT_EQ(saved.status, 0);
  EXPECT_EQ(saved.errors, "");

  const auto opened = run({project, "--command", "show G"});

  EXPECT_EQ(opened.status, 0);
  EXPECT_EQ(opened.errors, "");
  EXPECT_EQ(opened.output, "Opened \"Größe 都市.tkpc\": 2 elements with 2 points in 1 group.\n"
                           "\n"
                           "> show G\n"
                           "G (1)\n"
                           "└─ a\n");
}

TEST_F(Program, WarnsOfUnsavedChangesAfterAScriptButDoesNotFail)
{
  for (const std::string end : {"", "quit\n", "undo\nredo\n"}) {
    const auto outcome = run({m_points, "--quiet"}, "create G a\n" + end);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, notSaved);
  }
  EXPECT_EQ(run({m_points, "--quiet"}, "create G a\nundo\n").errors, "");
  EXPECT_EQ(run({m_points, "--quiet"}, "show\n").errors, "");
}

TEST_F(Program, StopsAScriptThatWouldLoseChanges)
{
  const auto outcome =
      run({m_points, "--quiet"}, "create G a\nopen \"" + typed("points.csv") + "\"\n");

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "<stdin>:2: points.csv has unsaved changes; save them "
                            "first, or add --discard to lose them\n" +
                                notSaved);
}

TEST_F(Program, StopsAScriptThatCannotSave)
{
  const auto file = typed("none/p.tkpc");
  const auto outcome = run({m_points, "--quiet"}, "create G a\nsave \"" + file + "\"\nshow\n");

  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, "Created G with 1 element.\n");
  EXPECT_THAT(outcome.errors, StartsWith("<stdin>:2: " + file + ": the file cannot be saved ("));
  EXPECT_THAT(outcome.errors, EndsWith(notSaved));
}

TEST_F(Program, DoesNotSaveWhileAnotherProgramSavesInTheSameFile)
{
  const auto file = m_folder.write("p.tkpc", "old");
  const auto lock = diskFiles()->lockForSaving(file);

  const auto outcome = run({m_points, "--quiet"}, "save --overwrite \"" + typed("p.tkpc") + "\"\n");

  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("p.tkpc: process "));
  EXPECT_THAT(outcome.errors, HasSubstr(") saves in this file at this moment; try again"));
  EXPECT_EQ(contentOf(file), "old");
}

TEST_F(Program, TellsAScriptOfUnsavedWorkAndLeavesItAlone)
{
  run({m_points}, "save \"" + typed("p.tkpc") + "\"\n");
  const auto project = m_folder.path() / "p.tkpc";
  {
    Editor editor(openDocument(*diskFiles(), project));
    Recovery recovery(editor);
    createGroup(editor, "G");
    recovery.changed();
    EXPECT_TRUE(recovery.keep());
  }

  for (int i = 0; i < 2; ++i) {
    const auto outcome = run({Utf8::fromPath(project), "--quiet", "--command", "show G"});
    EXPECT_EQ(outcome.status, 1) << "the group is not in the project";
    EXPECT_THAT(outcome.errors,
                StartsWith("p.tkpc: an earlier run ended without saving its changes "
                           "(2 elements with 2 points in 1 group, written on "));
  }
}

TEST_F(Program, RefusesAProjectThatIsDamaged)
{
  const auto bad = write("bad.tkpc", "nothing of that kind, but long enough");
  const auto outcome = run({bad}, "show\n");

  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_THAT(outcome.errors, StartsWith("point-collections: " + bad + ", byte 0: "));
}

TEST_F(Program, RefusesAnInvalidFileOfPoints)
{
  const auto bad = write("bad.csv", "collection,x,y,z\na,1,2,3\nb,1,two,3\n");
  const auto outcome = run({bad}, "show\n");

  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "point-collections: " + bad +
                                ":3: y is \"two\", which is not a number; expected e.g. 12.5\n");
}

TEST_F(Program, RefusesFilesThatCannotBeRead)
{
  const auto folder = Utf8::fromPath(m_folder.path());
  EXPECT_EQ(run({folder + "/none.csv"}).status, 2);
  EXPECT_EQ(run({folder}).status, 2);
  EXPECT_EQ(run({m_points, "--script", folder + "/none.pcs"}).status, 2);

  const auto outcome = run({m_points, "--script", folder});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors,
            "point-collections: " + folder + ": this is a directory; expected a file\n");
}

TEST_F(Program, RefusesArgumentsItDoesNotHave)
{
  EXPECT_EQ(run({}).status, 2);
  EXPECT_EQ(run({m_points, "--nonsense"}).status, 2);
  EXPECT_EQ(run({m_points, "more"}).status, 2);
  EXPECT_EQ(run({m_points, "--script"}).status, 2);
  EXPECT_EQ(run({m_points, "--script", ""}).status, 2);
  EXPECT_THAT(run({m_points, "--nonsense"}).errors, HasSubstr("--nonsense"));
  EXPECT_EQ(run({m_points, "\x1B[31mred"}).errors.find('\x1B'), std::string::npos);
}

TEST_F(Program, ExplainsItself)
{
  const auto help = run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, HasSubstr("Usage: point-collections [OPTIONS] FILE"));
  EXPECT_THAT(help.output, HasSubstr("Exit status"));

  const auto version = run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_THAT(version.output, StartsWith("point-collections "));
}

TEST_F(Program, UsesNoColorsInAFile)
{
  const auto outcome = run({m_points}, "create G a\nshow\nhistory\nnonsense\n");

  EXPECT_EQ((outcome.output + outcome.errors).find('\x1B'), std::string::npos);
}

}
}
