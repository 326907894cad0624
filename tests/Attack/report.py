# SPDX-License-Identifier: MIT
"""What an attack has done and found."""


class Defect(Exception):
    """A promise that was broken. The text says how to see it again."""


class Tally:
    """Counts faults and collects defects, so that one defect does not hide the others."""

    MOST_DEFECTS = 20

    def __init__(self):
        self.faults = 0
        self.notes = []
        self.defects = []
        self.is_skipped = False

    def skip(self, reason):
        """Says why this attack is not possible here."""
        self.is_skipped = True
        self.notes.append("SKIPPED: " + reason)

    def attempt(self, what, check):
        """Counts a fault and checks what it has left. `what` names the fault."""
        self.faults += 1
        try:
            check()
        except Defect as defect:
            self.defects.append("%s: %s" % (what, defect))
            if len(self.defects) == self.MOST_DEFECTS:
                raise


def require(holds, what, *facts):
    if not holds:
        raise Defect("; ".join([what, *facts]))
