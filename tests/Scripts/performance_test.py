# SPDX-License-Identifier: MIT
"""How scripts/lib/performance.py makes tables of what was measured."""

import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

from measured_results import ROOT, results

import charts
import performance


class Results(unittest.TestCase):
    def test_a_time_is_the_median_of_the_rounds(self):
        self.assertEqual(results({"a": [1, 9, 2]}).time("a"), 2)
        self.assertEqual(results({"a": [1, 2, 9, 4]}).time("a"), 3)

    def test_a_time_is_in_nanoseconds_whatever_the_unit_of_the_benchmark(self):
        measured = results({"a": ([2.0], "ms"), "b": ([3.0], "us")})

        self.assertEqual(measured.time("a"), 2e6)
        self.assertEqual(measured.time("b"), 3e3)

    def test_a_ratio_is_the_median_of_the_ratios_in_each_round(self):
        measured = results({"own": [10, 40, 90], "other": [10, 20, 10]})

        self.assertEqual(measured.ratio("own", "other"), 2)

    def test_the_name_of_a_benchmark_does_not_say_how_often_it_ran(self):
        measured = results({"a/10/iterations:1/repeats:1": [7]})

        self.assertEqual(measured.time("a/10"), 7)

    def test_benchmarks_are_added_round_by_round(self):
        measured = results({"a": [1, 10, 2], "b": [100, 1, 2]})

        self.assertEqual(measured.times("a + b"), [101, 11, 4])
        self.assertEqual(measured.time("a + b"), 11)


class Tables(unittest.TestCase):
    def test_columns_of_numbers_are_to_the_right(self):
        self.assertEqual(
            performance.markdown([["what", "ns", "of"], ["a", "1", ""], ["b", "2", "3.00×"]]),
            "| what | ns | of |\n|---|---:|---:|\n| a | 1 |  |\n| b | 2 | 3.00× |")

    def test_every_command_beside_the_least_has_its_rows(self):
        times = {}
        for command in ("NewCmd", "AddCmd"):
            for operation in ("execute", "undo", "redo"):
                for kind in performance.KINDS:
                    for size in performance.SIZES:
                        name = "%s/%s/%s/%s" % (command, operation, kind, size)
                        times.update({name: [3000], "bare " + name: [2000]})

        table = list(performance.commands_table(results(times)))

        self.assertEqual(len(table), 1 + 2 * 3 * 3)
        self.assertEqual(table[1], ["`AddCmd`", "execute", "10 × 10", "3.00", "1.50×", "3.00", "1.50×"])
        self.assertEqual(table[-1][:3], ["`NewCmd`", "redo", "1000 × 1000"])

    def test_they_say_when_they_were_measured(self):
        self.assertEqual(
            performance.when(results({"a": [1, 2]})),
            "Measured on 2026-03-04, on a machine with 3 cores: medians of 2 rounds.")


class Chart(unittest.TestCase):
    def test_it_is_an_image_with_a_row_for_each_title_and_a_dot_for_each_time(self):
        image = xml.etree.ElementTree.fromstring(
            charts.dots_chart([("AddCmd", [10.0, 1e3, 1e9], "1.10×"), ("save", [1e6], "")]))

        texts = [text.text for text in image.iter("{http://www.w3.org/2000/svg}text")]
        dots = [float(dot.get("cx")) for dot in image.iter("{http://www.w3.org/2000/svg}circle")][3:]
        self.assertTrue({"AddCmd", "1.10×", "save"} <= set(texts), texts)
        self.assertEqual(dots[0], charts.LEFT)
        self.assertEqual(dots[2], charts.RIGHT)
        self.assertEqual(len(dots), 4)

    def test_it_says_in_words_what_it_shows(self):
        image = xml.etree.ElementTree.fromstring(charts.dots_chart([("AddCmd", [10.0, 1e3, 1.5e9], "")]))

        self.assertEqual(image.find("{http://www.w3.org/2000/svg}desc").text,
                         "AddCmd: 10.0 ns for 100 members, 1.00 µs for 10,000 members, 1.50 s for 1,000,000 members.")


class Pages(unittest.TestCase):
    def store(self, parts, *texts):
        """What pages with these texts contain after parts have been stored in them."""
        with tempfile.TemporaryDirectory() as folder:
            pages = [Path(folder) / ("%d.md" % number) for number in range(len(texts))]
            for page, text in zip(pages, texts):
                page.write_text(text, encoding="utf-8")
            performance.store(parts, pages)
            return [page.read_text(encoding="utf-8") for page in pages]

    def test_each_part_goes_to_its_place_in_whichever_page(self):
        place = "before\n<!-- measured: %s -->\n\nold\n\n<!-- end -->\nafter"

        self.assertEqual(self.store({"a": "1 \\1", "b": "2"}, place % "a", place % "b"),
                         [(place % "a").replace("old", "1 \\1"), (place % "b").replace("old", "2")])

    def test_a_part_without_a_place_or_with_two_is_an_error(self):
        place = "<!-- measured: a -->\n\n\n\n<!-- end -->"

        for texts in ([""], [place, place]):
            with self.assertRaisesRegex(SystemExit, "error: %d places for a in " % (2 * len(texts) - 2)):
                self.store({"a": "1"}, *texts)

    def test_they_have_a_place_for_every_table_and_show_every_chart(self):
        text = "".join((ROOT / "docs" / page).read_text(encoding="utf-8") for page in performance.PAGES)

        for name in ("when", "expected", "growth", "comparing", "qt", "undo", "memory", "steps", "history", "commands",
                     "sorting", "creation", "selections", "persistence", "archive", "models", "platform", "lines",
                     "answers", "creating"):
            self.assertEqual(text.count("<!-- measured: %s -->\n\n" % name), 1, name)
        for name in ("performance", "growth", "growth-comparing", "growth-compared", "history-memory"):
            self.assertEqual(text.count("](images/%s.svg)" % name), 1, name)
            self.assertTrue((ROOT / "docs/images" / (name + ".svg")).is_file(), name)


if __name__ == "__main__":
    unittest.main()
