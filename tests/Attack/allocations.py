# SPDX-License-Identifier: MIT
"""Lets allocations of point-collections fail, one after the other, while it does what the user types.

After each fault, either nothing has changed and the program says so, or the change is complete and the
program says that. The program never ends by itself.
"""

import mmap
import os
import re
import struct
import subprocess
from dataclasses import dataclass
from pathlib import Path

from documents import make_project, run
from report import Defect, require
from terminal import Ended, Terminal

FIELDS = struct.Struct("<4Q")  # Orders in FailingAllocator.cpp
OFF, ON, FROM_MAIN = 0, 1, 2
KINDS = {"one": 1, "full": 2, "nothing": 3}  # Kind in FailingAllocator.cpp
NEVER = 2 ** 63
LOSS = "can no longer be undone or redone"
PARTLY = "only some of the steps"


class FailingAllocations:
    """The orders for the preloaded allocator."""

    def __init__(self, folder, library):
        self.path = Path(folder) / "orders"
        self.path.write_bytes(bytes(FIELDS.size))
        self.environment = {"LD_PRELOAD": str(library), "FAILING_ALLOCATIONS": str(self.path)}
        with self.path.open("r+b") as file:
            self._orders = mmap.mmap(file.fileno(), FIELDS.size)

    def order(self, state, kind, first):
        self._orders[:] = FIELDS.pack(state, KINDS[kind], first, 0)

    def stop(self):
        """Lets all allocations succeed from now on.
        @return how many there have been"""
        count = FIELDS.unpack(self._orders[:])[3]
        self.order(OFF, "one", NEVER)
        return count


@dataclass(frozen=True)
class Case:
    line: str
    setup: tuple = ("rename Africa Afrika", "add Europe Essen --at 1", "sort")
    is_in_steps: bool = False  # whether it may be done in part
    is_in_two_parts: bool = False  # whether both groups and order change: reversing the first one takes memory


CASES = [
    Case("create New Faro Berlin"),
    Case("create Europe"),
    Case("create Wide Athens Berlin Cairo Dakar Essen Faro Genoa Hanoi"),
    Case("add Europe Faro Cairo --before Berlin"),
    Case("remove Berlin Cairo"),
    Case("move Genoa Berlin --after Hanoi", is_in_two_parts=True),
    Case("undo", setup=("rename Africa Afrika", "move Genoa Berlin --after Hanoi"), is_in_two_parts=True),
    Case("redo", setup=("rename Africa Afrika", "move Genoa Berlin --after Hanoi", "undo"), is_in_two_parts=True),
    Case("move Genoa Cairo --before Athens"),
    Case('move-group "An empty group with a long name" --after Europe'),
    Case('rename Europe "A name that is much longer than the one before"'),
    Case("delete Europe Afrika"),
    Case("sort", setup=("create Z Athens", "create A", "add Europe Faro Essen")),
    Case("sort"),
    Case("undo"),
    Case("undo 3", is_in_steps=True),
    Case("redo", setup=("rename Africa Afrika", "sort", "undo")),
    Case("redo 2", setup=("rename Africa Afrika", "add Europe Essen", "sort", "undo 2"), is_in_steps=True),
    Case("save"),
    Case("save other.tkpc --overwrite"),
    Case("save new.tkpc"),
    Case("save other.tkpc"),
    Case("open other.tkpc --discard"),
    Case("open points.csv --discard"),
    Case("show --all"),
    Case("show Europe"),
    Case("show Europe --places"),
    Case("show --all --json"),
    Case("find e"),
    Case("find e --json"),
    Case("where *"),
    Case("where Berlin Europe:* --json"),
    Case("select B* *:* :1-2"),
    Case("select Berlni*"),
    Case("export out.csv --overwrite"),
    Case("history"),
    Case("history 2 --json"),
    Case("help"),
    Case("help create"),
    Case("create New Nowhere"),
    Case("crate New"),
    Case('create "New'),
]


