#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests check_translations.py on translations with mistakes."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).parent))

import polib  # noqa: E402

import check_translations as checker  # noqa: E402

CONSOLE = checker.CONSOLE
WINDOW = "MainWindow"
TYPED_WORDS = checker.TypedWords({"add", "help", "move", "move-group", "quit", "save", "select", "show"})
PLURALS = {
    "ar": "nplurals=6; plural=(n==0 ? 0 : n==1 ? 1 : n==2 ? 2 : n%100>=3 && n%100<=10 ? 3 : n%100>=11 ? 4 : 5);",
    "de": "nplurals=2; plural=(n != 1);",
    "fr": "nplurals=2; plural=(n > 1);",
    "ja": "nplurals=1; plural=0;",
}


def entry(context, text, translation="", plural="", flags=()):
    forms = dict(enumerate(translation)) if plural else {}
    return polib.POEntry(msgctxt=context, msgid=text, msgid_plural=plural, msgstr="" if plural else translation,
                         msgstr_plural=forms, flags=list(flags))


def file_of(entries, language="de", plural_forms=None):
    file = polib.POFile()
    file.metadata = {"Language": language, "MIME-Version": "1.0", "Content-Type": "text/plain; charset=UTF-8",
                     "Content-Transfer-Encoding": "8bit", "Plural-Forms": plural_forms or PLURALS[language]}
    file.extend(entries)
    return file


def texts_of_the_library():
    return [entry(context, text, "übersetzt") for context, text in sorted(checker.TEXTS_OF_THE_LIBRARY)]


class Files(unittest.TestCase):
    """Whole files, with the texts of the library."""

    def setUp(self):
        self.template = file_of([*texts_of_the_library(), entry(WINDOW, "Title")])
        self.translation = file_of([*texts_of_the_library(), entry(WINDOW, "Title", "Titel")])

    def expect(self, *expected):
        found = list(checker.complaints_about_file(self.template, self.translation, "de", TYPED_WORDS))
        self.assertEqual(found, list(expected))

    def test_a_complete_one_is_fine(self):
        self.expect()

    def test_a_missing_text_is_named(self):
        del self.translation[-1]
        self.expect('"Title" of MainWindow is missing')

    def test_a_text_that_is_not_in_the_template_is_named(self):
        self.translation.append(entry(WINDOW, "Old", "Alt"))
        self.expect('"Old" of MainWindow is not in the template')

    def test_the_same_text_with_plural_forms_is_another_one(self):
        self.template[-1] = entry(WINDOW, "Title", ("", ""), plural="Titles")
        self.expect('"Title" of MainWindow is missing', '"Title" of MainWindow is not in the template')

    def test_a_text_that_is_there_twice_is_named(self):
        self.translation.append(entry(WINDOW, "Title", "Überschrift"))
        self.expect('"Title" of MainWindow is there 2 times')

    def test_every_text_of_the_library_is_wanted_even_if_the_template_lacks_it(self):
        del self.template[0], self.translation[0]
        self.expect('"Add to Group" of AddToTKGroupCmd, a text of HighLevelServices, is missing')

    def test_an_obsolete_text_is_named(self):
        old = entry(WINDOW, "Old", "Alt")
        old.obsolete = True
        self.translation.append(old)
        self.expect('"Old" is obsolete; remove it')

    def test_a_fuzzy_text_is_named(self):
        self.translation[-1].flags = ["fuzzy"]
        self.expect('"Title" of MainWindow: it is marked as fuzzy')

    def test_an_untranslated_text_is_named(self):
        self.translation[-1].msgstr = ""
        self.expect('"Title" of MainWindow: it is not translated')

    def test_headers_have_to_fit(self):
        self.translation.metadata["Language"] = "fr"
        self.translation.metadata["Content-Type"] = "text/plain; charset=ISO-8859-1"
        self.expect("the header Language is 'fr'; expected 'de'",
                    "the header Content-Type is 'text/plain; charset=ISO-8859-1'; expected 'text/plain; charset=UTF-8'")

    def test_the_rule_of_plural_forms_has_to_be_one(self):
        for wrong in ("", "nplurals=2; plural=(n !! 1);", "nplurals=1; plural=(n != 1);"):
            with self.subTest(rule=wrong):
                self.translation.metadata["Plural-Forms"] = wrong
                self.expect("the header Plural-Forms is not a rule that can be used")


