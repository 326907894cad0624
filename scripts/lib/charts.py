# SPDX-License-Identifier: MIT
"""Draws the charts of the documents as SVG: readable on light and dark pages, also without colours."""

import math
from typing import NamedTuple
from xml.sax.saxutils import escape

# Each line has a mark and a label beside its colour. The colours are from palettes that colour-blind
# readers can tell apart (Okabe and Ito, Tol). The style "other" is dashed.
STYLE = """
    text { font: 13px system-ui, sans-serif; fill: #24292f; }
    .page { fill: #ffffff; } .quiet { fill: #57606a; } .title { font-weight: 600; }
    .grid { stroke: #d8dee4; } .line { fill: none; stroke-width: 2; }
    .small { fill: #8ec5ff; } .medium { fill: #2f81f7; } .large { fill: #0a3069; }
    .line.a { stroke: #0072b2; } .line.b { stroke: #d55e00; } .line.c { stroke: #009e73; }
    .line.d { stroke: #882255; } .line.other { stroke: #6e7781; stroke-dasharray: 5 4; }
    .guide { stroke-width: 1; }
    .mark.a { fill: #0072b2; } .mark.b { fill: #d55e00; } .mark.c { fill: #009e73; } .mark.d { fill: #882255; }
    @media (prefers-color-scheme: dark) {
      text { fill: #e6edf3; } .page { fill: #0d1117; } .quiet { fill: #9aa4af; }
      .grid { stroke: #2b3138; }
      .small { fill: #1f6feb; } .medium { fill: #79c0ff; } .large { fill: #ffffff; }
      .line.a { stroke: #56b4e9; } .line.b { stroke: #e69f00; } .line.c { stroke: #3fd0a0; }
      .line.d { stroke: #ee9ac8; } .line.other { stroke: #9aa4af; }
      .mark.a { fill: #56b4e9; } .mark.b { fill: #e69f00; } .mark.c { fill: #3fd0a0; } .mark.d { fill: #ee9ac8; }
    }"""


def drawing(width, height, title, description, shapes):
    """A whole image. Screen readers read the title and the description."""
    return "\n".join([
        '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 %d %d" role="img" aria-labelledby="title desc">'
        % (width, height),
        '  <title id="title">%s</title>' % escape(title),
        '  <desc id="desc">%s</desc>' % escape(description),
        "  <style>%s\n  </style>" % STYLE,
        '  <rect class="page" width="%d" height="%d"/>' % (width, height),
        *("  " + shape for shape in shapes)]) + "\n</svg>\n"


def text(x, y, content, css="", anchor="start"):
    return '<text x="%.1f" y="%.1f" class="%s" text-anchor="%s">%s</text>' % (x, y, css, anchor, escape(content))


def segment(x1, y1, x2, y2, css):
    return '<line x1="%.1f" y1="%.1f" x2="%.1f" y2="%.1f" class="%s"/>' % (x1, y1, x2, y2, css)


def dot(x, y, css):
    return '<circle cx="%.1f" cy="%.1f" r="5" class="%s"/>' % (x, y, css)


# Numbers with units

def with_unit(value, units):
    """Three digits at most: 1.23, 12.3, 123, and the largest unit that leaves a digit before the point."""
    for factor, unit in units:
        if value >= factor * 0.9995 or (factor, unit) == units[-1]:
            break
    value /= factor
    digits = 0 if value >= 99.95 else 1 if value >= 9.995 else 2
    return "%.*f %s" % (digits, value, unit)


def tick(value, units):
    """A power of ten: "10 µs"."""
    for factor, unit in units:
        if value >= factor * 0.9995 or (factor, unit) == units[-1]:
            return "%g %s" % (value / factor, unit)
    raise ValueError(units)


TIME = ((1e9, "s"), (1e6, "ms"), (1e3, "µs"), (1, "ns"))
BYTES = ((1e9, "GB"), (1e6, "MB"), (1e3, "kB"), (1, "B"))


# Charts of growth: both axes are logarithmic

