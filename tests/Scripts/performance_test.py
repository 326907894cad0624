# SPDX-License-Identifier: MIT
"""How scripts/lib/performance.py makes tables of what was measured."""

import importlib.util
import json
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
specification = importlib.util.spec_from_file_location("performance", ROOT / "scripts/lib/performance.py")
performance = importlib.util.module_from_spec(specification)
specification.loader.exec_module(performance)


def results(benchmarks):
    """The results of benchmarks by their names: times in nanoseconds, or (times, unit)."""
    rounds = []
    for name, times in benchmarks.items():
        times, unit = times if isinstance(times, tuple) else (times, "ns")
        for time in times:
            rounds.append({"run_name": name, "run_type": "iteration", "cpu_time": time, "time_unit": unit})
        rounds.append({"run_name": name, "run_type": "aggregate", "cpu_time": 12345, "time_unit": unit})
    context = {"date": "2026-03-04T05:06:07+00:00", "num_cpus": 3}
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "results.json"
        path.write_text(json.dumps({"context": context, "benchmarks": rounds}))
        return performance.Results(path)


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
            performance.chart([("AddCmd", [10.0, 1e3, 1e9], "1.10×"), ("save", [1e6], "")]))

        texts = [text.text for text in image.iter("{http://www.w3.org/2000/svg}text")]
        dots = [float(dot.get("cx")) for dot in image.iter("{http://www.w3.org/2000/svg}circle")][3:]
        self.assertTrue({"AddCmd", "1.10×", "save"} <= set(texts), texts)
        self.assertEqual(dots[0], performance.LEFT)
        self.assertEqual(dots[2], performance.RIGHT)
        self.assertEqual(len(dots), 4)


class Page(unittest.TestCase):
    def test_it_has_a_place_for_every_table(self):
        text = (ROOT / "docs/performance.md").read_text(encoding="utf-8")

        for name in ("when", "commands", "sorting", "creation", "selections", "persistence", "archive", "platform"):
            self.assertEqual(text.count("<!-- measured: %s -->\n\n" % name), 1, name)


if __name__ == "__main__":
    unittest.main()
