# SPDX-License-Identifier: MIT
"""How gdb shows groups. gdb loads this file along with the library that it lies beside."""

import gdb.printing


class GroupPrinter:
    """The name, the id and the members."""

    def __init__(self, value):
        self._value = value

    def to_string(self):
        return "TKGroup"

    def children(self):
        yield "name", self._value["m_name"]
        yield "id", self._value["m_id"]
        yield "members", self._value["m_members"]


printers = gdb.printing.RegexpCollectionPrettyPrinter("TKMService_HighLevelServices")
printers.add_printer("TKGroup", "^Tarvik::TKGroup<.*>$", GroupPrinter)
gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)
