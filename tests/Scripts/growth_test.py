# SPDX-License-Identifier: MIT
"""How scripts/lib makes tables and charts of growth."""

import re
import unittest
import xml.etree.ElementTree

from measured_results import results

import charts
import growth

SVG = "{http://www.w3.org/2000/svg}"


def grown(start, times, sizes=("10/100", "100/100", "100/1000", "1000/1000")):
    """A benchmark of each size, with one round."""
    return {"%s/%s" % (start, size): [time] for size, time in zip(sizes, times)}


def shown(lines, units=charts.TIME):
    """The image of a chart with one panel."""
    return xml.etree.ElementTree.fromstring(
        charts.growth_chart("A chart", "elements", "time", units, [charts.Panel("AddCmd", lines)]))


def places_of_lines(image):
    return [[tuple(map(float, point.split(","))) for point in line.get("points").split()]
            for line in image.iter(SVG + "polyline")]


class Tables(unittest.TestCase):
    def test_a_row_has_a_time_for_each_number_of_elements(self):
        measured = results(grown("AddToTKGroupCmd/one/execute/Identifier", [1.0, 20e3, 3e6, 4.5e9]) |
                           grown("three copies/one", [1, 1, 1, 1.5e9]))

        self.assertEqual(
            list(growth.growth_table(measured, "Identifier")),
            [["selected", "command", "1,000", "10,000", "100,000", "1,000,000", "of the copies"],
             ["one element", "`AddToTKGroupCmd`", "1.00 ns", "20.0 µs", "3.00 ms", "4.50 s", "3.00×"]])

    def test_a_size_that_was_not_measured_leaves_a_gap(self):
        measured = results(grown("AddToTKGroupCmd/1000/execute/Qt", [1, 2], ["100/100", "1000/1000"]))

        self.assertEqual(list(growth.qt_table(measured))[1:],
                         [["a thousand elements", "`AddToTKGroupCmd`", "", "1.00 ns", "", "2.00 ns", ""]])

    def test_a_group_of_ten_is_compared_with_copies_of_ten_groups(self):
        sizes = ("10/100", "10/1000", "10/10000", "10/100000")
        measured = results(grown("AddToTKGroupCmd/group/execute/Identifier", [1, 2, 3, 40], sizes) |
                           grown("three copies/group", [1, 1, 1, 10], sizes) |
                           grown("three copies/one", [1, 1, 1, 20]))

        self.assertEqual([row[-1] for row in growth.growth_table(measured, "Identifier")][1:], ["4.00×"])

    def test_commands_on_groups_say_which_groups(self):
        measured = results(grown("RemoveTKGroupsCmd/tenth/execute/Identifier", [1, 2, 3, 4]) |
                           grown("SortTKGroupsAlphabeticallyCmd/all/execute/Identifier", [1, 2, 3, 4]))

        self.assertEqual([row[:2] for row in growth.growth_table(measured, "Identifier")][1:],
                         [["a tenth of the groups", "`RemoveTKGroupsCmd`"],
                          ["everything", "`SortTKGroupsAlphabeticallyCmd`"]])

    def test_the_time_of_a_rename_is_not_compared_with_copies(self):
        measured = results(grown("RenameTKGroupCmd/one/execute/Identifier", [1, 2, 3, 4]) |
                           grown("three copies/one", [1, 1, 1, 1]))

        self.assertEqual([row[-1] for row in growth.growth_table(measured, "Identifier")][1:], [""])

    def test_memory_is_in_bytes(self):
        sizes = ("10/100", "100/100", "100/1000", "1000/1000")
        start = "AddToTKGroupCmd/one/memory/Identifier"
        measured = results(grown(start, [1, 1, 1, 1], sizes),
                           {"%s/%s" % (start, size): kept for size, kept in zip(sizes, (900, 9e3, 9.9e6, 1e10))})

        self.assertEqual(list(growth.memory_table(measured))[1:],
                         [["one element", "two whole lists", "900 B", "9.00 kB", "9.90 MB", "10.0 GB"]])

    def test_steps_are_what_fits_into_the_budget(self):
        start = "AddToTKGroupCmd/one/memory/Identifier/10/100"
        measured = results({start: [1]}, {start: growth.BUDGET / 1234.5})

        self.assertEqual(list(growth.steps_table(measured))[1:],
                         [["one element", "two whole lists", "1,234", "", "", ""]])

    def test_the_history_is_compared_with_the_same_operation_in_qt(self):
        measured = results({"push/CommandHistory": [10, 30, 20], "push/QUndoStack": [20, 20, 20],
                            "push at the limit/CommandHistory/1000": [7]})

        self.assertEqual(list(growth.history_table(measured))[1:],
                         [["push at the limit of 1,000 entries", "7.00 ns", "", ""],
                          ["push", "20.0 ns", "20.0 ns", "1.00×"]])