class Entries(unittest.TestCase):
    """One text and its translation."""

    def found(self, context, english, translation, language="de", plural=""):
        forms = checker.numbers_of_forms(PLURALS[language])
        return list(checker.complaints_about_entry(entry(context, english, translation, plural), language, forms,
                                                   TYPED_WORDS))

    def fine(self, *arguments, **others):
        self.assertEqual(self.found(*arguments, **others), [])

    def wrong(self, expected, *arguments, **others):
        self.assertEqual(self.found(*arguments, **others), [expected])

    def test_placeholders_in_braces_have_to_be_the_same(self):
        self.fine(CONSOLE, "{} of {}", "{} von {}")
        self.fine(CONSOLE, "{} of {}", "{1} mit {0}")
        self.fine(CONSOLE, "{} of {}", "{1} mit {0}, {0}")
        self.fine(CONSOLE, "{:>3} of {}", "{1} mit {0:>3}")
        self.fine(CONSOLE, "{}, {:%Y-%m-%d}", "{}, {:%d.%m.%Y}")
        self.fine(CONSOLE, "{1} or {0}", "{0} oder {1}")
        self.assertEqual(len(self.found(CONSOLE, "{:%Y-%m-%d}", "{:%Y-%m}")), 1)
        self.wrong("its placeholders are {0}; expected {0} {1}", CONSOLE, "{} of {}", "{}")
        self.wrong("its placeholders are {0} {1} {2}; expected {0} {1}", CONSOLE, "{} of {}", "{} {} {}")
        self.wrong("its placeholders are {1} {2}; expected {0} {1}", CONSOLE, "{} of {}", "{1} {2}")
        self.wrong("its placeholders are {0} {1:>3}; expected {0:>3} {1}", CONSOLE, "{:>3} of {}", "{} {:>3}")
        self.wrong("some of the placeholders {} have numbers and some have none", CONSOLE, "{} of {}", "{} {1}")

    def test_other_braces_have_to_be_the_same(self):
        self.fine(CONSOLE, 'write "\\u{200B}"', 'schreiben Sie „\\u{200B}“')
        self.fine(CONSOLE, "{{}} and {}", "{{}} und {}")
        self.wrong("its braces are not those of the text", CONSOLE, "{} of", "{} von }")
        self.assertIn("its braces are not those of the text", self.found(CONSOLE, "{} of", "{ } von {}"))

    def test_placeholders_of_qt_have_to_be_the_same(self):
        self.fine(WINDOW, "%1 of %2 at %L3", "%2 mit %1 bei %L3")
        self.wrong("its placeholders are %1; expected %1 %2", WINDOW, "%1 of %2", "%1")
        self.wrong("its placeholders are %1 %1 %2; expected %1 %2", WINDOW, "%1 of %2", "%1 %2 %1")
        self.wrong("its placeholders are %1; expected %L1", WINDOW, "%L1 m", "%1 m")
        self.wrong("its placeholders are none; expected %1", WINDOW, "%1 m", "m")

    def test_a_language_has_its_number_of_plural_forms(self):
        self.fine(CONSOLE, "{} group", ("{} Gruppe", "{} Gruppen"), plural="{} groups")
        self.fine(CONSOLE, "{} group", ("{}個のグループ",), "ja", plural="{} groups")
        self.wrong("it has 1 plural forms; expected 2", CONSOLE, "{} group", ("{} Gruppe",), plural="{} groups")
        self.wrong("it has 3 plural forms; expected 2", CONSOLE, "{} group", ("{}", "{}", "{}"), plural="{} groups")
        self.wrong("form 1 is not translated", CONSOLE, "{} group", ("{} Gruppe", ""), plural="{} groups")

    def test_only_a_form_for_one_number_can_leave_the_number_out(self):
        self.fine(CONSOLE, "{} group", ("eine Gruppe", "{} Gruppen"), plural="{} groups")
        self.fine(CONSOLE, "{} group of {}", ("eine Gruppe von {1}", "{} Gruppen von {}"), plural="{} groups of {}")
        self.fine(CONSOLE, "{} group", ("0", "1", "2", "{} 3", "{} 11", "{} 100"), "ar", plural="{} groups")
        self.fine(CONSOLE, "no column {1}", ("keine Spalte {1}", "{0} Spalten fehlen: {1}"), plural="no columns {1}")
        self.fine(WINDOW, "%n groups", ("eine Gruppe", "%n Gruppen"), plural="%n groups")
        self.wrong("form 1: its placeholders are none; expected {0}",
                   CONSOLE, "{} group", ("eine Gruppe", "Gruppen"), plural="{} groups")
        self.wrong("form 0: its placeholders are none; expected {0}",
                   CONSOLE, "{} group", ("un groupe", "{} groupes"), "fr", plural="{} groups")
        self.wrong("form 5: its placeholders are none; expected {0}",
                   CONSOLE, "{} group", ("0", "1", "2", "{} 3", "{} 11", "100"), "ar", plural="{} groups")
        self.wrong("form 0: its placeholders are {0}; expected {0} {1}",
                   CONSOLE, "{} group of {}", ("eine Gruppe von {}", "{} Gruppen von {}"), plural="{} groups of {}")
        self.wrong("form 1: its placeholders are none; expected %n",
                   WINDOW, "%n groups", ("eine Gruppe", "Gruppen"), plural="%n groups")

    def test_keys_are_marked_where_the_text_has_them(self):
        self.fine(WINDOW, "&Open…", "Ö&ffnen…")
        self.fine(WINDOW, "Save && quit", "Speichern && beenden")
        self.fine(WINDOW, "&Open…", "開く(&O)…", "ja")
        self.fine(CONSOLE, "a & b", "a und b")
        self.wrong("it has 0 keys that are marked with &; expected 1", WINDOW, "&Open…", "Öffnen…")
        self.wrong("it has 1 keys that are marked with &; expected 0", WINDOW, "Open", "Ö&ffnen")
        self.wrong("its key is not in the form (&F)", WINDOW, "&Open…", "&開く…", "ja")

    def test_blanks_and_line_breaks_stay(self):
        self.fine(CONSOLE, " and\nmore ", " und\nmehr ")
        self.wrong("it begins with ''; expected ' '", CONSOLE, " and", "und")
        self.wrong("it ends with ' '; expected ''", CONSOLE, "and", "und ")
        self.wrong("it has 0 line breaks; expected 1", CONSOLE, "and\nmore", "und mehr")
        self.assertIn("it ends with ''; expected '\\n'", self.found(CONSOLE, "and\n", "und"))

    def test_a_mark_of_full_width_needs_no_blank_beside_it(self):
        self.fine(CONSOLE, "more: ", "もっと：", "ja")
        self.fine(CONSOLE, " (more)", "（もっと）", "ja")
        self.wrong("it ends with ''; expected ' '", CONSOLE, "more ", "もっと", "ja")
        self.wrong("it begins with ''; expected ' '", CONSOLE, " more", "もっと", "ja")

    def test_an_ellipsis_or_a_colon_at_the_end_stays(self):
        self.fine(CONSOLE, "more:", "plus :", "fr")
        self.fine(CONSOLE, "more:", "もっと：", "ja")
        self.wrong('it does not end with "…", as the text does', CONSOLE, "more…", "mehr")
        self.wrong('it does not end with ":", as the text does', CONSOLE, "more:", "mehr")
        self.wrong('it does not end with ":", as the text does', CONSOLE, "more:", "mehr：")

    def typed(self, word, english, translation, context=CONSOLE):
        self.wrong(f'users type "{word}", but it is not in the translation', context, english, translation)

    def test_what_users_type_stays_in_english(self):
        self.fine(CONSOLE, "Type save or cancel; --at N and FILE.csv", "save oder cancel; --at N und FILE.csv")
        self.fine(CONSOLE, "save FILE keeps it", "save FILEはそれ", "ja")
        self.typed("--at", "the place after --at", "die Stelle nach --bei")
        self.typed("GROUP", "GROUP has no members", "GRUPPE hat keine Mitglieder")
        self.typed("NO_COLOR", "unless NO_COLOR is set", "wenn NO-COLOR fehlt")
        self.typed("N", "N counts from 1", "Es zählt ab 1")
        self.typed(".tkpc", "ends in .tkpc", "endet auf tkpc")
        self.typed("\\", "put a \\ before it", "setzen Sie etwas davor")
        self.typed("\\x1B", "such as \\x1B", "etwa \\x1C")
        self.typed("@", "write @{0} for it", "schreiben Sie {0}")
        self.typed("@./", "or @./{} for a file", "oder @{} für eine Datei")
        self.typed(":*", "write {}:* for all", "schreiben Sie {}* für alle")
        self.typed("256M", "such as 256M", "etwa 256")
        self.typed("12.5", "such as 12.5", "etwa 12,5")
        self.typed("collection,x,y,z", "the header collection,x,y,z", "die Kopfzeile Sammlung,x,y,z")
        self.typed("place", "the columns x and y, or group and place", "die Spalten x und y oder group und Stelle")
        self.typed("place", "place is {}", "die Stelle ist {}")
        self.typed("select", "select {0} tells where", "Auswahl {0} sagt, wo")
        self.typed("\\n", "a line break differs from \\n", "ein Zeilenende ist etwas anderes")
        self.typed("@2", "write @2 for it", "schreiben Sie es")
        self.typed("#", "lines with # are comments", "Zeilen mit Raute sind Kommentare")
        self.typed(':1-3 "New "*', '  :1-3 "New "*   places', '  :1-3 "Neu "*   Stellen')
        self.typed("discard", "Type discard now", "Jetzt verwerfen")
        self.typed("select", "help select explains it", "help Auswahl erklärt es")
        self.typed("save", "the command save", "der Befehl speichern")
        self.typed("save", "not saved; save keeps it", "nicht gesichert; speichern hilft")
        self.typed("show", "show --groups lists them", "zeige --groups zeigt sie")
        self.typed("move-group", "use move-group", "nehmen Sie move")
        self.typed("cancel", 'expected "cancel"', "erwartet: „abbrechen“")
        self.typed("collection", "with the columns collection, x, y and z", "mit den Spalten Sammlung, x, y und z")
        self.typed("z", "x, y and z are numbers", "x, y und die Höhe sind Zahlen")
        self.typed("quit", 'use "quit"', "beenden", context=WINDOW)

    def test_common_words_are_translated(self):
        self.fine(CONSOLE, "Cannot move or show the group", "Kann die Gruppe nicht verschieben oder zeigen")
        self.fine(CONSOLE, "add --end to put it there", "mit --end kommt es dorthin")
        self.fine(CONSOLE, "OPTIONS", "OPTIONEN")
        self.fine(CONSOLE, 'write \\" for it or \\.', '\\" dafür oder \\。')
        self.fine(CONSOLE, "they are not saved; later save them", "nicht gesichert; sichern Sie später")
        self.fine(WINDOW, "Columns for collection, x, y and z", "Spalten für Sammlung, x, y und z")


