# SPDX-License-Identifier: MIT
"""Tables and charts of how edits grow with the number of elements.

The benchmarks are named "command/selection/operation/kind/groups/members".
"""

import charts
from charts import BYTES, TIME, Line, Panel, with_unit
from measured import Results, times_as_long

ELEMENTS = (1000, 10000, 100000, 1000000)
SELECTIONS_OF_GROWTH = {
    "one": "one element", "1000": "a thousand elements", "tenth": "a tenth of all elements",
    "group": "one of ten groups"}
COMMANDS_ON_ELEMENTS = (
    "AddToTKGroupCmd", "CreateTKGroupCmd", "MoveTKGroupElementsCmd", "RemoveFromTKGroupCmd")
COMMANDS_ON_GROUPS = (
    ("one", "one group", "RemoveTKGroupsCmd"), ("tenth", "a tenth of the groups", "RemoveTKGroupsCmd"),
    ("one", "one group", "MoveTKGroupsCmd"), ("tenth", "a tenth of the groups", "MoveTKGroupsCmd"),
    ("one", "one group", "RenameTKGroupCmd"), ("all", "everything", "SortTKGroupsAlphabeticallyCmd"))


def growth_names(results, start):
    """The benchmarks that begin so, by the number of elements."""
    names = {}
    for name in results.names():
        if name.startswith(start + "/"):
            groups, members = name[len(start) + 1:].split("/")
            names[int(groups) * int(members)] = name
    return dict(sorted(names.items()))


def growth_points(results, start, value=Results.time):
    return [(elements, value(results, name)) for elements, name in growth_names(results, start).items()]


def growth_cells(points, units=TIME):
    values = dict(points)
    return [with_unit(values[elements], units) if elements in values else "" for elements in ELEMENTS]


def size_titles():
    return ["{:,}".format(elements) for elements in ELEMENTS]


def copies_of(selection):
    return "group" if selection == "group" else "one"


def growth_ratio(results, start, other):
    """How many times as long as another, with the most elements."""
    names, others = growth_names(results, start), growth_names(results, other)
    if not names or not others or max(names) != max(others):
        return ""
    return times_as_long(results.ratio(names[max(names)], others[max(others)]))


def growth_of_commands():
    """A selection, its title and a command for each row."""
    for selection, title in SELECTIONS_OF_GROWTH.items():
        yield from ((selection, title, command) for command in COMMANDS_ON_ELEMENTS)
    yield from COMMANDS_ON_GROUPS


def expected_table(results):
    """What to expect at which size."""
    yield ["what the user does", *size_titles()]
    rows = (("moves one element to another group", "AddToTKGroupCmd/one/execute/Identifier"),
            ("moves a thousand elements", "AddToTKGroupCmd/1000/execute/Identifier"),
            ("moves a tenth of all elements", "AddToTKGroupCmd/tenth/execute/Identifier"),
            ("moves one of ten groups into another", "AddToTKGroupCmd/group/execute/Identifier"),
            ("deletes a tenth of the groups", "RemoveTKGroupsCmd/tenth/execute/Identifier"),
            ("sorts all groups and members by name", "SortTKGroupsAlphabeticallyCmd/all/execute/Identifier"),
            ("undoes or redoes", "AddToTKGroupCmd/one/undo/Identifier"))
    for title, start in rows:
        yield [title, *growth_cells(growth_points(results, start))]


def growth_table(results, kind):
    yield ["selected", "command", *size_titles(), "of the copies"]
    for selection, title, command in growth_of_commands():
        start = "%s/%s/execute/%s" % (command, selection, kind)
        points = growth_points(results, start)
        if not points:
            continue
        ratio = growth_ratio(results, start, "three copies/" + copies_of(selection))
        yield [title, "`%s`" % command, *growth_cells(points),
               "" if command == "RenameTKGroupCmd" else ratio]


def qt_table(results):
    yield ["selected", "as", *size_titles(), "this library, of Qt"]
    for selection, title, command in growth_of_commands():
        start = "%s/%s/execute/" % (command, selection)
        points = growth_points(results, start + "Qt")
        if points:
            yield [title, "`%s`" % command, *growth_cells(points),
                   growth_ratio(results, start + "Identifier", start + "Qt")]


# How a command keeps its change; the style is that of its line.
KEEPERS = (("Identifier", "two whole lists", "a"), ("difference", "the difference", "b"), ("Qt", "Qt's shared lists", "c"))


UNDOS = (*((kind, title) for kind, title, _ in KEEPERS), ("in place", "the difference, done in place"))


def undo_table(results):
    yield ["undo or redo", "the command keeps", *size_titles(), "of one copy"]
    for selection in SELECTIONS_OF_GROWTH:
        for kind, title in UNDOS:
            start = "AddToTKGroupCmd/%s/undo/%s" % (selection, kind)
            points = growth_points(results, start)
            if points:
                yield [SELECTIONS_OF_GROWTH[selection], title, *growth_cells(points),
                       "" if kind == "Qt" else growth_ratio(results, start, "one copy/" + copies_of(selection))]


def memory_table(results):
    yield ["moved to another group", "the command keeps", *size_titles()]
    for selection in SELECTIONS_OF_GROWTH:
        for kind, title, _ in KEEPERS:
            points = growth_points(results, "AddToTKGroupCmd/%s/memory/%s" % (selection, kind), Results.bytes)
            if points:
                yield [SELECTIONS_OF_GROWTH[selection], title, *growth_cells(points, BYTES)]