class Numbers(unittest.TestCase):
    def test_they_have_three_digits_and_the_unit_that_fits(self):
        for value, text in ((0.5, "0.50 ns"), (1, "1.00 ns"), (9.994, "9.99 ns"), (9.996, "10.0 ns"),
                            (99.4, "99.4 ns"), (99.96, "100 ns"), (999.4, "999 ns"), (999.9, "1.00 µs"), (12.3e9, "12.3 s"),
                            (5e12, "5000 s")):
            self.assertEqual(charts.with_unit(value, charts.TIME), text)

    def test_powers_of_ten_have_no_more_digits_than_they_need(self):
        self.assertEqual([charts.tick(value, charts.BYTES) for value in (1.0, 1e2, 1e3, 1e8)],
                         ["1 B", "100 B", "1 kB", "100 MB"])


class Labels(unittest.TestCase):
    def distances(self, places):
        result = charts.spread(places, 0, 1000)
        return [b - a for a, b in zip(sorted(result), sorted(result)[1:])]

    def test_they_stay_where_there_is_room(self):
        self.assertEqual(charts.spread([10, 200, 100], 0, 1000), [10, 200, 100])

    def test_they_move_apart_evenly_where_they_would_overlap(self):
        self.assertEqual(charts.spread([100, 100], 0, 1000), [93, 107])

    def test_they_never_overlap(self):
        for places in ([50, 51, 52, 70, 70], [0, 0, 0], [1000, 999, 990], [100, 113, 120, 128]):
            self.assertTrue(all(distance >= charts.LEAST_DISTANCE - 1e-9 for distance in self.distances(places)),
                            places)

    def test_they_stay_inside(self):
        self.assertEqual(charts.spread([0, 0], 0, 1000), [0, 14])
        self.assertEqual(charts.spread([1000, 1000], 0, 1000), [986, 1000])


class Chart(unittest.TestCase):
    def test_both_axes_are_logarithmic(self):
        image = shown([charts.Line("hash", "a", [(1000, 1e3), (10000, 1e4), (100000, 1e6)])])

        ((x1, y1), (x2, y2), (x3, y3)), = places_of_lines(image)
        self.assertAlmostEqual(x3 - x2, x2 - x1, delta=0.15)
        self.assertAlmostEqual(y3 - y2, 2 * (y2 - y1), delta=0.15)
        self.assertLess(y3, y2)

    def test_axes_have_titles_and_units(self):
        image = shown([charts.Line("hash", "a", [(1000, 1.5e3), (10000, 1e5)])])

        texts = [text.text for text in image.iter(SVG + "text")]
        for text in ("AddCmd", "elements", "time", "1,000", "10,000", "1 µs", "10 µs", "100 µs"):
            self.assertIn(text, texts)

    def test_each_line_has_its_label_and_a_mark_for_each_point(self):
        image = shown([charts.Line("hash", "a", [(1000, 1e3), (10000, 1e5)]),
                       charts.Line("copies", "other", [(1000, 1e3), (10000, 1e4)])])

        texts = [text.text for text in image.iter(SVG + "text")]
        self.assertTrue({"hash", "copies"} <= set(texts), texts)
        self.assertEqual(len(list(image.iter(SVG + "circle"))), 2)

    def test_a_line_without_points_is_left_out(self):
        image = shown([charts.Line("hash", "a", [(1000, 1e3), (10000, 1e5)]), charts.Line("Qt", "c", [])])

        self.assertEqual(len(places_of_lines(image)), 1)
        self.assertNotIn("Qt", [text.text for text in image.iter(SVG + "text")])

    def test_everything_is_inside_the_image(self):
        lines = [charts.Line(str(number), "abcd"[number % 4], [(1000, 10.0**number), (1000000, 1e9)])
                 for number in range(8)]
        image = shown(lines)

        _, _, width, height = map(float, image.get("viewBox").split())
        for x, y in (point for line in places_of_lines(image) for point in line):
            self.assertTrue(0 < x < width and 0 < y < height, (x, y))
        for text in image.iter(SVG + "text"):
            if text.get("y"):
                self.assertTrue(0 < float(text.get("y")) < height, text.text)

    def test_it_says_in_words_what_it_shows(self):
        image = shown([charts.Line("a < b", "a", [(1000, 1e3), (1000000, 1e9)])])

        self.assertEqual(image.find(SVG + "title").text, "A chart")
        self.assertEqual(image.find(SVG + "desc").text,
                         "AddCmd, a < b: 1.00 µs for 1,000 elements, 1.00 s for 1 million.")

    def test_each_style_is_defined_for_light_and_for_dark_pages(self):
        light, dark = charts.STYLE.split("@media (prefers-color-scheme: dark)")

        for style in (*charts.MARKS, "other"):
            colours = [re.findall(r"\.line\.%s { stroke: (#[0-9a-f]{6})" % style, part) for part in (light, dark)]
            self.assertEqual([len(colour) for colour in colours], [1, 1], style)
            for (colour,), page in zip(colours, ("#ffffff", "#0d1117")):
                self.assertGreaterEqual(contrast(colour, page), 3, colour)


def contrast(colour, other):
    """As the Web Content Accessibility Guidelines define it; 3 is the least for graphics."""
    def luminance(colour):
        parts = [int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5)]
        linear = [part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055)**2.4 for part in parts]
        return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]

    lighter, darker = sorted((luminance(colour), luminance(other)), reverse=True)
    return (lighter + 0.05) / (darker + 0.05)


if __name__ == "__main__":
    unittest.main()