STEP = re.compile(r"[→ ] +(?!0 )\d+  (.*?)(?:  \(undone\))?(?:  \(clean\))?")


@dataclass(frozen=True)
class State:
    """Everything that a line can change."""
    tree: str
    history: str
    files: tuple
    is_unsaved: bool

    def steps(self):
        """The descriptions of all steps, without their numbers and marks."""
        found = (STEP.fullmatch(line) for line in self.history.splitlines())
        return [step[1] for step in found if step]


class Workshop:
    """A folder with projects, and the program that runs in it. Ends the program at the end."""

    def __init__(self, program, library, folder):
        self.program = program
        self.folder = Path(folder)
        base = make_project(program, folder)
        (self.folder / "other.tkpc").write_bytes(base.read_bytes())
        self.originals = {path: path.read_bytes() for path in self.folder.glob("*.tkpc")}
        self.allocations = FailingAllocations(folder, library)
        self.terminal = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.terminal:
            self.terminal.__exit__()
            self.terminal = None

    def prepare(self, case):
        """Starts from the same document and files, with some steps in the history."""
        for path in self.folder.glob("*.tkpc"):
            if path not in self.originals:
                path.unlink()
        for path, content in self.originals.items():
            if path.read_bytes() != content:
                path.write_bytes(content)
        if self.terminal is None:
            self.terminal = Terminal(self.program, ["base.tkpc"], self.allocations.environment, self.folder)
        self.ask_all(["open base.tkpc --discard", *case.setup])

    def ask_all(self, lines):
        for line in lines:
            answer = self.terminal.ask(line)
            if answer.is_mistake:
                raise Defect("afterwards, `%s` fails: %s" % (line, answer.text))

    def state(self):
        history = self.terminal.ask("history")
        return State(self.terminal.ask("show --all").text, history.text,
                     tuple(sorted((path.name, path.read_bytes()) for path in self.folder.glob("*.tkpc"))),
                     history.is_unsaved)

    def run(self, case, kind, first):
        """Runs the line of the case.
        @return the answer, and how many allocations there were"""
        self.allocations.order(ON, kind, first)
        try:
            return self.terminal.ask(case.line), self.allocations.stop()
        except Ended as end:
            self.allocations.stop()
            self.__exit__()
            raise Defect("the program has %s" % end) from end


class Expectation:
    """What a line does when nothing fails, and the check of what it leaves when something does."""

    def __init__(self, workshop, case):
        self.case = case
        workshop.prepare(case)
        self.before = workshop.state()
        self.answer, self.allocations = workshop.run(case, "one", NEVER)
        self.after = workshop.state()
        self.between = self._states_between(workshop) if case.is_in_steps else ()

    def _states_between(self, workshop):
        verb, steps = self.case.line.split()
        states = []
        for done in range(1, int(steps)):
            workshop.prepare(self.case)
            workshop.ask_all(["%s %d" % (verb, done)])
            states.append(workshop.state().tree)
        return states

    def check(self, workshop, kind, first):
        workshop.prepare(self.case)
        answer, _ = workshop.run(self.case, kind, first)
        state = workshop.state()
        said = "it said %r" % answer.text
        if PARTLY in answer.text:
            require(state.tree in self.between, "the document is in no state between the steps", said, state.tree)
        else:
            is_done = not answer.is_mistake or self.answer.is_mistake
            self._check_same(state, self.after if is_done else self.before, answer)
        require(answer.is_unsaved == state.is_unsaved, "the prompt is wrong", said)
        if state.tree != self.before.tree and not self.case.line.startswith(("undo", "redo", "open", "save")):
            workshop.ask_all(["undo"])
            require(workshop.state().tree == self.before.tree, "undo does not lead back", said)

    @staticmethod
    def _check_same(state, expected, answer):
        said = "it said %r" % answer.text
        require(state.tree == expected.tree, "the document is not what was said", said, state.tree)
        require(state.files == expected.files, "the files are not what was said", said)
        require(state.is_unsaved == expected.is_unsaved, "the mark of unsaved changes is wrong", said)
        told = re.findall(r"(\d+) steps? " + LOSS, answer.text + state.history)
        lost = len(expected.steps()) - len(state.steps())
        require(lost == sum(map(int, told)), "%d steps are lost" % lost, said, state.history)
        kept = expected.steps()[lost:] if lost else expected.steps()
        require(lost or all(was.startswith(now) for was, now in zip(kept, state.steps())),
                "other steps are in the history", said, state.history)


