# SPDX-License-Identifier: MIT
"""How scripts/lib/console.py makes tables of the lines of point-collections."""

import unittest

from measured_results import results

import console


class Tables(unittest.TestCase):
    def test_a_line_has_a_time_in_each_document_where_it_was_measured(self):
        measured = results({"line/show": ([2.0], "ms"), "9000 groups/show": ([3.0], "ms"),
                            "9000 groups/delete, all": ([4.0], "ms"), "mistake/a quote": [5]})

        self.assertEqual(list(console.lines_table(measured))[1:],
                         [["delete, all", "", "4.00 ms"], ["show", "2.00 ms", "3.00 ms"]])

    def test_completions_and_mistakes_have_a_row_each(self):
        measured = results({"mistake/a quote": [5], "completion/a group": [6], "line/show": [7]})

        self.assertEqual(list(console.answers_table(measured))[1:],
                         [["the tab key", "a group", "6.00 ns"], ["a mistake", "a quote", "5.00 ns"]])

    def test_the_number_of_created_groups_has_a_column(self):
        measured = results({"creating/empty/1000/iterations:1": ([20.0], "ms"), "creating/empty/100": ([1.0], "ms"),
                            "creating/full/100": ([2.0], "ms")})

        self.assertEqual(list(console.creating_table(measured)),
                         [["groups, created by a line each", "100", "1,000"],
                          ["empty", "1.00 ms", "20.0 ms"],
                          ["full", "2.00 ms", ""]])


if __name__ == "__main__":
    unittest.main()