class Line(NamedTuple):
    label: str
    style: str     # a, b, c, d, or other
    points: list   # (elements, value)


class Panel(NamedTuple):
    title: str
    lines: list


PLOT_WIDTH, PLOT_HEIGHT = 180, 190
BEFORE_PLOT, AFTER_PLOT, ABOVE_PLOT, BELOW_PLOT = 76, 140, 40, 40
LEAST_DISTANCE = 14  # between labels


class Scale:
    """Places powers of ten evenly."""

    def __init__(self, values, begin, end):
        values = list(values)
        self.least = math.floor(math.log10(min(values)) + 1e-9)
        self.most = max(math.ceil(math.log10(max(values)) - 1e-9), self.least + 1)
        self._begin, self._end = begin, end

    def place(self, value):
        share = (math.log10(value) - self.least) / (self.most - self.least)
        return self._begin + share * (self._end - self._begin)

    def decades(self):
        return [10.0**power for power in range(self.least, self.most + 1)]


def spread(places, least, most):
    """Moves places apart until all have the least distance, as little as possible, and keeps their order."""
    clusters = []  # each a list of indexes, whose labels touch each other
    first_of = lambda cluster: (sum(places[i] for i in cluster) / len(cluster)
                                - LEAST_DISTANCE * (len(cluster) - 1) / 2)
    for i in sorted(range(len(places)), key=lambda i: places[i]):
        clusters.append([i])
        while (len(clusters) > 1 and
               first_of(clusters[-2]) + LEAST_DISTANCE * len(clusters[-2]) > first_of(clusters[-1])):
            last = clusters.pop()
            clusters[-1] += last
    result = list(places)
    for cluster in clusters:
        extent = LEAST_DISTANCE * (len(cluster) - 1)
        first = max(least, min(first_of(cluster), most - extent))
        for position, i in enumerate(cluster):
            result[i] = first + position * LEAST_DISTANCE
    return result


MARKS = {
    "a": '<circle cx="%.1f" cy="%.1f" r="3.5" class="mark a"/>',
    "b": '<rect x="-3.2" y="-3.2" width="6.4" height="6.4" class="mark b" transform="translate(%.1f %.1f)"/>',
    "c": '<path d="M0-4.4 4.2 3.2H-4.2Z" class="mark c" transform="translate(%.1f %.1f)"/>',
    "d": '<path d="M0-4.6 4.6 0 0 4.6-4.6 0Z" class="mark d" transform="translate(%.1f %.1f)"/>',
}


def panel_shapes(panel, x, y):
    """The lines of a panel and their labels, which are beside the last points."""
    lines = [line for line in panel.lines if line.points]
    places = [[(x.place(elements), y.place(value)) for elements, value in line.points] for line in lines]
    for line, points in zip(lines, places):
        path = " ".join("%.1f,%.1f" % point for point in points)
        yield '<polyline points="%s" class="line %s"/>' % (path, line.style)
        if line.style in MARKS:
            yield from (MARKS[line.style] % point for point in points)
    top, bottom = y.place(10.0**y.most), y.place(10.0**y.least)
    ends = [points[-1] for points in places]
    right = x.place(10.0**x.most)
    for line, (end_x, end_y), label_y in zip(lines, ends, spread([end[1] for end in ends], top, bottom)):
        yield segment(end_x + 6, end_y, right + 16, label_y, "line %s guide" % line.style)
        yield text(right + 20, label_y + 4, line.label)


