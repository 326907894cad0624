# SPDX-License-Identifier: MIT
"""Makes the tables and the chart of docs/performance.md from the results of Google Benchmark.

    performance.py RESULTS            prints the tables
    performance.py RESULTS --renew    stores the tables in docs/performance.md, and the chart in docs/images

RESULTS is a folder with a JSON file for each benchmark program. Times are medians over the rounds;
ratios are medians of the ratios in each round.
"""

import json
import math
import re
import statistics
import sys
from pathlib import Path

KINDS = ("Identifier", "GUIdentifier")
SIZES = ("10/10", "100/100", "1000/1000")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Results:
    """The rounds of each benchmark of a program, by the name of the benchmark."""

    def __init__(self, path):
        measured = json.loads(path.read_text(encoding="utf-8"))
        self.context = measured["context"]
        self._rounds = {}
        for each in measured["benchmarks"]:
            if each["run_type"] == "iteration":
                self._rounds.setdefault(each["run_name"], []).append(each)

    def names(self):
        return sorted(self._rounds)

    def number_of_rounds(self):
        return max(len(rounds) for rounds in self._rounds.values())

    def times(self, names):
        """The time in each round, in nanoseconds: of one benchmark, or of several in a row."""
        each = [[round["cpu_time"] * NANOSECONDS[round["time_unit"]] for round in self._rounds[name]]
                for name in names.split(" + ")]
        return [sum(times) for times in zip(*each)]

    def time(self, names):
        return statistics.median(self.times(names))

    def ratio(self, names, others):
        return statistics.median(own / other for own, other in zip(self.times(names), self.times(others)))

    def best_speed(self, name):
        """In bytes per second."""
        return max(round["bytes_per_second"] for round in self._rounds[name])

    def label(self, name):
        return self._rounds[name][0]["label"]


# Tables: a list of rows, the first of them the titles.

def markdown(rows):
    """Aligns numbers to the right: columns whose cells begin with a digit, or are empty."""
    columns = list(zip(*rows))
    is_number = [all(re.match(r"\d|$", cell) for cell in column[1:]) for column in columns]
    rule = ["---:" if number else "---" for number in is_number]
    lines = ["| %s |" % " | ".join(row) for row in [rows[0], *rows[1:]]]
    lines.insert(1, "|%s|" % "|".join(rule))
    return "\n".join(lines)


def micro(nanoseconds, digits=2):
    return "%.*f" % (digits, nanoseconds / 1e3)


def milli(nanoseconds):
    return "%.2f" % (nanoseconds / 1e6)


def times_as_long(ratio):
    return "%.2f×" % ratio


def shown_size(size):
    return size.replace("/", " × ")


def commands_in(results):
    """Every command that is compared with the least."""
    return sorted({name.split("/")[0].removeprefix("bare ") for name in results.names() if name.startswith("bare ")})


def commands_table(results):
    yield ["command", "operation", "groups × members",
           *(title for kind in KINDS for title in ("`%s`, µs" % kind, "of the least"))]
    for command in commands_in(results):
        for operation in ("execute", "undo", "redo"):
            for size in SIZES:
                row = ["`%s`" % command, operation, shown_size(size)]
                for kind in KINDS:
                    name = "%s/%s/%s/%s" % (command, operation, kind, size)
                    row += [micro(results.time(name)), times_as_long(results.ratio(name, "bare " + name))]
                yield row


def sorting_table(results):
    yield ["sorting the groups only", "groups × members",
           *(title for kind in KINDS for title in ("`%s`, µs" % kind, "of by value"))]
    for size in ("1000/1000", "10000/10"):
        for way in ("the command", "pointers and one copy", "groups by value"):
            row = [way, shown_size(size)]
            for kind in KINDS:
                name = "sort groups/%s/%s/%s" % (way, kind, size)
                by_value = "sort groups/groups by value/%s/%s" % (kind, size)
                row += [micro(results.time(name), 0), times_as_long(results.ratio(name, by_value))]
            yield row


def creation_table(results):
    yield ["groups × members", *(title for kind in KINDS for title in ("`%s`, µs" % kind, "of two bare copies"))]
    for size in SIZES:
        row = [shown_size(size)]
        for kind in KINDS:
            name = "create empty/the command/%s/%s" % (kind, size)
            bare = "create empty/two bare copies/%s/%s" % (kind, size)
            row += [micro(results.time(name)), times_as_long(results.ratio(name, bare))]
        yield row


SELECTIONS = (("10 elements", "1000/1000"), ("1000 elements", "1000/1000"),
              ("a group", "2/1000"), ("a group", "2/10000"), ("a group", "2/100000"),
              ("every tenth group", "1000/1000"), ("every other group", "1000/1000"))


