# SPDX-License-Identifier: MIT
"""Makes the tables and the charts of the documents from the results of Google Benchmark.

    performance.py RESULTS            prints the tables
    performance.py RESULTS --renew    stores the tables in docs/*.md, and the charts in docs/images

RESULTS is a folder with a JSON file for each benchmark program. Times are medians over the rounds;
ratios are medians of the ratios in each round.
"""

import re
import sys
from pathlib import Path

import charts
from console import answers_table, creating_table, lines_table
from growth import (expected_table, growth_charts, growth_table, history_table, memory_table, qt_table,
                    steps_table, undo_table)
from measured import Results, markdown, micro, milli, times_as_long

KINDS = ("Identifier", "GUIdentifier")
SIZES = ("10/10", "100/100", "1000/1000")
PAGES = ("performance.md", "history.md")


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


def models_table(results):
    yield ["what changes", "what follows", "µs", "of the command"]
    for what, name in (("one element goes to another group", "BM_AddOne"),
                       ("all groups and members are sorted", "BM_Sort")):
        command = name + "/Command/1000/1000"
        for who, way in (("nobody", "Command"), ("a model", "Model"), ("a model with a tree view", "View")):
            followed = "%s/%s/1000/1000" % (name, way)
            yield [what, who, micro(results.time(followed), 0), times_as_long(results.ratio(followed, command))]
    for what, name in (("a model and a tree view are made and shown", "BM_Open/1000/1000"),
                       ("the first letter is typed into a filter of 100 × 1000", "BM_Type/First/100/1000"),
                       ("the second letter is typed", "BM_Type/Second/100/1000")):
        yield [what, "", micro(results.time(name), 0), ""]


def when(results):
    return "Measured on %s, on a machine with %d cores: medians of %d rounds." % (
        results.context["date"][:10], results.context["num_cpus"], results.number_of_rounds())


# The chart of dots

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


# The documents

def store(parts, pages):
    """Replaces what is between the comments "measured: ..." and "end" in the pages."""
    texts = {page: page.read_text(encoding="utf-8") for page in pages}
    for name, part in parts.items():
        begin, end = "<!-- measured: %s -->\n\n" % name, "\n\n<!-- end -->"
        found = 0
        for page, text in texts.items():
            texts[page], count = re.subn("(?s)%s.*?%s" % (begin, end), lambda _: begin + part + end, text)
            found += count
        if found != 1:
            sys.exit("error: %d places for %s in %s" % (found, name, " and ".join(map(str, pages))))
    for page, text in texts.items():
        page.write_text(text, encoding="utf-8")


def main(folder, option=""):
    commands, console, growth, history, persistence, platform = (
        Results(Path(folder) / (name + ".json"))
        for name in ("GroupCommandsBenchmarks", "ConsoleBenchmarks", "GrowthBenchmarks", "HistoryBenchmarks",
                     "PersistenceBenchmarks", "PlatformBenchmarks"))
    tables = {
        "expected": expected_table(growth),
        "growth": growth_table(growth, "Identifier"),
        "comparing": growth_table(growth, "comparing"),
        "qt": qt_table(growth),
        "undo": undo_table(growth),
        "memory": memory_table(growth),
        "steps": steps_table(growth),
        "commands": commands_table(commands),
        "sorting": sorting_table(commands),
        "creation": creation_table(commands),
        "selections": selections_table(commands),
        "persistence": persistence_table(persistence),
        "archive": archive_table(persistence),
        "platform": platform_table(platform),
        "history": history_table(history),
        "lines": lines_table(console),
        "answers": answers_table(console),
        "creating": creating_table(console),
    }
    models = Path(folder) / "QtModelsBenchmarks.json"
    if models.exists():  # only with Qt
        tables["models"] = models_table(Results(models))
    parts = {name: markdown(list(rows)) for name, rows in tables.items()} | {"when": when(commands)}
    if option != "--renew":
        print("\n\n".join(parts.values()))
        return
    if not any("/Qt/" in name for name in growth.names()):
        sys.exit("error: the documents compare with Qt, which was not measured: install qt6-base-dev")

    documents = Path(__file__).resolve().parents[2] / "docs"
    store(parts, [documents / name for name in PAGES])
    images = {"performance": charts.dots_chart(chart_rows(commands, persistence))} | growth_charts(growth)
    for name, image in images.items():
        (documents / "images" / (name + ".svg")).write_text(image, encoding="utf-8")
    print("Stored in %s: %s, and charts in images." % (documents, " and ".join(PAGES)))


if __name__ == "__main__":
    main(*sys.argv[1:])
