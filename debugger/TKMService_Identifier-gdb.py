# SPDX-License-Identifier: MIT
"""How gdb shows identifiers. gdb loads this file along with the library beside it."""

import gdb
import gdb.printing


class IdentifierPrinter:
    """The text form: 32 digits."""

    def __init__(self, digits):
        self._digits = digits

    def to_string(self):
        return self._digits


class GUIdentifierPrinter(IdentifierPrinter):
    """The text form: that of a UUID."""

    def to_string(self):
        digits = self._digits
        return "-".join((digits[:8], digits[8:12], digits[12:16], digits[16:20], digits[20:]))


def printer_with_digits(printer):
    """Gives None, and so gdb's own view, for a platform whose identifiers have other fields."""

    def make(value):
        try:
            bits = value["m_bits"]
            return printer("%016x%016x" % (int(bits["high"]), int(bits["low"])))
        except gdb.error:
            return None

    return make


printers = gdb.printing.RegexpCollectionPrettyPrinter("TKMService_Identifier")
printers.add_printer("Identifier", "^Tarvik::Identifier$", printer_with_digits(IdentifierPrinter))
printers.add_printer("GUIdentifier", "^Tarvik::GUIdentifier$", printer_with_digits(GUIdentifierPrinter))
gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)
