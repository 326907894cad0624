# SPDX-License-Identifier: MIT
"""How gdb shows groups. gdb loads this file along with the library beside it."""

import gdb
import gdb.printing


class GroupPrinter:
    """The name, the id and the members."""

    def __init__(self, name, value):
        self._name = name
        self._value = value

    def to_string(self):
        return "TKGroup"

    def children(self):
        yield "name", self._name
        yield "id", self._value["m_id"]
        yield "members", self._value["m_members"]


def group_printer(value):
    """None, and so gdb's own view, for a platform whose NameInterface has other fields."""
    try:
        return GroupPrinter(value["m_name"], value)
    except gdb.error:
        return None


printers = gdb.printing.RegexpCollectionPrettyPrinter("TKMService_HighLevelServices")
printers.add_printer("TKGroup", "^Tarvik::TKGroup<.*>$", group_printer)
gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)
