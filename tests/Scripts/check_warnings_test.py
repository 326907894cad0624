# SPDX-License-Identifier: MIT
"""Which warnings of Doxygen docs/check-warnings.cmake lets pass. Run with the environment variable
CMAKE."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "docs/check-warnings.cmake"


def check(*warnings):
    """The exit status and what is shown."""
    with tempfile.TemporaryDirectory() as folder:
        log = Path(folder) / "log.txt"
        log.write_text("".join(warning + "\n" for warning in warnings))
        command = [os.environ.get("CMAKE", "cmake"), "-DLOG=%s" % log, "-P", SCRIPT]
        result = subprocess.run(command, capture_output=True, text=True)
        return result.returncode, result.stdout + result.stderr


def undocumented(declaration, class_name="Tarvik::Thing"):
    return "/a folder/Thing.h:7: warning: Member %s (function) of class %s is not documented." % (declaration, class_name)


class Warnings(unittest.TestCase):
    def test_there_may_be_none(self):
        self.assertEqual(check(), (0, ""))

    def test_special_members_may_be_without_a_comment(self):
        for declaration in (
            "Thing()", "Thing() noexcept", "~Thing()", "~Thing() override", "Thing(const Thing &other)",
            "Thing(const Thing &other)=default", "Thing(Thing &&other) noexcept", "Thing(const Thing &)=delete",
            "operator=(const Thing &other)", "operator=(Thing &&other) noexcept", "Thing(Thing< T > &&other)",
        ):
            self.assertEqual(check(undocumented(declaration)), (0, ""), declaration)
            self.assertEqual(check(undocumented(declaration, "Tarvik::Outer::Thing")), (0, ""), declaration)

    def test_all_other_members_need_one(self):
        for declaration in (
            "Thing(int count)", "Thing(const Thing &other, int count)", "Thing(const Other &other)", "Thing(Things &&all)",
            "operator=(const Other &other)", "operator==(const Thing &other)", "swap(Thing &other)", "clear()",
        ):
            warning = undocumented(declaration)
            status, shown = check(warning)
            self.assertNotEqual(status, 0, declaration)
            self.assertIn(warning, shown)

    def test_all_other_warnings_are_faults(self):
        for warning in (
            "/a/Thing.h:7: warning: Compound Tarvik::Thing is not documented.",
            "/a/Thing.h:7: warning: The following parameter of Tarvik::Thing::Thing(int a, int b) is not documented:",
            "/a/Thing.h:7: warning: Member Thing (enumeration) of class Tarvik::Thing is not documented.",
        ):
            status, shown = check(undocumented("Thing()"), warning)
            self.assertNotEqual(status, 0, warning)
            self.assertIn(warning, shown)
            self.assertNotIn("Member Thing()", shown)


if __name__ == "__main__":
    unittest.main()