def attack_lines(workshop, tally, stride, only):
    """Lets each allocation fail, alone and with all that follow, while each line is run."""
    for case in CASES:
        expected = Expectation(workshop, case)
        for kind in KINDS:
            if kind == "nothing" and case.is_in_two_parts:
                continue  # reversing the first part takes memory that can be released, if there is any at all
            for first in range(0, expected.allocations, stride):
                name = "`%s`, %s from %d" % (case.line, kind, first)
                if only in name:
                    tally.attempt(name, lambda: expected.check(workshop, kind, first))


def attack_starts(workshop, tally, stride, only):
    """Lets each allocation fail while the program starts, changes and saves a project, and ends."""
    base, out = workshop.folder / "base.tkpc", workshop.folder / "out.tkpc"
    arguments = ["base.tkpc", "--command", "sort", "--command", "save out.tkpc"]
    environment = {**os.environ, **workshop.allocations.environment}

    def start(kind, first):
        out.unlink(missing_ok=True)
        workshop.allocations.order(FROM_MAIN, kind, first)
        done = run(workshop.program, arguments, workshop.folder, env=environment)
        return done, workshop.allocations.stop()

    done, allocations = start("one", NEVER)
    require(done.returncode == 0, "the undisturbed program fails", done.stderr.decode())
    saved = out.read_bytes()

    def check(kind, first):
        done, _ = start(kind, first)
        said = "it said %r" % (done.stdout + done.stderr).decode(errors="replace")
        require(done.returncode in (0, 1, 2), "it ended with status %d" % done.returncode, said)
        answer = done.stdout.partition(b"> save out.tkpc")[2]
        require(out.exists() == (b"Saved" in answer or b"Done" in answer), "what it says about the file is wrong", said)
        require(not out.exists() or out.read_bytes() == saved, "the file is not whole", said)
        require(done.returncode == 0 or done.stderr, "it says nothing", said)
        require(base.read_bytes() == workshop.originals[base], "it has changed the file that it opened", said)

    for kind in KINDS:
        for first in range(0, allocations, stride):
            name = "a start, %s from %d" % (kind, first)
            if only in name:
                tally.attempt(name, lambda: check(kind, first))


def attack_libraries(settings, tally):
    """Runs the tests, some of which let each allocation of an operation fail."""
    environment = {**os.environ, "TKM_REPORT_FAULTS": "1"}
    for name in ("PlatformTests", "HighLevelServicesTests", "GroupHostingTests", "PointCollectionsTests"):
        done = subprocess.run([settings.tests / name, "--gtest_brief=1"], env=environment, capture_output=True,
                              text=True, timeout=600, check=False)
        reports = re.findall(r"allocation faults: (\d+)", done.stdout)  # the children of death tests report first
        require(done.returncode == 0 and reports, name + " fails", done.stdout + done.stderr)
        faults = int(reports[-1])
        tally.faults += faults
        tally.notes.append("%s: %s faults within the process" % (name, "{:,}".format(faults)))


def attack(settings, folder, tally):
    if settings.tests:
        attack_libraries(settings, tally)
    stride = 23 if settings.quick else 1
    with Workshop(settings.point_collections, settings.failing_allocator, folder) as workshop:
        attack_lines(workshop, tally, stride, settings.only)
        attack_starts(workshop, tally, stride, settings.only)
