# SPDX-License-Identifier: MIT
"""What Google Benchmark has measured, and how tables show it."""

import json
import re
import statistics

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Results:
    """The rounds of each benchmark of a program, by the name of the benchmark."""

    def __init__(self, path):
        measured = json.loads(path.read_text(encoding="utf-8"))
        self.context = measured["context"]
        self._rounds = {}
        for each in measured["benchmarks"]:
            if each["run_type"] == "iteration":
                name = re.sub("/iterations:[0-9]+|/repeats:[0-9]+", "", each["run_name"])
                self._rounds.setdefault(name, []).append(each)

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

    def bytes(self, name):
        return statistics.median(round["bytes"] for round in self._rounds[name])

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
