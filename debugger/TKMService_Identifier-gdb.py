# SPDX-License-Identifier: MIT
"""How gdb shows identifiers. gdb loads this file along with the library that it lies beside."""

import gdb.printing


class IdentifierPrinter:
    """The text form: 32 digits."""

    def __init__(self, value):
        self._bits = value["m_bits"]

    def to_string(self):
        return self.digits()

    def digits(self):
        return "%016x%016x" % (int(self._bits["high"]), int(self._bits["low"]))


class GUIdentifierPrinter(IdentifierPrinter):
    """The text form: that of a UUID."""

    def to_string(self):
        digits = self.digits()
        return "-".join((digits[:8], digits[8:12], digits[12:16], digits[16:20], digits[20:]))


printers = gdb.printing.RegexpCollectionPrettyPrinter("TKMService_Identifier")
printers.add_printer("Identifier", "^Tarvik::Identifier$", IdentifierPrinter)
printers.add_printer("GUIdentifier", "^Tarvik::GUIdentifier$", GUIdentifierPrinter)
gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)
