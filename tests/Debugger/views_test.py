# SPDX-License-Identifier: MIT
"""What gdb shows of the values in debuggee.cpp. Run by gdb, with the environment variable NATVIS."""

import os
import re
import unittest
import xml.etree.ElementTree

import gdb

PUMP = {"Identifier": "0123456789abcdef8000000000000007", "GUIdentifier": "01234567-89ab-cdef-8000-000000000007"}
VALVE = {"Identifier": "00000000000000000000000000000008", "GUIdentifier": "00000000-0000-0000-0000-000000000008"}


def shown(expression):
    """What `print` shows of the expression."""
    value = gdb.parse_and_eval(expression)
    if value.type.code == gdb.TYPE_CODE_REF:
        value = value.referenced_value()
    return value.format_string()


def element_type():
    """The identifier type that the debuggee shows at the moment."""
    return gdb.parse_and_eval("pump").type.unqualified().strip_typedefs().name.replace("Tarvik::", "")


class Views:
    """Once for each identifier type."""

    def test_an_identifier_shows_its_text_form(self):
        self.assertEqual(shown("pump"), PUMP[self.kind])
        self.assertEqual(shown("valve"), VALVE[self.kind])

    def test_a_group_shows_its_name_its_id_and_its_members(self):
        self.assertRegex(
            shown("group"),
            r'^TKGroup = \{name = "Inlet", id = [0-9a-f]{32}, members = .*\{%s, %s\}\}$'
            % (PUMP[self.kind], VALVE[self.kind]),
        )

    def test_the_id_of_a_group_is_its_own(self):
        self.assertIn("id = %s," % shown("group.m_id"), shown("group"))

    def test_a_command_shows_its_class_and_its_description(self):
        self.assertTrue(
            shown("add").startswith('AddToTKGroupCmd<%s> "Add to Group" = {' % self.kind), shown("add")
        )

    def test_a_command_shows_what_it_holds(self):
        for held in (
            "targetGroupId = %s," % shown("group.m_id"),
            "elements = std::vector of length 1, capacity 1 = {%s}," % PUMP[self.kind],
            "groupsBefore = std::vector of length 1, capacity 1 = {%s}," % shown("group"),
            "changed = true, insertIndex = ",
        ):
            self.assertIn(held, shown("add"))
        self.assertIn('newName = "Outlet"', shown("base"))

    def test_a_command_that_holds_commands_shows_them(self):
        self.assertIn(
            'macroCommand = MacroCommand "Add to Group" = {'
            'commands[0] = AddToTKGroupCmd<%s> "Add to Group" = {' % self.kind,
            shown("move"),
        )

    def test_a_macro_shows_its_own_description(self):
        self.assertTrue(shown("macro").startswith('MacroCommand "Both" = {'), shown("macro"))

    def test_a_history_shows_its_entries(self):
        self.assertTrue(
            shown("history").startswith(
                'CommandHistory = {entries[0] = RenameTKGroupCmd<%s> "Rename Group" = {' % self.kind
            ),
            shown("history"),
        )
        self.assertIn("position = 1", shown("history"))

    def test_a_command_is_shown_whole_through_its_base(self):
        self.assertEqual(shown("base"), shown("*(Tarvik::RenameTKGroupCmd<Tarvik::%s>*)&base" % self.kind))


def width_in_hex(expression):
    """The expression as `,xb` shows it: in hexadecimal digits, as many as its type has."""
    value = gdb.parse_and_eval(expression)
    return "%0*x" % (2 * value.type.sizeof, int(value))


class Natvis:
    """The file for other debuggers names members that exist, and shows the same."""

    VARIABLES = {
        "Tarvik::Identifier": "group.m_id",
        "Tarvik::GUIdentifier": "pump",
        "Tarvik::TKGroup<*>": "group",
        "Tarvik::CommandBase": "base",
    }

    def types(self):
        namespace = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
        for each in xml.etree.ElementTree.parse(os.environ["NATVIS"]).iter(namespace + "Type"):
            if each.get("Name") != "Tarvik::GUIdentifier" or self.kind == "GUIdentifier":
                items = [item.text for item in each.iter(namespace + "Item")]
                yield each.get("Name"), each.find(namespace + "DisplayString").text, items

    def expression(self, type_name, text):
        return re.sub(r"\bm_", self.VARIABLES[type_name] + ".m_", text)

    def displayed(self, type_name, text):
        def replacement(match):
            expression, _, form = match.group(1).partition(",")
            expression = self.expression(type_name, expression)
            return width_in_hex(expression) if form == "xb" else shown(expression)

        return re.sub(r"\{(.*?)\}", replacement, text)

    def test_every_type_is_in_the_natvis_file(self):
        expected = set(self.VARIABLES)
        if self.kind == "Identifier":
            expected.remove("Tarvik::GUIdentifier")
        self.assertEqual({name for name, _, _ in self.types()}, expected)

    def test_the_natvis_file_shows_the_text_forms(self):
        for name, text, _ in self.types():
            if name.endswith("dentifier"):
                self.assertEqual(self.displayed(name, text), shown(self.VARIABLES[name]))

    def test_the_natvis_file_shows_names_and_descriptions(self):
        for name, text, _ in self.types():
            if name == "Tarvik::TKGroup<*>":
                self.assertTrue(self.displayed(name, text).startswith('"Inlet" '))
            if name == "Tarvik::CommandBase":
                self.assertEqual(self.displayed(name, text), '"Rename Group"')

    def test_the_natvis_file_lists_the_same_items(self):
        for name, _, items in self.types():
            for item in items:
                self.assertIn(shown(self.expression(name, item)), shown(self.VARIABLES[name]))


def tests_of(kind):
    suite = unittest.TestSuite()
    for tests in (Views, Natvis):
        case = type(kind + tests.__name__, (tests, unittest.TestCase), {"kind": kind})
        suite.addTests(unittest.defaultTestLoader.loadTestsFromTestCase(case))
    return suite


def main():
    gdb.execute("set print elements unlimited")
    gdb.execute("break Tarvik::(anonymous namespace)::stop")
    for index, kind in enumerate(("Identifier", "GUIdentifier")):
        gdb.execute("continue" if index else "run")
        gdb.execute("up")
        assert element_type() == kind, element_type()
        if not unittest.TextTestRunner(verbosity=2).run(tests_of(kind)).wasSuccessful():
            gdb.execute("kill")
            gdb.execute("quit 1")


try:
    main()
except Exception as error:  # or gdb would end with success
    print(error)
    gdb.execute("quit 1")