def selections_table(results):
    yield ["selected", "groups × members", "command",
           *(title for kind in KINDS for title in ("`%s`, ms" % kind, "of the copies"))]
    for selected, size in SELECTIONS:
        commands = sorted({name.split("/")[1] for name in results.names() if name.startswith(selected + "/")})
        for command in commands:
            row = [selected, shown_size(size), "`%s`" % command]
            for kind in KINDS:
                name = "%s/%s/%s/%s" % (selected, command, kind, size)
                row += [milli(results.time(name)), times_as_long(results.ratio(name, "copies/%s/%s" % (kind, size)))]
            yield row


def of_kind(names, kind):
    return " + ".join("%s/%s" % (name, kind) for name in names.split(" + "))


def persistence_table(results):
    yield ["1000 groups × 1000 members",
           *(title for kind in KINDS for title in ("`%s`, µs" % kind, "of memcpy", "of cereal"))]
    kept = "copy/kept"
    rows = [
        ("saving, without the checksum", "save/archive", kept, "save/cereal"),
        ("the class table and the checksum", "finish/archive", kept, ""),
        ("saving, all of it", "save/archive + finish/archive", kept, "save/cereal"),
        ("opening, which checks the checksum", "open/archive", kept, ""),
        ("loading into kept groups", "load kept/archive", kept, "load kept/cereal"),
        ("the same and opening", "open/archive + load kept/archive", kept, "load kept/cereal"),
    ]
    memories = ("recycled", "fresh")
    for memory in memories:
        loading, copying, cereal = "load new/archive/" + memory, "copy/" + memory, "load new/cereal/" + memory
        rows += [("loading into new groups, %s memory" % memory, loading, copying, cereal),
                 ("the same and opening", "open/archive + " + loading, copying, cereal)]
    rows += [("cereal: saving", "save/cereal", kept, ""),
             ("cereal: loading into kept groups", "load kept/cereal", kept, "")]
    rows += [("cereal: loading into new groups, %s memory" % memory, "load new/cereal/" + memory, "copy/" + memory, "")
             for memory in memories]
    rows += [("memcpy, %s memory" % memory, "copy/" + memory, "", "") for memory in ("kept", *memories)]
    rows += [("constructing the members, %s memory" % memory, "construct members/" + memory, "", "")
             for memory in memories]
    for title, names, *others in rows:
        row = [title]
        for kind in KINDS:
            row.append(micro(results.time(of_kind(names, kind)), 0))
            row += [times_as_long(results.ratio(of_kind(names, kind), of_kind(other, kind))) if other else ""
                    for other in others]
        yield row


def archive_table(results):
    yield ["", *("`%s`" % kind for kind in KINDS)]
    for memory in ("recycled", "fresh"):
        yield ["constructing the members, of loading new groups, %s memory" % memory,
               *(times_as_long(results.ratio("construct members/%s/%s" % (memory, kind),
                                             "load new/archive/%s/%s" % (memory, kind))) for kind in KINDS)]
    yield ["bytes added to the content",
           *("%.2f %%" % float(results.label("save/archive/" + kind)) for kind in KINDS)]
    yield ["the checksum, best round",
           *("%.1f GB/s" % (results.best_speed("checksum/" + kind) / 1e9) for kind in KINDS)]