BUDGET = 256_000_000


def steps_table(results):
    """How many commands fit into a budget."""
    yield ["each step moves", "the command keeps", *size_titles()]
    for selection in SELECTIONS_OF_GROWTH:
        for kind, title, _ in KEEPERS:
            kept = dict(growth_points(results, "AddToTKGroupCmd/%s/memory/%s" % (selection, kind), Results.bytes))
            if kept and kind != "Qt":
                yield [SELECTIONS_OF_GROWTH[selection], title,
                       *("{:,.0f}".format(BUDGET // kept[elements]) if elements in kept else ""
                         for elements in ELEMENTS)]


def history_table(results):
    """Benchmarks "operation/class" or "operation/class/number", of the history and of Qt's."""
    yield ["operation", "`CommandHistory`", "`QUndoStack`", "of Qt"]
    for name in results.names():
        operation, slash, rest = name.partition("/CommandHistory")
        if not slash:
            continue
        other = operation + "/QUndoStack" + rest
        title = operation + (" of {:,} entries".format(int(rest[1:])) if rest else "")
        if other in results.names():
            yield [title, with_unit(results.time(name), TIME), with_unit(results.time(other), TIME),
                   times_as_long(results.ratio(name, other))]
        else:
            yield [title, with_unit(results.time(name), TIME), "", ""]


# Charts

def growth_panels(results, kind):
    """A panel for each command, with a line for each selection."""
    styles = (("one", "one element", "a"), ("1000", "a thousand", "c"), ("tenth", "a tenth", "b"),
              ("group", "one of ten groups", "d"))
    copies = Line("the copies", "other", growth_points(results, "three copies/one"))
    for command in COMMANDS_ON_ELEMENTS:
        lines = [Line(title, style, growth_points(results, "%s/%s/execute/%s" % (command, selection, kind)))
                 for selection, title, style in styles]
        yield Panel(command, [*lines, copies])


def panels_of_groups(results):
    copies = Line("the copies", "other", growth_points(results, "three copies/one"))
    deletions = [Line(title, style, growth_points(results, "RemoveTKGroupsCmd/%s/execute/Identifier" % selection))
                 for selection, title, style in (("one", "one group", "a"), ("tenth", "a tenth", "b"))]
    yield Panel("RemoveTKGroupsCmd", [*deletions, copies])
    others = (("sort all", "b", "SortTKGroupsAlphabeticallyCmd/all/execute/Identifier"),
              ("undo or redo", "a", "AddToTKGroupCmd/one/undo/Identifier"),
              ("rename", "d", "RenameTKGroupCmd/one/execute/Identifier"))
    yield Panel("Sort, rename, undo",
                [*(Line(title, style, growth_points(results, start)) for title, style, start in others), copies])


def comparison_panels(results):
    """A panel for each selection, with a line for each way to make the same edit."""
    ways = (("with a hash", "a", "execute/Identifier"), ("by comparing", "d", "execute/comparing"),
            ("as a difference", "b", "execute/difference"), ("Qt", "c", "execute/Qt"))
    for selection in SELECTIONS_OF_GROWTH:
        lines = [Line(title, style, growth_points(results, "AddToTKGroupCmd/%s/%s" % (selection, way)))
                 for title, style, way in ways]
        copies = Line("the copies", "other", growth_points(results, "three copies/" + copies_of(selection)))
        yield Panel(panel_title("Move", selection), [*lines, copies])
    lines = [Line(title, style, growth_points(results, "AddToTKGroupCmd/one/undo/" + kind))
             for kind, title, style in KEEPERS]
    yield Panel("Undo or redo", [*lines, Line("one copy", "other", growth_points(results, "one copy/one"))])
    yield Panel("Sort all groups and members",
                [Line(title, style, growth_points(results, "SortTKGroupsAlphabeticallyCmd/all/execute/" + kind))
                 for kind, title, style in (("Identifier", "this library", "a"), ("Qt", "Qt", "c"))])


def panel_title(verb, selection):
    return "%s %s" % (verb, SELECTIONS_OF_GROWTH[selection])


def memory_panels(results):
    for selection in SELECTIONS_OF_GROWTH:
        yield Panel(panel_title("Move", selection), [
            Line(title, style, growth_points(
                results, "AddToTKGroupCmd/%s/memory/%s" % (selection, kind), Results.bytes))
            for kind, title, style in KEEPERS])


def growth_chart(title, panels, units=TIME, y_title="processor time"):
    return charts.growth_chart(title, "elements in all groups", y_title, units, list(panels))


def growth_charts(results):
    """Each image by its name."""
    return {
        "growth": growth_chart("Time of each command, by what is selected",
                               [*growth_panels(results, "Identifier"), *panels_of_groups(results)]),
        "growth-comparing": growth_chart("Time of each command for identifiers without a hash",
                                         growth_panels(results, "comparing")),
        "growth-compared": growth_chart("Time of the same edits, made in different ways",
                                        comparison_panels(results)),
        "history-memory": growth_chart("Memory that one command keeps in the history",
                                       memory_panels(results), BYTES, "memory of one command"),
    }
