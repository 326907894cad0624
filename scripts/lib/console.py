# SPDX-License-Identifier: MIT
"""Tables of how long the lines of point-collections take.

The benchmarks are named "line/...", "9000 groups/...", "mistake/...", "completion/..." and
"creating/.../number of groups".
"""

from charts import TIME, with_unit


def titles(results, *folders):
    """What follows any of these folders in the names of the benchmarks, each once."""
    return sorted({name[len(folder):] for folder in folders for name in results.names() if name.startswith(folder)})


def cell(results, name):
    return with_unit(results.time(name), TIME) if name in results.names() else ""


def lines_table(results):
    yield ["line", "9 groups of 10,000", "9,000 groups of 10"]
    folders = ("line/", "9000 groups/")
    for title in titles(results, *folders):
        yield [title, *(cell(results, folder + title) for folder in folders)]


def answers_table(results):
    """What changes nothing."""
    yield ["what is typed", "with", "time"]
    for folder, what in (("completion/", "the tab key"), ("mistake/", "a mistake")):
        for title in titles(results, folder):
            yield [what, title, cell(results, folder + title)]


def creating_table(results):
    """How the time of many lines grows with their number."""
    rows = [title.split("/") for title in titles(results, "creating/")]
    numbers = sorted({int(number) for _, number in rows})
    yield ["groups, created by a line each", *("{:,}".format(number) for number in numbers)]
    for kind in sorted({kind for kind, _ in rows}):
        yield [kind, *(cell(results, "creating/%s/%d" % (kind, number)) for number in numbers)]