class Trees(unittest.TestCase):
    """The folder with all files."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("PointCollections/Console/Verbs/SaveVerb.cpp", 'return {.name = "save"};')
        self.write("translations/TKMService.pot", str(file_of([*texts_of_the_library(), entry(WINDOW, "Title")])))

    def write(self, name, content):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content, encoding="utf-8")

    def test_every_file_is_looked_at(self):
        self.write("translations/de.po", str(file_of(texts_of_the_library())))
        self.write("translations/ja.po", str(file_of(texts_of_the_library(), "ja")))

        self.assertEqual(list(checker.complaints(self.root)),
                         ['translations/de.po: "Title" of MainWindow is missing',
                          'translations/ja.po: "Title" of MainWindow is missing'])

    def test_a_mistake_is_told_in_one_line(self):
        self.write("translations/de.po", str(file_of([*texts_of_the_library(), entry(WINDOW, "Title", "Titel"),
                                                      entry(WINDOW, "two\nlines", "zwei\nZeilen")])))

        self.assertEqual(list(checker.complaints(self.root)),
                         ['translations/de.po: "two\\nlines" of MainWindow is not in the template'])

    def test_there_has_to_be_a_translation(self):
        self.assertEqual(list(checker.complaints(self.root)),
                         [f"{self.root}/translations: there are no translations"])

    def test_there_have_to_be_verbs(self):
        (self.root / "PointCollections/Console/Verbs/SaveVerb.cpp").unlink()
        with self.assertRaises(SystemExit):
            list(checker.complaints(self.root))


if __name__ == "__main__":
    unittest.main()