def platform_table(results):
    yield ["what", "time"]
    numbers_as_numbers = lambda name: [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", name)]
    for name in sorted(results.names(), key=numbers_as_numbers):
        time = results.time(name)
        yield [name, "%.2f ns" % time if time < 1e3 else "%s µs" % micro(time)]


def when(results):
    return "Measured on %s, on a machine with %d cores: medians of %d rounds." % (
        results.context["date"][:10], results.context["num_cpus"], results.number_of_rounds())


# The chart

DECADES = range(1, 10)  # powers of ten, in nanoseconds: from 10 ns to 1 s
DECADE_NAMES = ("10 ns", "0.1 µs", "1 µs", "10 µs", "0.1 ms", "1 ms", "10 ms", "0.1 s", "1 s")
LEFT, RIGHT, TOP, ROW = 250, 660, 64, 24
STYLE = """
    text { font: 13px system-ui, sans-serif; fill: #24292f; }
    .quiet { fill: #57606a; } .grid { stroke: #d0d7de; }
    .small { fill: #8ec5ff; } .medium { fill: #2f81f7; } .large { fill: #0a3069; }
    @media (prefers-color-scheme: dark) {
      text { fill: #e6edf3; } .quiet { fill: #8b949e; } .grid { stroke: #30363d; }
      .small { fill: #1f6feb; } .medium { fill: #79c0ff; } .large { fill: #ffffff; }
    }"""


def chart_rows(commands, persistence):
    """A title, the times of three sizes (or only of the last) in nanoseconds, and a remark."""
    for command in commands_in(commands):
        names = ["%s/execute/Identifier/%s" % (command, size) for size in SIZES]
        ratio = commands.ratio(names[-1], "bare " + names[-1])
        yield command, [commands.time(name) for name in names], times_as_long(ratio)
    names = ["AddToTKGroupCmd/undo/Identifier/" + size for size in SIZES]
    ratio = commands.ratio(names[-1], "bare " + names[-1])
    yield "undo or redo (except rename)", [commands.time(name) for name in names], times_as_long(ratio)
    yield "save", [persistence.time("save/archive/Identifier + finish/archive/Identifier")], ""
    yield "load", [persistence.time("open/archive/Identifier + load new/archive/recycled/Identifier")], ""


def chart(rows):
    rows = list(rows)
    bottom = TOP + ROW * len(rows)

    def place(nanoseconds):
        share = (math.log10(nanoseconds) - DECADES[0]) / (DECADES[-1] - DECADES[0])
        return LEFT + share * (RIGHT - LEFT)

    def text(x, y, content, css="", anchor="start"):
        return '  <text x="%.1f" y="%.1f" class="%s" text-anchor="%s">%s</text>' % (x, y, css, anchor, content)

    lines = [
        '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 760 %d" role="img">' % (bottom + 34),
        "  <title>Time of each command, by the number of members in all groups</title>",
        "  <style>%s\n  </style>" % STYLE,
        text(LEFT - 14, 22, "Members in all groups:", "", "end"),
        text(RIGHT + 12, 22, "of the least,", "quiet"),
        text(RIGHT + 12, 38, "at 1,000,000", "quiet"),
    ]
    for index, (css, title) in enumerate((("small", "100"), ("medium", "10,000"), ("large", "1,000,000"))):
        x = LEFT + 6 + 100 * index
        lines += ['  <circle cx="%d" cy="18" r="5" class="%s"/>' % (x, css), text(x + 10, 22, title)]
    for decade, name in zip(DECADES, DECADE_NAMES):
        x = place(10**decade)
        lines.append('  <line x1="%.1f" y1="%d" x2="%.1f" y2="%d" class="grid"/>' % (x, TOP - 12, x, bottom))
        lines.append(text(x, bottom + 18, name, "quiet", "middle"))
    for index, (title, times, remark) in enumerate(rows):
        y = TOP + ROW * index + 6
        lines += [text(LEFT - 14, y + 4, title, "", "end"), text(RIGHT + 12, y + 4, remark, "quiet")]
        for css, time in list(zip(("large", "medium", "small"), reversed(times)))[::-1]:
            lines.append('  <circle cx="%.1f" cy="%.1f" r="5" class="%s"/>' % (place(time), y, css))
    return "\n".join(lines) + "\n</svg>\n"


def main(folder, option=""):
    commands, persistence, platform = (
        Results(Path(folder) / (name + ".json"))
        for name in ("GroupCommandsBenchmarks", "PersistenceBenchmarks", "PlatformBenchmarks"))
    tables = {
        "commands": commands_table(commands),
        "sorting": sorting_table(commands),
        "creation": creation_table(commands),
        "selections": selections_table(commands),
        "persistence": persistence_table(persistence),
        "archive": archive_table(persistence),
        "platform": platform_table(platform),
    }
    parts = {name: markdown(list(rows)) for name, rows in tables.items()} | {"when": when(commands)}
    if option != "--renew":
        print("\n\n".join(parts.values()))
        return

    documents = Path(__file__).resolve().parents[2] / "docs"
    page = documents / "performance.md"
    text = page.read_text(encoding="utf-8")
    for name, part in parts.items():
        begin, end = "<!-- measured: %s -->\n\n" % name, "\n\n<!-- end -->"
        text, found = re.subn("(?s)%s.*?%s" % (begin, end), lambda _: begin + part + end, text)
        if found != 1:
            sys.exit("error: %s has %d places for %s" % (page, found, name))
    page.write_text(text, encoding="utf-8")
    image = documents / "images/performance.svg"
    image.parent.mkdir(exist_ok=True)
    image.write_text(chart(chart_rows(commands, persistence)), encoding="utf-8")
    print("Stored in %s and %s." % (page, image))


if __name__ == "__main__":
    main(*sys.argv[1:])
