# SPDX-License-Identifier: MIT
"""Documents to attack, and their files."""

import subprocess
from pathlib import Path

ELEMENTS = ["Athens", "Berlin", "Cairo", "Dakar", "Essen", "Faro", "Genoa", "Hanoi", "Isle of Man", "Jakarta"]
GROUPS = ["create Europe Berlin Athens", "create Africa Cairo Dakar", 'create "An empty group with a long name"']


def points(elements, points_each=3):
    """The text of a file of points."""
    lines = ["collection,x,y,z"]
    for number, name in enumerate(elements):
        lines += ["%s,%d,%d,0.5" % (name, number, point) for point in range(points_each)]
    return "\n".join(lines) + "\n"


def run(program, arguments, folder, **options):
    """Runs the program to its end, without a terminal."""
    return subprocess.run([program, *arguments], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=120, check=False, **options)


def make_project(program, folder, name="base.tkpc", elements=tuple(ELEMENTS), points_each=3):
    """Saves a document with groups as a project.
    @return its path"""
    folder = Path(folder)
    (folder / "points.csv").write_text(points(elements, points_each))
    commands = [part for line in [*GROUPS, "save " + name] for part in ("--command", line)]
    done = run(program, ["points.csv", *commands], folder)
    if done.returncode != 0:
        raise RuntimeError("the document to attack cannot be made: %s" % done.stderr.decode())
    return folder / name