def growth_chart(title, x_title, y_title, units, panels, columns=2):
    """Panels with the same axes: values over the number of elements."""
    points = [point for panel in panels for line in panel.lines for point in line.points]
    width = columns * (BEFORE_PLOT + PLOT_WIDTH + AFTER_PLOT)
    row_height = ABOVE_PLOT + PLOT_HEIGHT + BELOW_PLOT
    rows = math.ceil(len(panels) / columns)
    shapes = []
    for index, panel in enumerate(panels):
        row, column = divmod(index, columns)
        left = column * (BEFORE_PLOT + PLOT_WIDTH + AFTER_PLOT) + BEFORE_PLOT
        top = row * row_height + ABOVE_PLOT
        bottom = top + PLOT_HEIGHT
        x = Scale([elements for elements, _ in points], left, left + PLOT_WIDTH)
        y = Scale([value for _, value in points], bottom, top)
        shapes.append(text(left, top - 14, panel.title, "title"))
        for value in y.decades():
            shapes.append(segment(left, y.place(value), left + PLOT_WIDTH, y.place(value), "grid"))
            shapes.append(text(left - 8, y.place(value) + 4, tick(value, units), "quiet", "end"))
        for value in x.decades():
            shapes.append(segment(x.place(value), top, x.place(value), bottom, "grid"))
            shapes.append(text(x.place(value), bottom + 18, short_count(value), "quiet", "middle"))
        shapes.append(text(left + PLOT_WIDTH / 2, bottom + 34, x_title, "quiet", "middle"))
        middle = "transform=\"translate(%.1f %.1f) rotate(-90)\"" % (left - 64, top + PLOT_HEIGHT / 2)
        shapes.append('<text class="quiet" text-anchor="middle" %s>%s</text>' % (middle, escape(y_title)))
        shapes += panel_shapes(panel, x, y)
    return drawing(width, rows * row_height + 4, title, described(panels, units), shapes)


def short_count(value):
    return "%d million" % (value / 1e6) if value >= 1e6 else "{:,}".format(round(value))


def described(panels, units):
    """What the lines show, in words."""
    sentences = []
    for panel in panels:
        for line in panel.lines:
            if line.points:
                (first, low), (last, high) = line.points[0], line.points[-1]
                sentences.append("%s, %s: %s for %s elements, %s for %s." % (
                    panel.title, line.label, with_unit(low, units), short_count(first),
                    with_unit(high, units), short_count(last)))
    return " ".join(sentences)


# The chart of dots: a row for each title, with the times of up to three sizes

DECADES = range(1, 10)  # powers of ten, in nanoseconds: from 10 ns to 1 s
LEFT, RIGHT, TOP, ROW = 250, 660, 64, 24
SIZES = (("small", "100"), ("medium", "10,000"), ("large", "1,000,000"))


def dots_chart(rows):
    """Rows: a title, the times of the sizes (or only of the last) in nanoseconds, and a remark."""
    rows = list(rows)
    bottom = TOP + ROW * len(rows)

    def place(nanoseconds):
        share = (math.log10(nanoseconds) - DECADES[0]) / (DECADES[-1] - DECADES[0])
        return LEFT + share * (RIGHT - LEFT)

    shapes = [text(LEFT - 14, 22, "Members in all groups:", "", "end"),
              text(RIGHT + 12, 22, "of the least,", "quiet"),
              text(RIGHT + 12, 38, "at 1,000,000", "quiet")]
    for index, (css, title) in enumerate(SIZES):
        x = LEFT + 6 + 100 * index
        shapes += [dot(x, 18, css), text(x + 10, 22, title)]
    for decade in DECADES:
        x = place(10**decade)
        shapes += [segment(x, TOP - 12, x, bottom, "grid"),
                   text(x, bottom + 18, tick(10.0**decade, TIME), "quiet", "middle")]
    sentences = []
    for index, (title, times, remark) in enumerate(rows):
        y = TOP + ROW * index + 6
        shapes += [text(LEFT - 14, y + 4, title, "", "end"), text(RIGHT + 12, y + 4, remark, "quiet")]
        shown = list(zip(SIZES[-len(times):], times))
        shapes += [dot(place(time), y, css) for (css, _), time in shown]
        sentences.append("%s: %s." % (title, ", ".join("%s for %s members" % (with_unit(time, TIME), size)
                                                       for (_, size), time in shown)))
    return drawing(760, bottom + 34, "Time of each command, by the number of members in all groups",
                   " ".join(sentences), shapes)
