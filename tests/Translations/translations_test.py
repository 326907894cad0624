#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests scripts/lib/translations.py on small source trees.

    translations_test.py LUPDATE [OPTION...]     LUPDATE is Qt's program of that name
"""

import contextlib
import io
import os
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

import polib

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).parents[2] / "scripts/lib"))

import translations  # noqa: E402

LUPDATE = ""


class Tree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name in ("GroupHosting", "HighLevelServices", "PointCollections/Desktop", "QtModels", "translations"):
            (self.root / name).mkdir(parents=True)
        self.write("QtModels/View.cpp", 'auto a = QCoreApplication::translate("View", "Group");')

    def write(self, name, content):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content, encoding="utf-8")

    def read(self, name):
        return (self.root / "translations" / name).read_text(encoding="utf-8")

    def run_script(self, *arguments):
        """What it prints, with the reason if it fails, and whether it succeeds."""
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed), contextlib.redirect_stderr(printed):
            try:
                translations.main([*arguments, "--root", str(self.root), "--lupdate", LUPDATE])
            except SystemExit as end:
                if isinstance(end.code, str):
                    print(end.code)
                return printed.getvalue(), end.code == 0
        return printed.getvalue(), True

    def done(self, *arguments):
        self.assertEqual(self.run_script(*arguments), ("", True))

    def refused(self, *arguments):
        printed, succeeds = self.run_script(*arguments)
        self.assertFalse(succeeds)
        return printed

    def entries(self, name="TKMService.pot"):
        self.done("renew")
        return {(entry.msgctxt, entry.msgid): entry
                for entry in polib.pofile(str(self.root / "translations" / name), encoding="utf-8")}

    def translate(self, language, translations):
        path = self.root / "translations" / f"{language}.po"
        file = polib.pofile(str(path), encoding="utf-8")
        for entry in file:
            entry.msgstr = translations.get(entry.msgid, entry.msgstr)
        file.save()


class Finding(Tree):
    def test_texts_given_to_the_translator_are_found(self):
        self.write("HighLevelServices/Cmd.h", 'auto a = Translator::translate(\n  "Cmd", "Add", nullptr, -1);')
        self.write("GroupHosting/Other.cpp", 'auto a = Translator::translate("Other", "Move", nullptr, -1);')

        entries = self.entries()

        self.assertEqual(entries["Cmd", "Add"].occurrences, [("HighLevelServices/Cmd.h", "")])
        self.assertIn(("Other", "Move"), entries)

    def test_marked_texts_of_the_programs_are_found(self):
        self.write("PointCollections/A.cpp", '''
            auto a = translated("Opened {}"
                                " of {}.", f(1), 2);
            const char* table[] = {translatable("write a file")};
            auto b = translatedCount(size(), "{} group", "{} groups", translated("inner"));''')

        entries = self.entries()

        self.assertEqual(entries["PointCollections", "{} group"].msgid_plural, "{} groups")
        for text in ("Opened {} of {}.", "write a file", "inner"):
            self.assertIn(("PointCollections", text), entries)

    def test_texts_with_qt_are_found(self):
        self.write("PointCollections/Desktop/Window.cpp", '''
            auto a = QCoreApplication::translate("Window", "Open", "menu");
            auto b = QCoreApplication::translate("Window", "%n groups", nullptr, number);
            //: in a title
            auto c = QCoreApplication::translate("Window", "New");''')

        entries = self.entries()

        self.assertIn(("Window|menu", "Open"), entries)
        self.assertEqual(entries["Window", "%n groups"].msgid_plural, "%n groups")
        self.assertEqual(entries["Window", "New"].comment, "in a title")
        self.assertEqual(entries["Window", "New"].occurrences, [("PointCollections/Desktop/Window.cpp", "")])

    def test_comments_above_the_statement_are_for_translators(self):
        self.write("PointCollections/A.cpp", '''
            // For translators: follows a name, as in
            // "Europe, moved".
            auto a = f(
                translated(", moved"));
            auto b = translated("none");
            // not for them
            auto c = translated("neither");
            const Row rows[] = {
                {translatable("first")},
                // For translators: second
                {translatable("second")},
                {translatable("third"),
                 translatable("fourth")}};
            auto verb = {.name = translatable("fifth"),
                         // For translators: sixth
                         .summary =
                             translatable("sixth"),
                         .details = translatable("seventh")};
            auto d = f(translated("eighth"),
                       // For translators: ninth
                       translated("ninth"),
                       translated("tenth"));
            // For translators: both
            return isOne ? translated(
                               "eleventh")
                         : translated("twelfth");''')

        comments = {text: entry.comment for (_, text), entry in self.entries().items()}

        self.assertEqual(comments, {", moved": 'follows a name, as in "Europe, moved".', "none": "", "neither": "",
                                    "first": "", "second": "second", "third": "", "fourth": "", "fifth": "",
                                    "sixth": "sixth", "seventh": "", "eighth": "", "ninth": "ninth", "tenth": "",
                                    "eleventh": "both", "twelfth": "both", "Group": ""})

    def test_a_text_in_several_files_is_one_entry(self):
        self.write("PointCollections/B.cpp", '// For translators: b\nauto a = translated("Both");')
        self.write("PointCollections/A.cpp", '// For translators: a\nauto a = translated("Both") + translated("Both");')

        entry = self.entries()["PointCollections", "Both"]

        self.assertEqual(entry.occurrences, [("PointCollections/A.cpp", ""), ("PointCollections/B.cpp", "")])
        self.assertEqual(entry.comment, "a\nb")

    def test_entries_have_the_order_of_the_sources(self):
        self.write("PointCollections/B.cpp", 'auto a = translated("z");\nauto b = translated("a");')
        self.write("PointCollections/A.cpp", 'auto a = translated("m");')

        self.assertEqual([text for _, text in self.entries()], ["m", "z", "a", "Group"])

    def test_a_text_that_lupdate_overlooks_is_an_error(self):
        self.write("QtModels/View.cpp", 'auto a = QCoreApplication::translate("View", "%n groups", nullptr,\n'
                                        "                                     static_cast<int>(names.size()));")

        self.assertIn('QtModels/View.cpp:1: lupdate does not find "%n groups"', self.refused("renew"))

    def test_different_plural_forms_of_one_text_are_an_error(self):
        self.write("PointCollections/A.cpp", 'auto a = Translator::translate("View", "%n groups", nullptr, -1);')
        self.write("QtModels/View.cpp", 'auto a = QCoreApplication::translate("View", "%n groups", nullptr, number);')

        self.assertIn('"%n groups" of View has other plural forms in PointCollections/A.cpp than in QtModels/View.cpp',
                      self.refused("renew"))

    def test_a_disambiguation_without_qt_is_an_error(self):
        self.write("GroupHosting/A.cpp", 'auto a = Translator::translate("A", "Move", "verb", -1);')

        self.assertIn('GroupHosting/A.cpp:1: the disambiguation "verb" would be lost', self.refused("renew"))

    def test_a_missing_tool_is_named_with_its_package(self):
        with mock.patch.dict(os.environ, PATH=str(self.root)):
            self.assertIn("error: xgettext is missing; on Debian, it is in the package gettext", self.refused("renew"))
        with mock.patch("shutil.which", return_value=None):
            self.assertIn("error: Qt's lupdate is missing; on Debian, it is in the package qt6-l10n-tools",
                          self.refused("renew"))


class Merging(Tree):
    def setUp(self):
        super().setUp()
        self.write("PointCollections/A.cpp", 'auto a = translated("old");\nauto b = translated("kept");')
        self.done("add", "de")
        self.translate("de", {"old": "alt", "kept": "bleibt"})

    def test_translations_of_the_same_texts_are_kept(self):
        self.write("PointCollections/A.cpp", 'auto b = translated("kept");\nauto a = translated("new");')

        entries = self.entries("de.po")

        self.assertEqual([text for _, text in entries], ["kept", "new", "Group"])
        self.assertEqual(entries["PointCollections", "kept"].msgstr, "bleibt")
        self.assertEqual(entries["PointCollections", "new"].msgstr, "")
        self.assertNotIn("alt", self.read("de.po"))

    def test_plural_forms_are_kept(self):
        self.write("PointCollections/A.cpp", 'auto a = translatedCount(n, "{} group", "{} groups");')
        self.done("renew")
        path = self.root / "translations/de.po"
        path.write_text(path.read_text().replace('msgstr[1] ""', 'msgstr[1] "{} Gruppen"'))

        self.assertEqual(self.entries("de.po")["PointCollections", "{} group"].msgstr_plural, {0: "", 1: "{} Gruppen"})

    def test_notes_of_translators_are_kept(self):
        path = self.root / "translations/de.po"
        path.write_text(path.read_text().replace("#: PointCollections/A.cpp", "# a note\n#: PointCollections/A.cpp", 1))

        self.assertEqual(self.entries("de.po")["PointCollections", "old"].tcomment, "a note")

    def test_renewing_what_is_up_to_date_changes_no_byte(self):
        self.done("renew")
        before = self.read("TKMService.pot"), self.read("de.po")
        self.done("renew")

        self.assertEqual((self.read("TKMService.pot"), self.read("de.po")), before)

    def test_moving_a_text_within_its_line_or_below_changes_no_byte(self):
        self.done("renew")
        before = self.read("TKMService.pot")
        self.write("PointCollections/A.cpp", '\n\n  auto a = translated("old"); auto b = translated("kept");')

        self.done("check")
        self.assertEqual(self.read("TKMService.pot"), before)

    def test_no_file_names_this_machine(self):
        self.done("renew")

        for name in ("TKMService.pot", "de.po"):
            self.assertNotIn(str(self.root), self.read(name))


class Checking(Tree):
    def setUp(self):
        super().setUp()
        self.write("PointCollections/A.cpp", 'auto a = translated("old");')
        self.done("add", "de")

    def test_what_is_up_to_date_is_fine(self):
        self.done("check")

    def test_what_is_new_and_what_is_gone_is_named_for_each_file(self):
        self.write("PointCollections/A.cpp", 'auto a = translated("new\\n");')
        before = self.read("TKMService.pot"), self.read("de.po")

        self.assertEqual(self.refused("check").splitlines(), [
            'translations/TKMService.pot: "new\\n" of PointCollections is new',
            'translations/TKMService.pot: "old" of PointCollections is gone from the sources',
            'translations/de.po: "new\\n" of PointCollections is new',
            'translations/de.po: "old" of PointCollections is gone from the sources',
            "error: the translations are not up to date; run scripts/translations"])
        self.assertEqual((self.read("TKMService.pot"), self.read("de.po")), before)

    def test_another_comment_is_told(self):
        self.write("PointCollections/A.cpp", '// For translators: age\nauto a = translated("old");')

        self.assertIn("translations/de.po: the order, the comments", self.refused("check"))

    def test_a_missing_template_is_told(self):
        (self.root / "translations/TKMService.pot").unlink()

        self.assertIn('translations/TKMService.pot: "old" of PointCollections is new', self.refused("check"))


class Adding(Tree):
    def test_a_language_has_its_plural_forms(self):
        self.write("PointCollections/A.cpp", 'auto a = translatedCount(n, "{} group", "{} groups");')
        for language, forms in (("ar", 6), ("de", 2), ("es", 2), ("fr", 2), ("ja", 1), ("pl", 3), ("zh_CN", 1)):
            with self.subTest(language=language):
                self.done("add", language)
                file = polib.pofile(str(self.root / f"translations/{language}.po"), encoding="utf-8")

                self.assertEqual(file.metadata["Language"], language)
                self.assertTrue(file.metadata["Plural-Forms"].startswith(f"nplurals={forms};"))
                self.assertEqual(file[0].msgstr_plural, dict.fromkeys(range(forms), ""))

    def test_a_language_that_is_there_is_refused(self):
        self.done("add", "de")

        self.assertIn("translations/de.po is there already", self.refused("add", "de"))

    def test_an_unknown_language_is_refused(self):
        self.assertIn('the plural forms of "xx" are not known', self.refused("add", "xx"))

    def test_a_language_is_given_with_add_only(self):
        self.assertIn("a language is given with add", self.refused("add"))
        self.assertIn("a language is given with add", self.refused("renew", "de"))


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    LUPDATE = sys.argv.pop(1)
    unittest.main()
